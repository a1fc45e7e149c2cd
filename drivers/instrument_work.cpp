#include "drivers/instrument_work.h"

#include "data/records/cal_record.h"
#include "data/records/field_dictionary.h"
#include "data/records/record_check.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// The keys of the instrument's records of a date that have no time. Only where there is a time is a second
/// record of its moment refused.
QStringList recordsWithoutTime(Session& session, const JournalEntry& entry, const QString& date) {
    Routine routine(session, u"ModuleGlobals,CreateCalRecord"_s);
    const auto records = ModuleGlobals::recordsOf(
        session, routine,
        {.asset = entry.asset, .mtag = entry.mtag, .date = date, .time = {}, .lines = {}, .standards = {}});
    QStringList keys;
    for (const auto& record : records)
        keys << record.ctag;
    return keys;
}

/// The operator may have given another date or time than the calibrator: under these the record is found
/// again. One without lines looks like any other of its moment, so that its beginning is noted too.
void noteBeginning(Session& session, const JournalEntry& entry, const CalRecord& record) {
    const auto date = fieldValue(record, u"C2301").value_or(entry.date);
    const auto time = fieldValue(record, u"C2333");
    if (entry.lines.isEmpty()) {
        const bool hasTime = time && !time->isEmpty();
        const auto others = hasTime ? QStringList() : recordsWithoutTime(session, entry, date);
        Journal(session).setBegun(entry.id, date, time.value_or(entry.time), others);
    } else if (date != entry.date || time.value_or(entry.time) != entry.time) {
        Journal(session).setDate(entry.id, date, time.value_or(entry.time));
    }
}

bool isDate(const QString& text) {
    return momentOf(text, u"YYYY/MM/DD").has_value();
}

/// True when the two hold the results of one calibration. What a calibrator has read is more than what was
/// entered of it from paper, even at the same moment.
bool sameResults(const JournalEntry& left, const JournalEntry& right) {
    if (left.driver != right.driver || left.asset != right.asset || left.owner != right.owner)
        return false;
    if (left.readings.isEmpty()) // nothing had been read of it
        return left.serial == right.serial;
    return left.raw == right.raw || (isDate(left.date) && left.date == right.date && left.time == right.time);
}

} // namespace

InstrumentWork::InstrumentWork(Session& session, QString routine)
    : session_(session), routine_(std::move(routine)), preparation_(session) {}

RecordOutcome InstrumentWork::finish() {
    copyRecord(record, entry);
    entry.prepared = isPrepared();
    entry.why = text(entry.prepared ? TextId::resultsInterrupted : TextId::recordNotBegun);
    if (!entry.prepared) { // then these are worth nothing; the raw readings are
        entry.lines.clear();
        entry.fields.clear();
    }
    entry.owner = session_.SessionOwner;
    try {
        entry.id = Journal(session_).add(entry);
    } catch (const Error& error) {
        return {RecordOutcome::End::unprepared, text(notWritten).arg(entry.asset, error.description)};
    }
    if (hasLostConnection())
        return {RecordOutcome::End::unprepared, text(TextId::connectionLostAdvice)};
    if (!isPrepared())
        return {};
    return makeRecord();
}

bool InstrumentWork::hasLostConnection() const {
    return !isPrepared() && kelvane::hasLostConnection(session_);
}

RecordOutcome InstrumentWork::makeRecord() {
    using End = RecordOutcome::End;
    const ReportWatch making(session_);
    const auto created = createRecord(session_, entry, record);
    RecordOutcome outcome{End::made, {}};
    if (making.sawReport()) {
        outcome.end = created.isGivenUp ? End::unprepared : End::unfinished;
        const auto why = text(created.isGivenUp ? TextId::recordNotBegun : TextId::recordMayBeIncomplete);
        changeJournal(session_, [&](Journal& journal) { journal.explain(entry.id, why); });
    } else if (!created.refusal.isEmpty()) {
        changeJournal(session_,
                      [&](Journal& journal) { journal.end(entry.id, JournalEnd::refused, created.refusal); });
    } else {
        endAsDone(session_, entry);
    }
    if (!created.refusal.isEmpty()) {
        outcome.end = End::refused;
        session_.ui.messageBox(created.refusal, text(TextId::recordCreation), box::stop);
    }
    if (making.sawReport() && kelvane::hasLostConnection(session_))
        outcome.failure = text(TextId::connectionLostAdvice);
    return outcome;
}

CreatedRecord createRecord(Session& session, const JournalEntry& entry, CalRecord& record) {
    // What was asked of the database and not answered, as the key or the due date, must not become a part of
    // a record.
    const ReportWatch asking(session);
    CreatedRecord created;
    const auto mayGoOn = [&] {
        created.isGivenUp = asking.sawReport();
        return !created.isGivenUp;
    };
    created.refusal = ModuleGlobals::CreateCalRecord(session, record, entry.asset,
                                                     {.mayAsk = mayGoOn,
                                                      .mayWrite =
                                                          [&] {
                                                              if (!mayGoOn())
                                                                  return false;
                                                              noteBeginning(session, entry, record);
                                                              return true;
                                                          },
                                                      .couldNotLock = [&] { created.isGivenUp = true; }});
    return created;
}

void endAsDone(Session& session, const JournalEntry& entry) {
    changeJournal(session, [&](Journal& journal) {
        journal.end(entry.id, JournalEnd::done);
        const auto others = journal.unfinished();
        for (const auto& other : others) {
            if (sameResults(other, entry))
                journal.end(other.id, JournalEnd::done, text(TextId::recordMadeElsewhere));
        }
    });
}

bool changeJournal(Session& session, const std::function<void(Journal&)>& change) {
    Routine routine(session, u"Journal,Change"_s);
    return routine.run([&] {
        Journal journal(session);
        change(journal);
    });
}

std::optional<QString> fieldValue(const CalRecord& record, QStringView column) {
    for (int row = 0; row < ModuleGlobals::calFieldCount(record); ++row) {
        const auto& field = record.CalFieldTable[row];
        if (field.column.compare(column, Qt::CaseInsensitive) == 0)
            return field.value;
    }
    return {};
}

void copyRecord(const CalRecord& record, JournalEntry& entry) {
    entry.lines = entriesOf(record.RecordResults);
    entry.standards = entriesOf(record.RecordStandards);
    entry.fields.clear();
    for (int row = 0; row < ModuleGlobals::calFieldCount(record); ++row) {
        const auto& field = record.CalFieldTable[row];
        entry.fields << std::pair(field.column, field.value);
    }
}

bool hasLostConnection(const Session& session) {
    const auto& connection = session.SharedConnection;
    return !session.SessionConnected || (connection && (!connection->isOpen() || connection->isLost()));
}

QString failureOfContact(const Session& session, const ReportWatch& contact, const QString& failure) {
    return contact.sawReport() && hasLostConnection(session) ? text(TextId::connectionLostAdvice) : failure;
}

} // namespace kelvane
