// What the records show of a site of many instruments with ten records each: the list, its filter, a history
// and the due list, each against plain ODBC that reads the same rows with one query; and the list on the
// screen, and its memory. Usage: bench_records [INSTRUMENTS]

#include "app/login.h"
#include "app/records_list.h"
#include "benchmarks/alternating_runs.h"
#include "benchmarks/peak_memory.h"
#include "benchmarks/records_site.h"
#include "data/history/calibrations.h"
#include "platform/database/odbc_connection.h"
#include "records/form_instruments.h"
#include "records/instrument_model.h"
#include "testkit/fixtures.h"
#include "ui/style.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QProcess>
#include <QScrollBar>
#include <QTableView>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::bench {

namespace {

constexpr int usualInstruments = 50'000;
constexpr int firstRows = 200;
constexpr int allRows = std::numeric_limits<int>::max();

/// One query for what the list shows, as a program would fire it that keeps all rows.
QString bareQuery(const QString& conditions, const QString& order) {
    return u"select inv.mtag,inv.i4201,inv.i4204,inv.i4202,inv.i4203,inv.i4206,inv.i4240,"
           "place.l2801,cal.c2308,cal.c2323,cal.c2301,cal.c2303"
           " from mt.inventory inv"
           " left outer join mt.calibration cal on cal.mtag = inv.mtag and cal.c2339 = '1'"
           " left outer join mt.location place on place.mtag = inv.mtag and place.l2815 = '1'"_s +
           conditions + u" order by "_s + order;
}

class RecordsBench {
  public:
    explicit RecordsBench(int instruments) : site_({}), plain_(nullptr) {
        addInstruments(site_.database, instruments);
        plain_ = site_.database.connectPlainly();
    }

    void run() {
        compareFirstRows();
        compareFilter();
        compareHistory();
        compareDueList();
    }
    Site& site() { return site_; }

  private:
    void readPlainly(const QString& query, int rows) {
        const auto texts = site_.database.engineTexts(query, Rows::all);
        require(plain_->run(texts.constFirst().statement, rows) > 0, u"the bare query has no rows"_s);
    }
    void print(const char* what, const Turns& took) const {
        site_.requireNoErrors();
        std::printf("records: %-36s %8.1f ms, bare %8.1f ms, ratio %.2f\n", what, took.ours / 1000,
                    took.plain / 1000, took.ratio());
        std::fflush(stdout);
    }
    /// Both once a turn, in microseconds.
    static Turns takeTurns(int turns, const std::function<void(int)>& ours,
                           const std::function<void(int)>& plain) {
        const auto timed = [](const std::function<void(int)>& work) {
            return [&work](int turn) {
                QElapsedTimer timer;
                timer.start();
                work(turn);
                return static_cast<double>(timer.nsecsElapsed()) / 1000;
            };
        };
        return runTimedTurns(turns, timed(ours), timed(plain));
    }

    void compareFirstRows() {
        InstrumentModel model(site_.session);
        const struct {
            const char* name;
            InstrumentOrder order;
            QString column;
        } orders[] = {
            {"first rows by asset number", InstrumentOrder::asset, u"inv.i4201"_s},
            {"first rows by due date", InstrumentOrder::due,
             u"case when cal.c2303 is null then 1 else 0 end,cal.c2303,inv.i4201"_s},
        };
        for (const auto& order : orders)
            print(order.name, takeTurns(
                                  11, [&](int) { model.ask({.order = order.order}); },
                                  [&](int) { readPlainly(bareQuery({}, order.column), firstRows); }));
    }

    void compareFilter() {
        InstrumentModel model(site_.session);
        const QStringList typed{u"s"_s, u"speed-1"_s, u"speed-1000"_s, u"transmitter 1"_s, u"hall 7"_s};
        const auto textOf = [&](int turn) { return typed[turn % typed.size()]; };
        const auto conditionsOf = [](const QString& text) {
            QStringList conditions;
            for (const auto& column :
                 {u"inv.i4201"_s, u"inv.i4204"_s, u"inv.i4203"_s, u"place.l2801"_s, u"inv.i4206"_s})
                conditions << column + u" like '%"_s + text + u"%'"_s;
            return u" where "_s + conditions.join(u" or "_s);
        };
        print("filter as typed, first rows",
              takeTurns(
                  15, [&](int turn) { model.ask({.filter = {.text = textOf(turn)}}); },
                  [&](int turn) {
                      readPlainly(bareQuery(conditionsOf(textOf(turn)), u"inv.i4201"_s), firstRows);
                  }));
    }

