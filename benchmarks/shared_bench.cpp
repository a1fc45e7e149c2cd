// What the shared engine's workstations wait for, each against plain ODBC that fires the same statements: the
// login, the calibration parameters of an instrument, and statements of several workstations at once. The
// environment names the tests' server (`testkit/shared_database.h`). Usage: bench_shared

#include "app/login.h"
#include "benchmarks/alternating_runs.h"
#include "benchmarks/require.h"
#include "benchmarks/site.h"
#include "benchmarks/workstations.h"
#include "data/parameters/cal_params.h"
#include "platform/error_report.h"
#include "testkit/open_connections.h"

#include <QCoreApplication>

#include <cstdio>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::bench {

namespace {

constexpr int logins = 100;
constexpr int readings = 2000;

/// The texts that the engine gets for what a site has fired.
QList<BenchDatabase::EngineText> engineTexts(const Site& site) {
    QList<BenchDatabase::EngineText> texts;
    for (qsizetype i = 0; i < site.log.statements.size(); ++i)
        texts << site.database.engineTexts(site.log.statements[i], site.log.rows[i]);
    return texts;
}

void fire(PlainOdbc& plain, const QList<BenchDatabase::EngineText>& texts) {
    for (const auto& text : texts)
        plain.run(text.statement, text.rows == Rows::first ? 1 : std::numeric_limits<int>::max());
}

/// From the password to the menu that the user may work with; without the painting of it.
void compareLogin() {
    Site site({});
    disconnectSession(site.session);
    ModuleGlobals::SaveRegSetting(site.session, u"Workstation"_s, u"ODBC"_s, site.database.dsn());
    const auto logInOnce = [&site](int) {
        Menu menu;
        logIn(site.session, menu, u"jdoe"_s, u"kelvane"_s);
        require(menu.isReachable(MenuEntry::mnuDownload), u"no menu"_s);
        disconnectSession(site.session);
        site.log.statements.clear();
        site.log.rows.clear();
    };
    Menu menu;
    logIn(site.session, menu, u"jdoe"_s, u"kelvane"_s);
    const auto texts = engineTexts(site);
    disconnectSession(site.session);
    const auto took =
        runInTurns(logins, logInOnce, [&](int) { fire(*site.database.connectPlainly(), texts); });
    site.requireNoErrors();
    std::printf("login to the menu: %.1f ms, plain ODBC %.1f ms, ratio %.2f\n", took.ours / 1000,
                took.plain / 1000, took.ratio());
}

void compareCalParams(int points) {
    Site site({});
    const auto owner = site.database.connectAsOwner();
    testing::executeAnything(*owner, u"delete from mt.hvm_kv_proc_points"_s);
    testing::executeAnything(*owner, u"insert into mt.hvm_kv_proc_points select 'BENCH', 0, 0 from "
                                     "generate_series(1, %1)"_s.arg(points));
    testing::executeAnything(*owner, u"analyze mt.hvm_kv_proc_points"_s);
    site.log = {};
    const auto read = [&site](int) {
        require(!ModuleGlobals::GetCalParams(site.session, u"PT-101"_s).tp_name.isEmpty(), u"no row"_s);
    };
    read(0);
    const auto texts = engineTexts(site);
    const auto plain = site.database.connectPlainly();
    const auto took = runInTurns(readings, read, [&](int) { fire(*plain, texts); });
    site.requireNoErrors();
    std::printf("GetCalParams with %5d points: %.1f us, plain ODBC %.1f us, ratio %.2f (aim 1.1 or less)\n",
                points, took.ours, took.plain, took.ratio());
}

} // namespace

} // namespace kelvane::bench

int main(int argc, char** argv) {
    using namespace kelvane::bench;
    const QCoreApplication application(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], "workstation") == 0) {
        char connectionString[1024];
        require(std::fgets(connectionString, sizeof connectionString, stdin), u"no data source"_s);
        return runWorkstation(QString::fromUtf8(argv[2]), QString::fromUtf8(connectionString).trimmed());
    }
    require(kelvane::testing::usesSharedEngine(), u"this runs on the shared engine alone"_s);
    compareLogin();
    compareCalParams(20);
    compareCalParams(20'000);
    compareWorkstations(BenchDatabase());
    return 0;
}
