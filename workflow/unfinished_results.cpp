#include "workflow/unfinished_results.h"

#include "data/assets/assets.h"
#include "data/custom_dialog.h"
#include "data/records/instrument_lock.h"
#include "data/records/record_check.h"
#include "data/records/record_columns.h"
#include "data/routine.h"
#include "drivers/instrument_work.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr QStringView dateColumn = u"C2301";
constexpr QStringView timeColumn = u"C2333";

using End = MakeRecordOutcome::End;
using ModuleGlobals::statementForm;

/// The value of a field, as the calibration date of an entry.
std::optional<QString> valueOf(const JournalEntry& entry, QStringView column) {
    const auto field = std::find_if(entry.fields.cbegin(), entry.fields.cend(), [&](const auto& candidate) {
        return candidate.first.compare(column, Qt::CaseInsensitive) == 0;
    });
    return field == entry.fields.cend() ? std::nullopt : std::optional(field->second);
}

std::optional<Moment> storedDate(const QString& text) {
    const auto moment = momentOf(text, u"YYYY/MM/DD");
    return moment && moment->date.isValid() ? moment : std::nullopt;
}

std::optional<Moment> storedTime(const QString& text) {
    const auto moment = momentOf(text, u"YYYY/MM/DD");
    return moment && moment->time.isValid() && !moment->date.isValid() ? moment : std::nullopt;
}

/// One press of Make Record.
class RecordMaking {
  public:
    RecordMaking(Session& session, Routine& routine, const JournalEntry& entry)
        : session_(session), routine_(routine), watch_(session), entry_(entry) {}

    /// The message for the operator; empty when the record is complete.
    QString make();

  private:
    QString judge();
    QString checkInstrument() const;
    bool settleMoment();
    bool ask(TextId prompt, FieldKind kind, QString& value);
    /// What there is of a record, and what was done about it.
    enum class Begun { nothing, other, completed };
    std::optional<QString> completeBegunRecord();
    Begun completeOwnRecord(const RecordContents& wanted);
    QString createNew();
    QString askMoment(QStringView column, FieldKind kind, const QString& otherwise) const;
    bool isRecordMade() const;
    bool isRecognised() const { return !entry_.lines.isEmpty() || entry_.begun; }
    RecordContents contents() const;
    QList<StoredRecord> ownRecords(const RecordContents& wanted) const;

    Session& session_;
    Routine& routine_;
    ReportWatch watch_;
    JournalEntry entry_;
    CalRecord record_;
};

QString RecordMaking::make() {
    if (entry_.owner != session_.SessionOwner)
        return text(TextId::resultsOfOtherOwner).arg(entry_.owner);
    if (entry_.readings.isEmpty() && !entry_.prepared)
        return text(TextId::readingsNotKept).arg(entry_.asset);
    if (!settleMoment())
        return text(TextId::calibrationDateMissing);
    // Lines that were made by an incomplete preparation were not kept.
    if (!entry_.prepared) {
        if (auto reason = judge(); !reason.isEmpty())
            return reason;
    }
    if (auto reason = checkInstrument(); !reason.isEmpty())
        return reason;
    if (const auto reason = completeBegunRecord())
        return *reason;
    return createNew();
}

QString RecordMaking::judge() {
    auto reason = judgeAgain(session_, entry_, record_);
    if (reason.isEmpty() && watch_.sawReport())
        reason = text(TextId::recordNotComplete).arg(entry_.asset);
    if (reason.isEmpty())
        copyRecord(record_, entry_);
    return reason;
}

/// The number may have been given to another instrument since.
QString RecordMaking::checkInstrument() const {
    const auto mtag = ModuleGlobals::CheckAsset(session_, entry_.asset);
    if (watch_.sawReport())
        return text(TextId::recordNotComplete).arg(entry_.asset);
    const bool isSame = !mtag.isEmpty() && (entry_.mtag.isEmpty() || entry_.mtag == mtag);
    return isSame ? QString() : text(TextId::instrumentNotInInventory).arg(entry_.asset);
}

/// Asks for the date, and the time, that the calibrator did not give. They are in the journal before they are
/// used: under them a record is found again.
bool RecordMaking::settleMoment() {
    const bool hasDate = storedDate(entry_.date).has_value();
    // The records of a site without a field for the time have none.
    const bool hasTime =
        storedTime(entry_.time).has_value() || (entry_.prepared && !valueOf(entry_, timeColumn));
    if (hasDate && hasTime)
        return true;
    if (!hasDate && !ask(TextId::calibrationDatePrompt, FieldKind::date, entry_.date))
        return false;
    if (!hasTime && !ask(TextId::calibrationTimePrompt, FieldKind::time, entry_.time))
        return false;
    // The fields that were prepared with what was none are prepared again.
    Journal(session_).setDate(entry_.id, entry_.date, entry_.time);
    return true;
}

bool RecordMaking::ask(TextId prompt, FieldKind kind, QString& value) {
    const auto answer =
        ModuleGlobals::CustomDialog(session_, text(TextId::makeRecord), text(prompt).arg(entry_.asset), true,
                                    0, 0, static_cast<qint16>(kind), {});
    const auto moment = momentOf(answer, session_.SessionDateFormat);
    const bool isDate = kind == FieldKind::date;
    if (!moment || !(isDate ? moment->date.isValid() : moment->time.isValid()))
        return false;
    value = ModuleGlobals::fieldText(session_, answer, static_cast<qint16>(kind), statementForm);
    return true;
}

RecordContents RecordMaking::contents() const {
    const auto mtag = ModuleGlobals::CheckAsset(session_, entry_.asset);
    // Records of a site without a field for the time have none.
    const auto time = valueOf(entry_, timeColumn) ? entry_.time : QString();
    return {entry_.asset, mtag, entry_.date, time, entry_.lines, entry_.standards};
}

