#pragma once

#include "data/history/instrument_keys.h"
#include "data/history/lookup.h"
#include "data/history/stored_values.h"
#include "data/session.h"

#include <QHash>
#include <QList>
#include <QStringList>

namespace kelvane {

class Routine;

/// An instrument's registration with a calibrator that it is out with.
struct InstrumentOut {
    /// Of the calibrator.
    QString serial = {};
    /// Who sent it; empty when the registration does not say.
    QString technician = {};
    StoredMoment since = {};
};

/// An instrument of the inventory with its current calibration record, place and registrations. What the
/// database does not say is empty.
struct InstrumentSummary {
    QString mtag = {};
    /// As it is stored, with blanks at its end where the column has a fixed width.
    QString asset = {};
    QString description = {};
    QString manufacturer = {};
    QString model = {};
    QString serial = {};
    QString group = {};
    /// Where it is now. Of several places that are marked so, the last in the alphabet.
    QString location = {};
    StoredMoment lastCalibration = {};
    /// Of the current record: the state of its run, and "Y" or "N" for passed. Both are empty for an
    /// instrument without a record.
    QString state = {};
    QString passed = {};
    StoredMoment due = {};
    /// From the present day to the due date: 0 on that day, negative behind it. Nothing without a due date,
    /// since an instrument that was never calibrated is neither due nor in calibration.
    std::optional<qint64> daysLeft = {};
    /// The newest registration first. A second one is most often left over from a calibrator that was not
    /// cleared.
    QList<InstrumentOut> out = {};
};

/// What the instruments can be ordered by. `due` orders by the days that are left, too.
enum class InstrumentOrder {
    asset,
    description,
    manufacturer,
    model,
    serial,
    group,
    location,
    lastCalibration,
    passed,
    due,
};

/// Which instruments are read: those that meet everything that is set.
struct InstrumentFilter {
    /// Contained in asset number, description, model, location or serial number, in any case of its letters.
    /// Every character stands for itself.
    QString text = {};
    /// The due date is at most so many days ahead, or behind the present day.
    std::optional<int> dueWithinDays = {};
    /// The due date is behind the present day. On the day itself an instrument is still in calibration.
    bool isOverdue = false;
    /// Exactly these; empty for any.
    QString group = {};
    QString model = {};
    QString description = {};
    QString asset = {};
};

struct InstrumentQuery {
    InstrumentFilter filter = {};
    /// Instruments without a value come last in either direction; those of one value in the order of their
    /// asset numbers.
    InstrumentOrder order = InstrumentOrder::asset;
    bool isDescending = false;
};

/// The values that a column of the inventory has, which is group, model or description, in the order of the
/// database. Nothing after an error, which is reported as "History,values".
std::optional<QStringList> instrumentValues(Session& session, InstrumentOrder column);

/// The instrument of an asset number in the inventory; the blanks at its end may be missing
/// (`storedAssetNumber`). An error is reported as "History,instruments" or "History,assetNumber".
Lookup<InstrumentSummary> instrumentNamed(Session& session, const QString& asset);

/// The customer that an instrument is calibrated for, by its key; empty when the database names none, and of
/// several the last in the alphabet. Nothing after an error, which is reported as "History,customer".
std::optional<QString> customerOf(Session& session, const QString& mtag);

/// Reads the instruments of the session's owner: at first which ones a query finds and in which order, then
/// blocks of them, from any place. Drivers hold a whole result in memory, so that no more is read at once
/// than is wanted; of all instruments only keys and asset numbers are kept, and the registrations of what is
/// out.
///
/// Of several records that are marked as an instrument's current one, the newest counts. An instrument that a
/// block no longer finds has left the inventory, or the days and values of the filter, since the query.
/// Errors are reported as "History,instruments"; after one nothing more is read.
class InstrumentReader {
  public:
    /// Runs the query. The session has to outlive the reader; its connection need not.
    InstrumentReader(Session& session, const InstrumentQuery& query);

    ~InstrumentReader();

    /// How many instruments the query has found.
    qsizetype size() const { return keys_.size(); }
    /// Key and asset number of the instrument at a place from 0 on, all else empty.
    InstrumentSummary keyAt(qsizetype place) const;
    /// The instruments from a place on, `count` of them, or as many as there are. After an error, and of one
    /// that is no longer found, key and asset number alone.
    QList<InstrumentSummary> read(qsizetype first, qsizetype count);

    /// The next instruments of a walk through all, at most `count` of them, without those that are no longer
    /// found; none after an error.
    QList<InstrumentSummary> next(qsizetype count);
    /// True when the walk has come to the last instrument, or can't go on.
    bool isAtEnd() const { return hasFailed_ || next_ == size(); }
    /// True after an error: the instruments that came are not all.
    bool hasFailed() const { return hasFailed_; }

  private:
    void readRegistrations();
    void readKeys();
    /// By their keys.
    QHash<QString, InstrumentSummary> readBlock(qsizetype first, qsizetype count);
    InstrumentSummary instrumentOf(RecordSet& row) const;

    std::unique_ptr<Routine> routine_;
    QString owner_;
    InstrumentQuery query_;
    QDate today_;
    QHash<QString, QList<InstrumentOut>> registrations_;
    InstrumentKeys keys_;
    qsizetype next_ = 0;
    bool hasFailed_ = false;
};

} // namespace kelvane
