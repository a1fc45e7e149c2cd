#pragma once

#include "data/journal/journal.h"
#include "data/records/cal_record.h"
#include "data/routine.h"
#include "resources/text_id.h"

#include <functional>

namespace kelvane {

/// How the work on an instrument's results ended.
struct RecordOutcome {
    enum class End {
        made,
        /// The operator or a rule of the record refused it, and the operator has seen the reason.
        refused,
        /// There is an entry in the journal, and no record or a part of one.
        unfinished,
        /// The same; an error came before the record was begun, so that the calibrator keeps the results.
        unprepared,
    };
    End end = End::unprepared;
    /// Not empty: the upload ends with this text, before anything is removed.
    QString failure = {};
};

/// The work on the results of one instrument, from its first reading on: what is gathered goes into `entry`,
/// which is in the journal before the record is begun. A report during the work means no record.
class InstrumentWork {
  public:
    /// `routine` is the name under which errors of the driver's own steps are reported.
    InstrumentWork(Session& session, QString routine);

    /// Carries out a step. An error in it is reported, and the work goes on; only an error report that can't
    /// be written leaves here.
    template <class Step>
    void attempt(Step&& step) {
        Routine routine(session_, routine_);
        routine.run(std::forward<Step>(step));
    }

    /// Says that an error was reported before this work was begun.
    void setUnprepared() { failedBefore_ = true; }
    /// False once an error has been reported.
    bool isPrepared() const { return !failedBefore_ && !preparation_.sawReport(); }

    /// Writes the entry into the journal, with what stands in `record`, and has the record made. A refusal is
    /// shown in a box.
    RecordOutcome finish();

    JournalEntry entry;
    CalRecord record;
    /// The failure when the journal can't be written: %1 is the instrument, %2 the error.
    TextId notWritten = TextId::journalNotWritten;

  private:
    bool hasLostConnection() const;
    RecordOutcome makeRecord();

    Session& session_;
    QString routine_;
    ReportWatch preparation_;
    bool failedBefore_ = false;
};

/// How `CreateCalRecord` ended.
struct CreatedRecord {
    /// The reason why there is no record; empty when it was made, or after a reported error.
    QString refusal = {};
    /// An error came before anything was written, and so nothing was.
    bool isGivenUp = false;
};

/// Has the record of an entry made, as `CreateCalRecord` does it, given up when an error is reported before
/// it writes. Before it writes, the date that the operator has given goes into the journal.
CreatedRecord createRecord(Session& session, const JournalEntry& entry, CalRecord& record);

/// Ends an entry of which there is a whole record, and the older ones of the same results.
void endAsDone(Session& session, const JournalEntry& entry);

/// Changes the journal. False after an error, which is reported.
bool changeJournal(Session& session, const std::function<void(Journal&)>& change);

/// The value of a column of the record; nothing when the site's dictionary does not have it.
std::optional<QString> fieldValue(const CalRecord& record, QStringView column);

/// Copies lines, fields and standards of a record into its entry.
void copyRecord(const CalRecord& record, JournalEntry& entry);

/// True when the database is out of reach, after a report that may have said so.
bool hasLostConnection(const Session& session);

/// What the operator reads of a contact with a calibrator that has failed: the failure, or, when the database
/// was lost meanwhile, what to do about that.
QString failureOfContact(const Session& session, const ReportWatch& contact, const QString& failure);

} // namespace kelvane
