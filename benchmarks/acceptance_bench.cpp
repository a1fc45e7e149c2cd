// Whether an instrument can go on a Fluke 702, over all instruments of the demonstration, against plain ODBC
// that reads the same row of parameters: the limits themselves are to cost nothing beside it. Usage:
// bench_acceptance [COUNT]

#include "benchmarks/alternating_runs.h"
#include "benchmarks/plain_odbc.h"
#include "benchmarks/require.h"
#include "data/session.h"
#include "drivers/fluke702/dpclnk_library.h"
#include "drivers/fluke702/driver.h"
#include "platform/database/odbc_connection.h"
#include "testkit/embedded_database.h"
#include "testkit/fixtures.h"
#include "testkit/quiet_operator.h"
#include "testkit/scripted_params.h"

#include <QCoreApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace kelvane::bench {

namespace {

using namespace Module702Interface;

void run(int count) {
    const testing::EmbeddedDatabase database(testing::demoDatabase());
    testing::QuietOperator ui;
    testing::SetClock clock;
    testing::MemorySettings settings;
    Session session({ui, clock, settings}, odbcConnections());
    session.SessionOwner = u"MT"_s;
    auto& connection = sharedConnection(session);
    connection.open(database.connectionString(), u"jdoe"_s, u"kelvane"_s);
    DpclnkLibrary link;
    Fluke702 driver{session, link};

    PlainOdbc plain(database.connectionString());
    plain.runLean(u"attach '%1' as mt"_s.arg(database.file(u"mt.db"_s)).toUtf8());

    QStringList assets;
    QStringList statements;
    // One number holds a quote, with which the parameters are not found.
    const auto rows = connection.select(u"select i4201 from mt.inventory where mtag in (select mtag from "
                                        "mt.hvm_kv_tag_config) and i4201 not like '%''%'"_s,
                                        Rows::all);
    while (rows->next()) {
        assets << rows->value(0).value();
        statements << testing::calParamsStatement(session.SessionOwner, assets.last()) + u" limit 1"_s;
    }
    require(!assets.isEmpty(), u"the database has no instruments"_s);

    int refused = 0;
    const auto took = runInTurns(
        count, [&](int i) { refused += !Fluke702_acceptable(driver, assets[i % assets.size()]).isEmpty(); },
        [&](int i) { require(plain.run(statements[i % statements.size()], 1) == 1, u"not one row"_s); });
    require(ui.reportedErrors.isEmpty(), u"a check has failed"_s);
    require(refused > 0 && refused < count, u"all instruments are alike"_s);
    std::printf("acceptance: %.2f times plain ODBC reading the parameters (aim 1.3 or less)\n", took.ratio());
    std::printf("acceptance: %.0f checks a second, %.2f us each; plain ODBC %.2f us\n", 1E6 / took.ours,
                took.ours, took.plain);
}

} // namespace

} // namespace kelvane::bench

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    kelvane::bench::run(argc > 1 ? std::atoi(argv[1]) : 10'000);
    return 0;
}
