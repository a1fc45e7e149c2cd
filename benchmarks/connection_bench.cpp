// The connection against plain ODBC calls that do the same, both in one run, in turns. Usage:
// bench_connection [COUNT]

#include "benchmarks/alternating_runs.h"
#include "benchmarks/bench_database.h"
#include "benchmarks/require.h"

#include <QCoreApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace kelvane::bench {

namespace {

void compare(const char* what, int count, const std::function<void(int)>& ours,
             const std::function<void(int)>& plain) {
    const auto took = runInTurns(count, ours, plain);
    std::printf("%-24s %8.2f us, plain ODBC %8.2f us, ratio %.2f\n", what, took.ours, took.plain,
                took.ratio());
}

void run(int count) {
    const BenchDatabase database;
    const auto connection = database.connect();
    const auto plain = database.connectPlainly();
    const auto mtag = connection->select(u"select mtag from mt.inventory"_s, Rows::first);
    require(mtag->next(), u"the database has no instruments"_s);
    const auto query = u"select i4201 from mt.inventory where mtag = '"_s + mtag->value(0).value() + u'\'';
    const auto bytes = query.toUtf8();

    const auto select = [&](Rows rows) {
        return [&connection, &query, rows](int) {
            const auto found = connection->select(query, rows);
            require(found->next() && found->value(0).has_value() && !found->next(), u"not one row"_s);
        };
    };
    const auto plainSelect = [&](int) { require(plain->runLean(bytes) == 1, u"not one row"_s); };
    compare("one-row query", count, select(Rows::all), plainSelect);
    compare("first row of a query", count, select(Rows::first), plainSelect);

    const auto insert =
        u"insert into mt.hvm_kv_task_inuse (serial_number,entered_date,mtag,tech) values ('%1',%2,'%3','jdoe')"_s;
    compare(
        "committed insert", count,
        [&](int i) {
            connection->execute(insert.arg(u"ours"_s, u"now(*)"_s, QString::number(i)) + u";commit"_s);
        },
        [&](int i) {
            plain->runLean(insert.arg(u"plain"_s, database.presentMoment(), QString::number(i)).toUtf8());
        });
}

} // namespace

} // namespace kelvane::bench

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    kelvane::bench::run(argc > 1 ? std::atoi(argv[1]) : 10'000);
    return 0;
}
