#include "benchmarks/records_site.h"

#include "testkit/open_connections.h"

using namespace Qt::StringLiterals;

namespace kelvane::bench {

namespace {

/// Numbers from 0 on, as the table "number" of a statement.
QString numbers(int count) {
    return u"with recursive number(i) as (select 0 union all select i + 1 from number where i < %1) "_s.arg(
        count - 1);
}

/// What marks the current record would look at each row.
QStringList withoutTriggers(const BenchDatabase& database) {
    if (database.isShared())
        return {u"alter table mt.calibration disable trigger user"_s};
    return {u"drop trigger mt.calibration_unmarks_earlier"_s, u"drop trigger mt.calibration_marks_new"_s};
}

/// The day that is so many days from now.
QString dayAt(const BenchDatabase& database, const QString& days) {
    return database.isShared() ? u"(current_date + (%1)::integer)"_s.arg(days)
                               : u"date('now', 'localtime', (%1) || ' days')"_s.arg(days);
}

} // namespace

void addInstruments(const BenchDatabase& database, int count) {
    constexpr int years = 10;
    // Of each of the years, the newest last.
    const auto days = u"-(i % %1) % 400 - 365 * (%2 - i / %1)"_s.arg(count).arg(years - 1);
    auto statements = withoutTriggers(database);
    statements << numbers(count) +
                      u"insert into mt.inventory (mtag,i4201,i4202,i4203,i4204,i4206,i4240)"
                      " select 'BENCH' || i, 'SPEED-' || (100001 + i), 'MAKER ' || (i % 7),"
                      " 'MODEL ' || (i % 50), 'TRANSMITTER ' || (i % 20), 'SN' || i, 'GROUP ' || (i % 5)"
                      " from number"_s;
    statements << numbers(count) + u"insert into mt.location (mtag,l2801,l2815)"
                                   " select 'BENCH' || i, 'HALL ' || (i % 30), '1' from number"_s;
    statements << numbers(count * years) +
                      u"insert into mt.calibration (mtag,cdsrc,c2301,c2303,c2308,c2323,c2307,c2339,c2320)"
                      " select 'BENCH' || (i % %1), 'KVN', %2, %3, 'FOUND-LEFT',"
                      " case i % 11 when 0 then 'N' else 'Y' end, 'jdoe',"
                      " case when i >= %4 then '1' end, 'STRATEGY'"
                      " from number"_s.arg(count)
                          .arg(dayAt(database, days), dayAt(database, days + u" + 365"_s))
                          .arg(count * (years - 1));
    statements << numbers(11) + u"insert into mt.calresults (c2501,c2502,mtag,ctag)"
                                " select i || '   4.000   4.002  PASS', i, cal.mtag, ctag"
                                " from number, mt.calibration cal where cal.mtag like 'BENCH%00'"_s;
    statements << u"insert into mt.standards (c2430,mtag,ctag) select inv.mtag, cal.mtag, ctag"
                  " from mt.inventory inv, mt.calibration cal"
                  " where inv.i4201 in ('PM-100','PM-300') and cal.mtag like 'BENCH%00'"_s;
    if (database.isShared())
        statements << u"analyze"_s;
    const auto connection = database.connectAsOwner();
    connection->beginTransaction();
    for (const auto& statement : statements)
        testing::executeAnything(*connection, statement);
    connection->commitTransaction();
}

QString instrumentWithLines() {
    return u"SPEED-100101"_s;
}

} // namespace kelvane::bench
