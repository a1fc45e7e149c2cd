#pragma once

#include "drivers/fluke702/stored_run.h"
#include "drivers/fluke_judgement.h"

#include <QJsonObject>
#include <QStringList>

namespace kelvane::Module702Interface {

/// The kinds of runs of which records are made.
inline constexpr qint16 firstRun = 1;
inline constexpr qint16 asLeftRun = 2;

/// A run as it was read, with all that its record is made of besides the instrument's parameters.
struct RunResults {
    qint16 kind = 0;
    /// "YYYY-MM-DD" and "HH:NN:SS"; empty for a moment that does not exist.
    QString date = {};
    QString time = {};
    RunTag tag = {};
    /// A later run of the same instrument lies on the calibrator.
    bool comesAgain = false;
    /// The serial number of the pressure module; empty without one.
    QString pressureModule = {};
    /// Who has downloaded the instrument.
    QString inUseTech = {};
    /// In the calibrator's base units.
    QList<RunEntry> entries = {};
};

/// The asset that a tag stands for; empty for one that was renamed since it was cut.
QString assetOf(Session& session, const RunTag& tag);

/// The form in which a run stands in the journal.
QJsonObject toJson(const RunResults& run);
RunResults runOf(const QJsonObject& json);
/// Its readings for the operator, a line each.
QStringList readingsOf(const RunResults& run);

/// Judges all readings; the lines go into the results of the new record. Error 6 for a reading that is no
/// number.
void judge(RunJudgement& judgement, const CalParamRecord& instrument, const QList<RunEntry>& entries);

/// Puts what the run says into the fields of the new record. `serial` is the calibrator's serial number.
void fillFields(CalRecord& record, const CalParamRecord& instrument, const PointCounts& counts,
                const RunResults& run, const QString& serial);

/// Puts the standards of a run into the list of the new record: the calibrator, its pressure module, and what
/// is in use with the instrument; gives the number of the last. A module that the inventory doesn't know
/// leaves its row empty, which ends the list.
class RunStandards {
  public:
    RunStandards(Session& session, CalRecord& record, const QString& calibratorSerial);
    int add(const QString& pressureModule, const QString& asset);

  private:
    Session& session_;
    CalRecord& record_;
};

} // namespace kelvane::Module702Interface