/// The records of its moment, without those that stood there before it began one.
QList<StoredRecord> RecordMaking::ownRecords(const RecordContents& wanted) const {
    auto records = ModuleGlobals::recordsOf(session_, routine_, wanted);
    records.removeIf([this](const StoredRecord& record) { return entry_.others.contains(record.ctag); });
    return records;
}

/// Completes what had been begun of the record; nothing when nothing had been. A record without lines is that
/// of this entry only when the entry has begun one.
std::optional<QString> RecordMaking::completeBegunRecord() {
    if (!isRecognised())
        return {};
    const auto wanted = contents();
    switch (completeOwnRecord(wanted)) {
    case Begun::nothing:
        return {};
    case Begun::other:
        return text(TextId::otherRecordExists).arg(entry_.asset);
    case Begun::completed:
        break;
    }
    return isRecordMade() ? QString() : text(TextId::recordNotComplete).arg(entry_.asset);
}

/// Under the lock of the instrument: what another workstation is just writing is not missing.
RecordMaking::Begun RecordMaking::completeOwnRecord(const RecordContents& wanted) {
    const InstrumentLock lock(session_, wanted.mtag);
    const auto records = ownRecords(wanted);
    for (const auto& record : records) {
        if (!ModuleGlobals::mayBecome(record, wanted))
            continue;
        ModuleGlobals::complete(session_, routine_, record, wanted);
        return Begun::completed;
    }
    return records.isEmpty() ? Begun::nothing : Begun::other;
}

/// Making a new record. What the operator settles meanwhile decides where it is searched for.
QString RecordMaking::createNew() {
    if (entry_.readings.isEmpty())
        return text(TextId::readingsNotKept).arg(entry_.asset);
    if (entry_.prepared) {
        if (auto reason = judge(); !reason.isEmpty())
            return reason;
    }
    entry_.prepared = true;
    entry_.begun = false;
    entry_.why = text(TextId::resultsInterrupted);
    Journal(session_).replace(entry_);
    const ReportWatch making(session_);
    const auto refusal = createRecord(session_, entry_, record_).refusal;
    // Without lines the record does not show whether the steps behind its insert were reached.
    if (entry_.lines.isEmpty() && (making.sawReport() || !refusal.isEmpty()))
        return refusal.isEmpty() ? text(TextId::recordNotComplete).arg(entry_.asset) : refusal;
    entry_.date = askMoment(dateColumn, FieldKind::date, entry_.date);
    entry_.time = askMoment(timeColumn, FieldKind::time, entry_.time);
    if (isRecordMade())
        return {};
    return refusal.isEmpty() ? text(TextId::recordNotComplete).arg(entry_.asset) : refusal;
}

QString RecordMaking::askMoment(QStringView column, FieldKind kind, const QString& otherwise) const {
    JournalEntry asked;
    copyRecord(record_, asked);
    const auto value = valueOf(asked, column);
    const bool isMoment = value && momentOf(*value, session_.SessionDateFormat).has_value();
    return isMoment ? ModuleGlobals::fieldText(session_, *value, static_cast<qint16>(kind), statementForm)
                    : otherwise;
}

bool RecordMaking::isRecordMade() const {
    const auto wanted = contents();
    const ReportWatch reading(session_);
    const auto records = ownRecords(wanted);
    return std::any_of(records.cbegin(), records.cend(), [&](const StoredRecord& record) {
        return ModuleGlobals::isWhole(session_, record, wanted) && !reading.sawReport();
    });
}

/// The unfinished entries; none when the journal can't be read, which is reported once.
QList<JournalEntry> readJournal(Session& session) {
    try {
        const auto entries = Journal(session).unfinished();
        session.hasReportedJournal = false;
        return entries;
    } catch (const Error& error) {
        if (session.hasReportedJournal)
            return {};
        session.hasReportedJournal = true;
        try {
            Routine(session, u"Journal,Unfinished"_s).run([&] { throw error; });
        } catch (const Error&) {
            // Without a log there is no report, and nothing that could catch an error.
        }
        return {};
    }
}

} // namespace

QList<UnfinishedResult> unfinishedResults(Session& session) {
    QList<UnfinishedResult> results;
    const auto entries = readJournal(session);
    for (const auto& entry : entries) {
        const auto date = QString(entry.date + u' ' + entry.time).trimmed();
        results << UnfinishedResult{entry.id,  entry.asset,
                                    date,      entry.calibrator,
                                    entry.why, entry.lines.isEmpty() ? entry.readings : entry.lines};
    }
    return results;
}

MakeRecordOutcome makeRecordOf(Session& session, const QString& id) {
    const BusyPointer busy(session.ui);
    Routine routine(session, u"Journal,MakeRecord"_s);
    MakeRecordOutcome outcome{End::unfinished, text(TextId::resultsNoLongerInJournal)};
    routine.run([&] {
        const auto entry = Journal(session).find(id);
        if (!entry)
            return;
        outcome.message = text(TextId::recordNotComplete).arg(entry->asset);
        const auto reason = RecordMaking(session, routine, *entry).make();
        if (reason.isEmpty()) {
            endAsDone(session, *entry);
            outcome.end = End::made;
        }
        outcome.message = reason.isEmpty() ? text(TextId::recordMade).arg(entry->asset) : reason;
    });
    if (outcome.end != End::made && hasLostConnection(session))
        outcome.message = text(TextId::connectionLostResultsKept);
    return outcome;
}

bool discardResult(Session& session, const QString& id) {
    return changeJournal(session, [&](Journal& journal) {
        journal.end(id, JournalEnd::discarded, text(TextId::discardedByOperator));
    });
}

} // namespace kelvane
