// Opening the editors, and showing another record in them, with few and with many rows, against a bare window
// whose lists are filled in one go with what plain ODBC reads with the same queries. Usage: bench_editors
// [TURNS]

#include "benchmarks/alternating_runs.h"
#include "benchmarks/bare_screen.h"
#include "benchmarks/editor_site.h"
#include "benchmarks/require.h"
#include "editors/cal_param/form_cal_param.h"
#include "editors/form_test_mess.h"
#include "editors/form_work_config.h"
#include "editors/predefined_tasks/form_predefined_tasks.h"
#include "editors/strategies/form_strategies.h"
#include "ui/style.h"

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QPointer>
#include <QPushButton>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace kelvane::bench {

namespace {

template <class Work>
double microsecondsOf(const Work& work) {
    QElapsedTimer timer;
    timer.start();
    work();
    QCoreApplication::processEvents();
    return static_cast<double>(timer.nsecsElapsed()) / 1000;
}

OpenCalParam* noCalParam() {
    return nullptr;
}

ChildWindow* show(EditorSite& site, ChildWindow* screen) {
    screen->showIn(*site.area);
    return screen;
}

/// One editor: how it is opened, and how one of two records is chosen in it.
struct Editor {
    const char* name;
    ChildWindow* (*open)(EditorSite& site);
    void (*choose)(EditorSite& site, ChildWindow& screen, int record);
};

/// The first row of a list, or the last one, as the user chooses it.
void pick(ChildWindow& screen, const QString& name, int record) {
    auto* list = screen.findChild<QComboBox*>(name);
    const int row = record == 0 ? 0 : list->count() - 1;
    list->setCurrentIndex(row);
    Q_EMIT list->activated(row);
}

const Editor editors[] = {
    {"test strategies",
     [](EditorSite& site) { return show(site, new FormStrategies(site.session, noCalParam)); },
     [](EditorSite&, ChildWindow& screen, int record) { pick(screen, u"ComboTSNames"_s, record); }},
    {"test messages", [](EditorSite& site) { return show(site, new FormTestMess(site.session, noCalParam)); },
     [](EditorSite&, ChildWindow& screen, int record) { pick(screen, u"ComboMessageName"_s, record); }},
    {"task packages", [](EditorSite& site) { return show(site, new FormPredefinedTasks(site.session)); },
     [](EditorSite&, ChildWindow& screen, int record) { pick(screen, u"ComboTPName"_s, record); }},
    {"calibration parameters",
     [](EditorSite& site) {
         auto* screen = new FormCalParam(site.session);
         show(site, screen);
         screen->chooseFirst();
         return static_cast<ChildWindow*>(screen);
     },
     [](EditorSite& site, ChildWindow& screen, int record) {
         site.ui.instrument = EditorSite::instruments[record];
         screen.findChild<QPushButton*>(u"CommandSelect"_s)->click();
     }},
    {"calibration records", [](EditorSite& site) { return show(site, new FormWorkConfig(site.session)); },
     nullptr},
};

class Comparison {
  public:
    Comparison(EditorSite& site, const Editor& editor, int rows, int turns)
        : site_(site), editor_(editor), bare_(*site.area, site.plain), rows_(rows), turns_(turns) {
        site_.ui.instrument = EditorSite::instruments[0];
    }

    void measureOpening(bool everything) {
        auto* screen = open();
        const auto outline = outlineOf(*screen, queries(), site_.plain, everything);
        delete screen;
        require(!editor_.choose || rowsRead(outline) >= rows_, u"the bare window does not read the rows"_s);
        const auto took = runTimedTurns(
            turns_,
            [&](int) {
                const auto time = microsecondsOf([&] { screen = open(); });
                delete screen;
                return time;
            },
            [&](int) {
                const auto time = microsecondsOf([&] { bare_.open(outline); });
                bare_.close();
                return time;
            });
        print(everything ? "opening, all controls" : "opening, lists alone", took);
    }

    void switching() {
        if (!editor_.choose)
            return;
        auto* screen = open();
        Outline outlines[2];
        for (const int record : {1, 0}) {
            site_.log = {};
            choose(*screen, record);
            outlines[record] = outlineOf(*screen, queries(), site_.plain, false);
        }
        bare_.open(outlines[0]);
        const auto took = runTimedTurns(
            turns_, [&](int turn) { return microsecondsOf([&] { choose(*screen, (turn + 1) % 2); }); },
            [&](int turn) { return microsecondsOf([&] { bare_.show(outlines[(turn + 1) % 2]); }); });
        bare_.close();
        delete screen;
        print("another record", took);
    }

  private:
    ChildWindow* open() {
        site_.log = {};
        return editor_.open(site_);
    }
    void choose(ChildWindow& screen, int record) { editor_.choose(site_, screen, record); }
    QList<Query> queries() const {
        QList<Query> all;
        for (qsizetype i = 0; i < site_.log.statements.size(); ++i)
            all << Query{site_.log.statements[i], site_.log.rows[i]};
        return all;
    }
    /// How many rows the lists get from the database.
    static qsizetype rowsRead(const Outline& outline) {
        qsizetype rows = 0;
        for (const auto& control : outline.controls)
            rows += control.query < 0 ? 0 : control.rows.size();
        return rows;
    }
    void print(const char* what, const Turns& took) const {
        require(site_.ui.reportedErrors.isEmpty(), u"an editor has complained"_s);
        std::printf("%-22s %6d rows, %-22s %8.2f ms, bare %8.2f ms, ratio %.2f\n", editor_.name, rows_, what,
                    took.ours / 1000, took.plain / 1000, took.ratio());
        std::fflush(stdout);
    }

    EditorSite& site_;
    const Editor& editor_;
    BareScreen bare_;
    int rows_;
    int turns_;
};

void run(int turns, const QString& only) {
    for (const int rows : {10, 10'000}) {
        EditorSite site(rows);
        for (const auto& editor : editors) {
            if (!only.isEmpty() && QString::fromLatin1(editor.name) != only)
                continue;
            Comparison comparison(site, editor, rows, turns);
            comparison.measureOpening(false);
            comparison.measureOpening(true);
            comparison.switching();
        }
    }
}

} // namespace

} // namespace kelvane::bench

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QApplication application(argc, argv);
    kelvane::setLooks(kelvane::Colors::desktop);
    std::puts("editors: against a bare window with the same lists, or with all the same controls (aim 1.5 or "
              "less)");
    kelvane::bench::run(argc > 1 ? std::atoi(argv[1]) : 40,
                        argc > 2 ? QString::fromLocal8Bit(argv[2]) : QString());
    return 0;
}
