#pragma once

#include "data/journal/journal.h"
#include "drivers/calibrator_identity.h"
#include "drivers/fluke_judgement.h"
#include "drivers/instrument_work.h"
#include "platform/values/moments.h"

#include <QJsonObject>
#include <QStringList>

namespace kelvane {

/// The kinds of runs of which records are made: the first one of an instrument, which an as-left run may
/// follow, and that as-left run.
inline constexpr qint16 firstRun = 1;
inline constexpr qint16 asLeftRun = 2;

/// What was calibrated, and by whom; cleaned.
struct RunTag {
    QString tag;
    QString serial;
    QString technician;
};

/// One reading: `applied` to the instrument's input, `reading` at its output, and the error that the
/// calibrator found, all as the link library gives them.
struct RunEntry {
    float reading = 0;
    float applied = 0;
    float calibratorError = 0;
};

/// A run of a task on a Fluke calibrator as it was read, with all that its record is made of besides the
/// instrument's parameters.
struct RunResults {
    qint16 kind = 0;
    /// "YYYY-MM-DD" and "HH:NN:SS"; empty for a moment that does not exist.
    QString date = {};
    QString time = {};
    RunTag tag = {};
    /// The calibrator holds a later run of the same instrument.
    bool hasLaterRun = false;
    /// The serial number of the pressure module, that of the measuring side where each side has its own;
    /// empty without one.
    QString pressureModule = {};
    /// The serial number of the module that has sourced; empty without one.
    QString sourceModule = {};
    /// How many readings the calibrator says that it has stored, where it says so; else 0.
    qint16 steps = 0;
    /// Who has downloaded the instrument.
    QString inUseTech = {};
    QList<RunEntry> entries = {};
};

/// When a run was stored; a year below 100 has two digits. Error 13 for a date or a time that does not exist.
Moment momentOfRun(int year, int month, int day, const QTime& time);
/// Puts the moment into the run, as statements have it.
void setMoment(RunResults& run, const Moment& moment);

/// The form in which a run stands in the journal.
QJsonObject toJson(const RunResults& run);
RunResults runOf(const QJsonObject& json);
/// Its readings for the operator, a line each.
QStringList readingsOf(const RunResults& run);
/// The journal's entry of a run. `serial` is the calibrator's serial number.
JournalEntry entryOf(const CalibratorIdentity& calibrator, const QString& serial, const QString& asset,
                     const QString& mtag, const RunResults& run);

/// What was applied and read in the instrument's own units, and the calibrator's error in percent of span.
struct RunReading {
    double applied;
    double reading;
    double calibratorError;
};
/// The reading of an entry. Error 6 for a value that becomes too large.
using ReadingOf = RunReading (*)(const CalParamRecord& instrument, const RunEntry& entry);

/// Puts the standards of a run into its record: the calibrator, its pressure modules, and what is in use with
/// the instrument.
class RunStandards {
  public:
    /// Without the calibrator.
    RunStandards(Session& session, CalRecord& record);
    RunStandards(Session& session, CalRecord& record, const QString& calibratorSerial);
    /// Without a serial number there is no module. One that the inventory doesn't know leaves its row empty,
    /// which ends the list.
    void addModule(const QString& serial);
    /// The same; one that the inventory doesn't know is left out.
    void addKnownModule(const QString& serial);
    /// Gives the number of standards in use.
    int addInUse(const QString& asset);

  private:
    Session& session_;
    CalRecord& record_;
    int row_ = 0;
};

/// What the runs of one calibrator have of their own.
struct RunRules {
    ReadingOf readingOf;
    /// The standards that a run names itself; `serial` is the calibrator's serial number.
    RunStandards (*standards)(Session& session, CalRecord& record, const RunResults& run,
                              const QString& serial);
    /// What stands, in any case, for a technician without a name, besides the calibrator's serial number.
    QStringView noTechnician = {};
    /// A run has as many readings as the instrument has test points; otherwise as many as it says itself.
    bool hasReadingForEachPoint = true;
};

/// An instrument's parameters and the judgement by them.
struct JudgedRun {
    CalParamRecord instrument = {};
    std::optional<RunJudgement> judgement = {};
};

/// The asset that a tag stands for: a tag of 29 characters may be the beginning of a longer number. Empty for
/// one that was renamed since it was cut.
QString assetOf(Session& session, const RunTag& tag);

/// Judges all readings of a prepared run into the results of the record, and finds who has downloaded the
/// instrument. A reading that is no number is reported.
void judgeRun(Session& session, InstrumentWork& work, JudgedRun& judged, RunResults& run,
              const RunRules& rules, const QString& serial);

/// Puts what the run says into the fields of the record. `serial` is the calibrator's serial number.
void fillFields(CalRecord& record, const CalParamRecord& instrument, const PointCounts& counts,
                const RunResults& run, const RunRules& rules, const QString& serial);

/// Has the record of a prepared run made, and shows the operator where workstation and calibrator have
/// disagreed. An unprepared run needs no judgement.
RecordOutcome finishRun(InstrumentWork& work, const std::optional<RunJudgement>& judgement);

/// Judges a run out of the journal again by the instrument's present parameters, into `record`. The entry's
/// own date and time count; its asset is found again for a tag that was cut. Empty, or the reason why it
/// can't be judged. Errors are reported under the name of the routine.
QString judgeRunAgain(Session& session, JournalEntry& entry, CalRecord& record, const RunRules& rules,
                      const QString& routineName);

} // namespace kelvane
