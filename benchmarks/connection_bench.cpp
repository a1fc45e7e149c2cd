// The connection against plain ODBC calls that do the same, both in one run, in turns. Usage:
// bench_connection [COUNT]

#include "benchmarks/plain_odbc.h"
#include "platform/odbc_connection.h"
#include "tests/support/embedded_database.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

namespace kelvane::bench {

namespace {

constexpr int turns = 100;

double median(std::vector<double>& values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Runs `ours` and `plain` in turns, each `count` times in all, and prints what each takes and the ratio: the
/// median of the turns, so that whatever else the machine does in between does not count.
void compare(const char* what, int count, const std::function<void(int)>& ours,
             const std::function<void(int)>& plain) {
    std::vector<double> times[2];
    const auto block = count / turns;
    for (int turn = 0; turn < turns; ++turn) {
        // Who goes first changes, so that neither finds the other's work warm.
        for (const bool oursNow : {turn % 2 == 0, turn % 2 != 0}) {
            const auto& one = oursNow ? ours : plain;
            QElapsedTimer timer;
            timer.start();
            for (int i = 0; i < block; ++i)
                one(turn * block + i);
            times[oursNow ? 0 : 1].push_back(static_cast<double>(timer.nsecsElapsed()) / 1000 / block);
        }
    }
    const auto oursTook = median(times[0]);
    const auto plainTook = median(times[1]);
    std::printf("%-24s %8.2f us, plain ODBC %8.2f us, ratio %.2f\n", what, oursTook, plainTook,
                oursTook / plainTook);
}

void require(bool good, const char* what) {
    if (good)
        return;
    std::fprintf(stderr, "bench_connection: %s\n", what);
    std::exit(1);
}

void run(int count) {
    const testing::EmbeddedDatabase database(QStringLiteral(KELVANE_TEST_DATABASE));
    const auto connection = database.connect(u"jdoe"_s, u"kelvane"_s);
    PlainOdbc plain(database.connectionString());
    for (const auto& owner : {u"mt"_s, u"sys"_s}) {
        const auto file = database.file(owner + u".db"_s);
        plain.runLean(u"attach '%1' as %2"_s.arg(file, owner).toUtf8());
    }
    const auto mtag = connection->select(u"select mtag from mt.inventory"_s, Rows::first);
    require(mtag->next(), "the database has no instruments");
    const auto query = u"select i4201 from mt.inventory where mtag = '"_s + mtag->value(0).value() + u'\'';
    const auto bytes = query.toUtf8();

    const auto select = [&](Rows rows) {
        return [&connection, &query, rows](int) {
            const auto found = connection->select(query, rows);
            require(found->next() && found->value(0).has_value() && !found->next(), "not one row");
        };
    };
    const auto plainSelect = [&](int) { require(plain.runLean(bytes) == 1, "not one row"); };
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
            plain.runLean(
                insert.arg(u"plain"_s, u"datetime('now','localtime')"_s, QString::number(i)).toUtf8());
        });
}

} // namespace

} // namespace kelvane::bench

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    kelvane::bench::run(argc > 1 ? std::atoi(argv[1]) : 10'000);
    return 0;
}
