#include "testkit/records.h"

#include "testkit/difference.h"

#include <cstdio>

using namespace Qt::StringLiterals;

namespace kelvane::demo {

namespace {

const QString day = u"yyyy-MM-dd"_s;

QList<QStringList> rowsOf(Connection& connection, const QString& query, int columns) {
    QList<QStringList> rows;
    const auto set = connection.select(query);
    while (set->next()) {
        QStringList row;
        for (int column = 0; column < columns; ++column)
            row << set->value(column).value_or(u"(null)"_s);
        rows << row;
    }
    return rows;
}

void checkSame(const QString& what, const QString& found, const QString& expected) {
    if (found != expected)
        throw Difference(u"%1 is \"%2\" and not \"%3\""_s.arg(what, found, expected));
}

/// The last working day up to a year, or so many weeks, after the calibration; the demonstration's site has
/// free week-ends and four holidays.
QDate dueAfter(const QDate& calibrated, int weeks) {
    static const QStringList holidays{u"01-01"_s, u"05-01"_s, u"12-25"_s, u"12-26"_s};
    auto due = weeks > 0 ? calibrated.addDays(7 * weeks) : calibrated.addMonths(12);
    while (due.dayOfWeek() >= Qt::Saturday || holidays.contains(due.toString(u"MM-dd"_s)))
        due = due.addDays(-1);
    return due;
}

void checkStandards(Connection& connection, const Record& expected, const QString& ctag) {
    const auto rows =
        rowsOf(connection,
               u"select i4201 from mt.standards, mt.inventory where inventory.mtag = c2430 and ctag = "_s +
                   ctag + u" order by i4201"_s,
               1);
    QStringList names;
    for (const auto& row : rows)
        names << row[0];
    checkSame(expected.asset + u", standards"_s, names.join(u' '), expected.standards.join(u' '));
}

void checkLines(Connection& connection, const Record& expected, const QString& ctag) {
    const auto rows =
        rowsOf(connection,
               u"select c2501,c2502 from mt.calresults where ctag = "_s + ctag + u" order by c2502"_s, 2);
    checkSame(expected.asset + u", number of result lines"_s, QString::number(rows.size()),
              QString::number(expected.lines.size()));
    for (qsizetype i = 0; i < rows.size(); ++i) {
        checkSame(u"%1, number of line %2"_s.arg(expected.asset).arg(i), rows[i][1], QString::number(i));
        checkSame(u"%1, line %2"_s.arg(expected.asset).arg(i), rows[i][0],
                  expected.lines[i].leftJustified(120));
    }
}

/// The records of an asset and a day, in the order in which they were made.
QList<QStringList> recordsOf(Connection& connection, const QString& asset, const QDate& calibrated) {
    return rowsOf(connection,
                  u"select "
                  u"c2301,c2333,c2323,c2303,c2352,c2350,calibration.ctag,c2308,c2307,c2320,c2326,c2315,c2312,"
                  "c2336,c2334,cdsrc,c2339 from mt.calibration where cdsrc = 'KVN' and c2301 = '"_s +
                      calibrated.toString(day) +
                      u"' and mtag = (select mtag from mt.inventory where i4201 = '"_s + asset +
                      u"') order by calibration.ctag"_s,
                  17);
}

QString countText(std::optional<int> count) {
    return count ? QString::number(*count) : u"(null)"_s;
}

void checkRecord(Connection& connection, const Record& expected, const QStringList& row,
                 const QDate& calibrated, bool current) {
    std::printf("  %-8s %-10s %-8s %-10s %-6s %-10s %6s %8s\n", qPrintable(expected.asset),
                qPrintable(row[0]), qPrintable(row[1]), qPrintable(row[7]), row[2] == u"Y" ? "pass" : "fail",
                qPrintable(row[3]), qPrintable(row[4]), qPrintable(row[5]));
    const auto due = expected.passes ? dueAfter(calibrated, expected.weeks) : calibrated;
    const struct {
        const char16_t* what;
        int column;
        QString expected;
    } expectations[] = {
        {u"date", 0, calibrated.toString(day)},
        {u"time", 1, expected.time + row[1].mid(expected.time.size())},
        {u"result", 2, expected.passes ? u"Y"_s : u"N"_s},
        {u"due date", 3, due.toString(day)},
        {u"failed points", 4, countText(expected.failed)},
        {u"marginal points", 5, countText(expected.marginal)},
        {u"state", 7, expected.state},
        {u"technician", 8, expected.technician},
        {u"strategy", 9, expected.strategy},
        {u"remark", 10, expected.comment.isEmpty() ? u"(null)"_s : expected.comment},
        {u"place", 11, u"IN PLACE"_s},
        {u"temperature", 12, u"21.5"_s},
        {u"user", 13, u"jdoe"_s},
        {u"due time", 14, row[1]},
        {u"source", 15, u"KVN"_s},
        {u"current", 16, current ? u"1"_s : u"(null)"_s},
    };
    for (const auto& expectation : expectations)
        checkSame(u"%1, %2"_s.arg(expected.asset, QString::fromUtf16(expectation.what)),
                  row[expectation.column], expectation.expected);
    checkStandards(connection, expected, row[6]);
    checkLines(connection, expected, row[6]);
}

/// The records of one asset; the last one of the day is the current one.
void checkRecordsOf(Connection& connection, const QString& asset, const QDate& calibrated,
                    const QList<Record>& all) {
    QList<Record> expected;
    for (const auto& candidate : all) {
        if (candidate.asset == asset)
            expected << candidate;
    }
    const auto rows = recordsOf(connection, asset, calibrated);
    checkSame(asset + u", number of records"_s, QString::number(rows.size()),
              QString::number(expected.size()));
    for (qsizetype i = 0; i < rows.size(); ++i)
        checkRecord(connection, expected[i], rows[i], calibrated, i == rows.size() - 1);
}

void checkNothingElse(Connection& connection, const QDate& calibrated, const ExpectedRecords& expected) {
    const auto count = [&](const QString& from) {
        return rowsOf(connection, u"select count(*) from "_s + from, 1)[0][0];
    };
    checkSame(u"number of records of the day"_s,
              count(u"mt.calibration where c2301 = '%1' and cdsrc = 'KVN'"_s.arg(calibrated.toString(day))),
              QString::number(expected.records.size()));
    QStringList registered;
    for (const auto& row :
         rowsOf(connection,
                u"select i4201 from mt.hvm_kv_task_inuse, mt.inventory where inventory.mtag = "
                "hvm_kv_task_inuse.mtag and serial_number = '"_s +
                    expected.serial + u"' order by i4201"_s,
                1))
        registered << row[0];
    checkSame(u"instruments that are registered with the calibrator"_s, registered.join(u' '),
              expected.registered.join(u' '));
    // The lab has one worksheet package of its own; that of the download must be gone.
    checkSame(u"number of worksheet packages"_s, count(u"mt.hvm_kv_task_packages where tptype = 'WSHT'"_s),
              u"1"_s);
}

} // namespace

void checkRecords(Connection& connection, const QDate& calibrated, const ExpectedRecords& expected) {
    std::printf("\n  %-8s %-10s %-8s %-10s %-6s %-10s %6s %8s\n", "asset", "date", "time", "state", "result",
                "due", "failed", "marginal");
    QStringList assets;
    for (const auto& record : expected.records) {
        if (!assets.contains(record.asset))
            assets << record.asset;
    }
    for (const auto& asset : std::as_const(assets))
        checkRecordsOf(connection, asset, calibrated, expected.records);
    checkNothingElse(connection, calibrated, expected);
    std::printf("\n");
}

} // namespace kelvane::demo
