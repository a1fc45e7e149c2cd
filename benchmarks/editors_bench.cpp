// Opening an editor, and showing another of its records, with few and with many of them, against a bare Qt
// window whose list is filled with the same rows in one go. Both are painted. Usage: bench_editors

#include "benchmarks/in_turns.h"
#include "editors/form_strategies.h"
#include "tests/support/fixtures.h"
#include "tests/support/quiet_operator.h"

#include <QApplication>
#include <QComboBox>
#include <QMainWindow>
#include <QMdiArea>

#include <cstdio>
#include <memory>

using namespace Qt::StringLiterals;

namespace kelvane::bench {

namespace {

void require(bool good, const char* what) {
    if (good)
        return;
    std::fprintf(stderr, "bench_editors: %s\n", what);
    std::exit(1);
}

/// A session over a scripted connection, and a main window.
struct Workplace {
    Workplace() : session({ui, clock, settings}, [this] { return connection(); }) {
        window.setCentralWidget(area);
        window.resize(665, 551);
        window.show();
    }
    std::unique_ptr<Connection> connection() {
        return std::make_unique<testing::RecordingConnection>(script);
    }
    /// Shows a window until it is painted.
    void show(QMdiSubWindow& shown) {
        area->addSubWindow(&shown);
        shown.show();
        QCoreApplication::processEvents();
    }
    void show(ChildWindow& shown) {
        shown.showIn(*area);
        QCoreApplication::processEvents();
    }

    testing::QuietOperator ui;
    testing::SetClock clock;
    testing::MemorySettings settings;
    testing::RecordingConnection::Script script;
    Session session;
    QMainWindow window;
    QMdiArea* area = new QMdiArea;
};

QStringList rowsOf(int count, const QString& text) {
    QStringList rows;
    for (int i = 0; i < count; ++i)
        rows << text.arg(i, 5, 10, QLatin1Char('0'));
    return rows;
}

QString selectPoints(const QString& name) {
    return u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = '"_s + name +
           u"' order by test_point_seq asc"_s;
}

void print(const char* what, int rows, const Turns& took) {
    std::printf("%s, %d rows: %.2f times a bare list (aim 1.5 or less; %.2f ms against %.2f ms)\n", what,
                rows, took.ratio(), took.ours / 1000, took.plain / 1000);
}

/// Every strategy has `points` points.
void answerStrategies(Workplace& place, const QStringList& names, const QStringList& points) {
    QList<testing::Row> rows;
    for (const auto& point : points)
        rows << testing::Row{point};
    QList<testing::Row> all;
    for (const auto& name : names) {
        all << testing::Row{name};
        place.script.answers[u"select tp_name from mt.hvm_kv_proc_points where tp_name = '"_s + name +
                             u"'"_s] = {testing::Row{name}};
        place.script.answers[selectPoints(name)] = rows;
    }
    place.script.answers[u"select distinct(tp_name) from mt.hvm_kv_proc_points order by tp_name asc"_s] = all;
}

/// A window with nothing but a drop-down list, which does not measure its rows.
struct BareList {
    explicit BareList(Workplace& place, const QStringList& rows) {
        window.setWidget(list);
        list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        list->addItems(rows);
        place.show(window);
    }
    QMdiSubWindow window;
    QComboBox* list = new QComboBox;
};

void openStrategies(int count, int times) {
    Workplace place;
    const auto names = rowsOf(count, u"STRATEGY %1"_s);
    answerStrategies(place, names, {u"0"_s, u"50"_s, u"100"_s});
    const auto took = inTurns(
        times,
        [&](int) {
            FormStrategies form(place.session, [] { return nullptr; });
            place.show(form);
            require(form.findChild<QComboBox*>(u"ComboTSNames"_s)->count() == count, "names are missing");
        },
        [&](int) { const BareList bare(place, names); });
    print("opening the strategies", count, took);
}

/// Another strategy is shown with all names read anew.
void switchStrategies(int count, int times) {
    Workplace place;
    const auto rows = rowsOf(count, u"STRATEGY %1"_s);
    answerStrategies(place, rows, {u"0"_s, u"50"_s, u"100"_s});
    FormStrategies form(place.session, [] { return nullptr; });
    place.show(form);
    auto* names = form.findChild<QComboBox*>(u"ComboTSNames"_s);
    const BareList bare(place, {});
    const auto took = inTurns(
        times,
        [&](int i) {
            names->setCurrentIndex(i % count);
            Q_EMIT names->activated(i % count);
            QCoreApplication::processEvents();
            require(names->count() == count && names->currentIndex() == i % count,
                    "another strategy is shown");
        },
        [&](int) {
            bare.list->clear();
            bare.list->addItems(rows);
            QCoreApplication::processEvents();
        });
    print("showing another strategy", count, took);
}

} // namespace

} // namespace kelvane::bench

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QApplication application(argc, argv);
    using namespace kelvane::bench;
    for (const int rows : {10, 10'000}) {
        const int times = rows > 10 ? 60 : 200;
        openStrategies(rows, times);
        switchStrategies(rows, times);
    }
    return 0;
}
