#pragma once

#include "data/history/calibrations.h"
#include "data/routine.h"

#include <QHash>

namespace kelvane {

/// The records of the standards of an instrument's calibrations, to tell what each of them was at a moment.
class StandardRecords {
  public:
    /// Reads the records of all standards that calibrations of the instrument name. Runs under the routine
    /// that is given, and throws what fails.
    StandardRecords(const Session& session, Routine& routine, const QString& asset);

    /// Sets state, calibration and due date of a standard at a moment, which has a date.
    void describe(UsedStandard& standard, const Moment& at) const;

  private:
    struct Record {
        double ctag = 0;
        StoredMoment date;
        StoredMoment time;
        StoredMoment due;
        StoredMoment dueTime;
        bool hasFailed = false;
        QString number;
        QString laboratory;
    };

    void read(const Session& session, Routine& routine, const QString& standardOwner, const QString& asset);
    const Record* recordAt(const QString& standard, const Moment& at) const;

    /// By asset numbers in capital letters: they compare without case.
    QHash<QString, QList<Record>> records_;
};

} // namespace kelvane
