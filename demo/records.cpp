#include "demo/records.h"

#include "demo/difference.h"

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

void same(const QString& what, const QString& found, const QString& expected) {
    if (found != expected)
        throw Difference(u"%1 is \"%2\" and not \"%3\""_s.arg(what, found, expected));
}

/// The last working day up to a year after the calibration; the demonstration's site has free week-ends and
/// four holidays.
QDate dueAfter(const QDate& calibrated) {
    static const QStringList holidays{u"01-01"_s, u"05-01"_s, u"12-25"_s, u"12-26"_s};
    auto due = calibrated.addMonths(12);
    while (due.dayOfWeek() >= Qt::Saturday || holidays.contains(due.toString(u"MM-dd"_s)))
        due = due.addDays(-1);
    return due;
}

void checkStandards(Connection& connection, const Tool& tool, const QString& ctag) {
    const auto rows =
        rowsOf(connection,
               u"select i4201 from mt.standards, mt.inventory where inventory.mtag = c2430 and ctag = "_s +
                   ctag + u" order by i4201"_s,
               1);
    QStringList names;
    for (const auto& row : rows)
        names << row[0];
    // The calibrator itself counts as a standard.
    same(tool.asset + u", standards"_s, names.join(u' '), u"TS-0001 "_s + tool.standard);
}

void checkLines(Connection& connection, const Tool& tool, const QString& ctag) {
    const auto rows =
        rowsOf(connection,
               u"select c2501,c2502 from mt.calresults where ctag = "_s + ctag + u" order by c2502"_s, 2);
    same(tool.asset + u", number of result lines"_s, QString::number(rows.size()),
         QString::number(tool.lines.size()));
    for (qsizetype i = 0; i < rows.size(); ++i) {
        same(u"%1, number of line %2"_s.arg(tool.asset).arg(i), rows[i][1], QString::number(i));
        same(u"%1, line %2"_s.arg(tool.asset).arg(i), rows[i][0], tool.lines[i].leftJustified(120));
    }
}

void checkRecord(Connection& connection, const Tool& tool, const QDate& calibrated) {
    const auto rows = rowsOf(
        connection,
        u"select "
        u"c2301,c2333,c2323,c2303,c2352,c2350,calibration.ctag,c2308,c2307,c2320,c2326,c2315,c2312,c2336,"
        "c2334,cdsrc from mt.calibration where c2339 = '1' and mtag = (select mtag from mt.inventory where i4201 = '"_s +
            tool.asset + u"')"_s,
        16);
    if (rows.size() != 1)
        throw Difference(tool.asset + u" has no current calibration record"_s);
    const auto& row = rows[0];
    std::printf("  %-8s %-10s %-8s %-6s %-10s %6s %8s\n", qPrintable(tool.asset), qPrintable(row[0]),
                qPrintable(row[1]), row[2] == u"Y" ? "pass" : "fail", qPrintable(row[3]), qPrintable(row[4]),
                qPrintable(row[5]));
    const auto due = tool.passes ? dueAfter(calibrated) : calibrated;
    const struct {
        const char16_t* what;
        int column;
        QString expected;
    } expectations[] = {
        {u"date", 0, calibrated.toString(day)},
        {u"time", 1, tool.lastResult + row[1].mid(5)},
        {u"result", 2, tool.passes ? u"Y"_s : u"N"_s},
        {u"due date", 3, due.toString(day)},
        {u"failed points", 4, QString::number(tool.failed)},
        {u"marginal points", 5, QString::number(tool.marginal)},
        {u"state", 7, tool.passes ? u"FOUND-LEFT"_s : u"AS-FOUND"_s},
        {u"technician", 8, u"jdoe"_s},
        {u"strategy", 9, u"TORQUE 20-60-100"_s},
        {u"remark", 10, tool.comment.isEmpty() ? u"(null)"_s : tool.comment},
        {u"place", 11, u"IN PLACE"_s},
        {u"temperature", 12, u"21.5"_s},
        {u"user", 13, u"jdoe"_s},
        {u"due time", 14, row[1]},
        {u"source", 15, u"KVN"_s},
    };
    for (const auto& one : expectations)
        same(u"%1, %2"_s.arg(tool.asset, QString::fromUtf16(one.what)), row[one.column], one.expected);
    checkStandards(connection, tool, row[6]);
    checkLines(connection, tool, row[6]);
}

void checkNothingElse(Connection& connection, const QDate& calibrated) {
    const auto count = [&](const QString& from) {
        return rowsOf(connection, u"select count(*) from "_s + from, 1)[0][0];
    };
    same(u"number of records of the day"_s,
         count(u"mt.calibration where c2301 = '%1' and cdsrc = 'KVN'"_s.arg(calibrated.toString(day))),
         QString::number(tools().size()));
    same(u"number of instruments still out with the calibrator"_s,
         count(u"mt.hvm_kv_task_inuse where serial_number = '48213'"_s), u"0"_s);
    // The lab has one worksheet package of its own; that of the download must be gone.
    same(u"number of worksheet packages"_s, count(u"mt.hvm_kv_task_packages where tptype = 'WSHT'"_s),
         u"1"_s);
}

} // namespace

void checkRecords(Connection& connection, const QDate& calibrated) {
    std::printf("\n  %-8s %-10s %-8s %-6s %-10s %6s %8s\n", "asset", "date", "time", "result", "due",
                "failed", "marginal");
    for (const auto& tool : tools())
        checkRecord(connection, tool, calibrated);
    checkNothingElse(connection, calibrated);
}

} // namespace kelvane::demo
