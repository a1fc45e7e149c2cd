#include "data/records/record_check.h"

#include "data/assets/assets.h"
#include "data/records/cal_record_parts.h"
#include "data/small_routines.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

namespace {

/// The condition that finds the rows that belong to a record.
Sql belongsTo(const StoredRecord& record, const QString& mtag) {
    return u" where mtag = " + sqlText(mtag) + u" and ctag = " + sqlText(record.ctag);
}

void readLines(Routine& routine, StoredRecord& record, const QString& mtag) {
    const auto rows = routine.select(u"select c2502,c2501 from mt.calresults" + belongsTo(record, mtag));
    while (rows->next()) {
        const int number = roundToLong(numericValue(notNull(rows->value(0))));
        record.lines.insert(number, rows->value(1).value_or(QString()));
    }
}

void readStandards(Routine& routine, StoredRecord& record, const QString& mtag) {
    const auto rows = routine.select(u"select c2430 from mt.standards" + belongsTo(record, mtag));
    while (rows->next()) {
        if (const auto standard = rows->value(0))
            record.standards << *standard;
        else
            ++record.unknownStandards;
    }
}

/// A name goes into its statements as it stands, unless its quotes would end them.
QStringList namesForStatements(const QStringList& names) {
    QStringList safe;
    for (const auto& name : names)
        safe << (sqlText(name).isIntact() ? name : SQLSafe(name));
    return safe;
}

/// The standards that a record lacks.
QStringList missingStandards(Session& session, const StoredRecord& record, const QStringList& standards) {
    const auto names = namesForStatements(distinctNames(standards));
    QStringList missing;
    int unknown = 0;
    for (const auto& name : names) {
        const auto mtag = CheckAsset(session, name);
        const bool isThere =
            mtag.isEmpty() ? ++unknown <= record.unknownStandards : record.standards.contains(mtag);
        if (!isThere)
            missing << name;
    }
    return missing;
}

/// Servers give a line without the blanks at its end, or fill it up with them. A line goes into its statement
/// as it stands: two quotes in it are stored as one.
bool isSame(const QString& stored, const QString& line) {
    const auto found = withoutBlanksAtEnd(stored);
    const auto wanted = withoutBlanksAtEnd(line);
    return found == wanted || found == QString(wanted).replace(u"''"_s, u"'"_s);
}

} // namespace

QList<StoredRecord> recordsOf(Session& session, Routine& routine, const RecordContents& contents) {
    QList<StoredRecord> records;
    const auto time = contents.time.isEmpty() ? Sql(u" is null") : u" = " + sqlText(contents.time);
    const auto rows = routine.select(u"select ctag,c2339,c2323 from " + sqlName(session.SessionOwner) +
                                     u".calibration where c2301 = " + sqlText(contents.date) + u" and c2333" +
                                     time + u" and mtag = " + sqlText(contents.mtag) + u" and cdsrc = 'KVN'");
    while (rows->next()) {
        StoredRecord record;
        record.ctag = notNull(rows->value(0));
        record.isCurrent = rows->value(1).value_or(QString()) == u'1';
        record.passed = rows->value(2).value_or(QString()) == u'Y';
        records << record;
    }
    for (auto& record : records) {
        readLines(routine, record, contents.mtag);
        readStandards(routine, record, contents.mtag);
    }
    return records;
}

bool mayBecome(const StoredRecord& record, const RecordContents& contents) {
    for (auto line = record.lines.begin(); line != record.lines.end(); ++line) {
        if (line.key() < 0 || line.key() >= contents.lines.size() ||
            !isSame(line.value(), contents.lines[line.key()]))
            return false;
    }
    return true;
}

void complete(Session& session, Routine& routine, const StoredRecord& record,
              const RecordContents& contents) {
    if (record.isCurrent)
        copyFields(session, routine, contents.asset);
    const RecordParts parts(session, routine, contents.mtag, sqlText(record.ctag));
    const ReportWatch watch(session);
    const auto missing = missingStandards(session, record, contents.standards);
    // A standard that could not be looked up must not be written a second time.
    if (watch.sawReport())
        return;
    for (const auto& name : missing)
        parts.insertStandard(name);
    for (int number = 0; number < contents.lines.size(); ++number) {
        if (!record.lines.contains(number))
            parts.insertResult(SQLSafe(contents.lines[number]), number);
    }
    if (record.isCurrent)
        clearInventoryFields(session, contents.asset, record.passed);
}

bool isWhole(Session& session, const StoredRecord& record, const RecordContents& contents) {
    return record.lines.size() == contents.lines.size() && mayBecome(record, contents) &&
           missingStandards(session, record, contents.standards).isEmpty();
}

} // namespace kelvane::ModuleGlobals