    void compareHistory() {
        const auto read = [&](int) {
            const auto records = calibrationsOf(site_.session, instrumentWithLines());
            require(records && records->size() == 10 && records->constFirst().lines.size() == 11 &&
                        records->constFirst().standards.size() == 2,
                    u"the history is not whole"_s);
        };
        site_.log = {};
        read(0);
        QStringList texts;
        for (const auto& statement : std::as_const(site_.log.statements))
            texts << site_.database.engineTexts(statement, Rows::all).constFirst().statement;
        print("history of one", runInTurns(200, read, [&](int) {
                  for (const auto& text : std::as_const(texts))
                      plain_->run(text, allRows);
              }));
    }

    void compareDueList() {
        const auto day = QDate::currentDate().addDays(30).toString(u"yyyy-MM-dd"_s);
        const auto query = bareQuery(u" where cal.c2303 <= '%1'"_s.arg(day), u"cal.c2303,inv.i4201"_s);
        print("due list to CSV", takeTurns(
                                     11,
                                     [&](int) {
                                         const RecordsRequest due{.list = RecordsRequest::List::due,
                                                                  .days = 30};
                                         require(listAsCsv(site_.session, due).has_value(), u"no list"_s);
                                     },
                                     [&](int) { readPlainly(query, allRows); }));
    }

    Site site_;
    std::unique_ptr<PlainOdbc> plain_;
};

double millisecondsOf(const std::function<void()>& work) {
    QElapsedTimer timer;
    timer.start();
    work();
    QCoreApplication::processEvents();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// The list of a site with its widgets: what somebody in front of it waits for.
void showOnScreen(Site& site) {
    FormInstruments form(site.session);
    form.resize(1280, 900);
    form.show();
    QCoreApplication::processEvents();
    const auto grab = [&] { form.grab(); };
    std::printf("records: on the screen %.0f ms after the login\n", millisecondsOf([&] {
                    form.readAgain();
                    grab();
                }));
    auto& table = *form.findChild<QTableView*>(u"TableInstruments"_s);
    auto& bar = *table.verticalScrollBar();
    std::printf("records: at the last row %.0f ms after the jump to it\n", millisecondsOf([&] {
                    bar.setValue(bar.maximum());
                    QCoreApplication::processEvents();
                    grab();
                }));
    double longest = 0;
    for (int step = 0; step <= 100; ++step)
        longest = std::max(longest, millisecondsOf([&] {
                               bar.setValue(bar.maximum() * step / 100);
                               QCoreApplication::processEvents();
                               grab();
                           }));
    std::printf("records: in 100 steps through all rows the longest took %.0f ms\n", longest);
    std::printf("records: all rows selected within %.0f ms\n", millisecondsOf([&] { table.selectAll(); }));
    site.requireNoErrors();
}

/// Looks at every row of the list of a data source, writes the due list, and prints the peak.
void walk(const QString& dataSource) {
    testing::QuietOperator ui;
    const SystemClock clock;
    testing::MemorySettings settings;
    Session session({ui, clock, settings}, odbcConnections());
    logInToRead(session, dataSource, u"jdoe"_s, u"kelvane"_s);
    // Of the login, whose check of the password takes as much as all else.
    forgetPeak();
    InstrumentModel model(session);
    model.ask({.order = InstrumentOrder::due});
    for (int row = 0; row < model.rowCount(); row += 100)
        model.instrument(row);
    model.ask({.filter = {.text = u"speed"_s}});
    require(listAsCsv(session, {.list = RecordsRequest::List::due, .days = 30}).has_value(), u"no list"_s);
    require(ui.reportedErrors.isEmpty(), ui.reportedErrors.join(u'\n'));
    std::printf("%f\n", peakMegabytes());
}

double peakOf(const Site& site) {
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {u"walk"_s, site.database.dsn()});
    process.waitForFinished(-1);
    require(process.exitCode() == 0, u"the walk has failed"_s);
    return process.readAllStandardOutput().trimmed().toDouble();
}

void compareMemory(const Site& many, int instruments) {
    const Site few({});
    addInstruments(few.database, instruments / 10);
    const auto peakOfFew = peakOf(few);
    const auto growth = peakOf(many) - peakOfFew;
    std::printf("records: %d instruments take %.1f MB more memory at their peak than %d (%.1f MB)\n",
                instruments, growth, instruments / 10, peakOfFew);
}

void run(int instruments) {
    RecordsBench bench(instruments);
    std::printf(
        "records: %d instruments with %d records; against one plain query of all that the list shows, of "
        "which as many rows are taken (aim 1.5 or less)\n",
        instruments, 10 * instruments);
    bench.run();
    showOnScreen(bench.site());
    compareMemory(bench.site(), instruments);
}

} // namespace

} // namespace kelvane::bench

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    kelvane::setLooks(kelvane::Colors::desktop);
    if (argc == 3 && qstrcmp(argv[1], "walk") == 0)
        kelvane::bench::walk(QString::fromLocal8Bit(argv[2]));
    else
        kelvane::bench::run(argc > 1 ? std::atoi(argv[1]) : kelvane::bench::usualInstruments);
    return 0;
}
