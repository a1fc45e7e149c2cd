#include "demo/preparation.h"

#include "demo/technician.h"
#include "drivers/fluke702/driver.h"
#include "testkit/fluke702_runs.h"

#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::demo {

namespace {

const QString fluke702 = Module702Interface::identity.name.toString();
const QString strategy = u"GAUGE 0-50-75-100"_s;
const QString message = u"VENT FIRST"_s;
const QString package = u"NEW TRANSMITTERS"_s;

// The span is 16 mA, its tolerance of 0.25 percent 0.04 mA. A deviation of 0.05 percent of span is 0.008 mA
// and 20 percent of the tolerance.
const FieldRun& preparedRun() {
    static const FieldRun run{
        .deviations = u"0.05, -0.1, 0.2, 0.1"_s,
        .module = u"71204"_s,
        .record = {
            .asset = u"UC-901"_s,
            .time = u"10:20:00"_s,
            .marginal = 1,
            .strategy = strategy,
            .standards = {u"F702-01"_s, u"PM-100"_s},
            .lines = {
                u"  1  4.000mA       0.000psig     4.008mA      0.040mA     0.008mA       20                   3.960       4.040      PASS"_s,
                u"  2  12.000mA      50.000psig    11.984mA     0.040mA     -0.016mA      40                   11.960      12.040     PASS"_s,
                u"  3  16.000mA      75.000psig    16.032mA     0.040mA     0.032mA       80      MARGINAL     15.960      16.040     PASS"_s,
                u"  4  20.000mA      100.000psig   20.016mA     0.040mA     0.016mA       40                   19.960      20.040     PASS"_s,
            }}};
    return run;
}

const QString asset = preparedRun().record.asset;

/// One of the editors, and what a user does in it.
class Screen {
  public:
    /// Opens it by the shortcut of its menu entry, Ctrl and that key.
    Screen(DemoWorkstation& station, const QString& name, Qt::Key key, const QString& description)
        : station_(station), name_(name) {
        station_.step(description, [&] { station_.press(key, Qt::ControlModifier); });
    }
    /// Closes it: everything is saved, so nothing is asked.
    void close() {
        station_.takePicture(name_);
        station_.step(u"close it"_s, [this] { window().close(); });
    }

    void press(const QString& button) { click(control<QPushButton>(window(), button)); }
    /// A step: presses a button.
    void press(const QString& description, const QString& button) {
        station_.step(description, [&] { press(button); });
    }
    void type(const QString& box, const QString& entry) {
        auto& field = control<QLineEdit>(window(), box);
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, entry);
    }
    void write(const QString& box, const QString& text) {
        QTest::keyClicks(&control<QPlainTextEdit>(window(), box), text);
    }
    void pick(const QString& list, const QString& row) {
        demo::pick(control<QComboBox>(window(), list), row);
    }
    void turnOn(const QString& option) { click(control<QRadioButton>(window(), option)); }
    void showPage(int page) {
        auto* tabs = control<QTabWidget>(window(), u"SSTab1"_s).tabBar();
        QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(page).center());
    }
    void clickRow(const QString& list, const QString& row) { rowPlace(list, row, QTest::mouseClick); }
    void doubleClickRow(const QString& list, const QString& row) {
        clickRow(list, row);
        rowPlace(list, row, QTest::mouseDClick);
    }
    void expectRows(const QString& list, const QStringList& rows) {
        const auto& shown = control<QListWidget>(window(), list);
        QStringList found;
        for (int row = 0; row < shown.count(); ++row)
            found << shown.item(row)->text();
        if (found != rows)
            throw Difference(u"%1 holds %2"_s.arg(list, found.join(u", "_s)));
    }

  private:
    using Click = void (*)(QWidget*, Qt::MouseButton, Qt::KeyboardModifiers, QPoint, int);

    QWidget& window() { return station_.child(name_); }
    void rowPlace(const QString& list, const QString& row, Click how) {
        auto& shown = control<QListWidget>(window(), list);
        const auto found = shown.findItems(row, Qt::MatchExactly);
        if (found.isEmpty())
            throw Difference(u"%1 has no row %2"_s.arg(list, row));
        shown.scrollToItem(found.first());
        how(shown.viewport(), Qt::LeftButton, {}, shown.visualItemRect(found.first()).center(), -1);
    }

    DemoWorkstation& station_;
    QString name_;
};

void makeStrategy(DemoWorkstation& station) {
    Screen screen(station, u"FormStrategies"_s, Qt::Key_S, u"open the test strategies"_s);
    station.simulatedOperator.expectDialog(text(TextId::addStrategy), text(TextId::newStrategyNamePrompt),
                                           strategy);
    screen.press(u"name a new one "_s + strategy, u"CommandAdd"_s);
    screen.pick(u"ComboPreDef"_s, text(TextId::predefinedThreeUp));
    station.simulatedOperator.expectDialog(u"Kelvane"_s, text(TextId::newTestPointPrompt), u"75"_s);
    screen.press(u"three points up, and one more"_s, u"CommandAddTP"_s);
    screen.clickRow(u"ListPoints"_s, u"75"_s);
    screen.press(u"CommandMoveUp"_s);
    screen.expectRows(u"ListPoints"_s, {u"0.00"_s, u"50.00"_s, u"75"_s, u"100.00"_s});
    screen.press(u"save it"_s, u"CommandSave"_s);
    screen.close();
}

void writeMessage(DemoWorkstation& station) {
    Screen screen(station, u"FormTestMess"_s, Qt::Key_M, u"open the test messages"_s);
    station.simulatedOperator.expectDialog(text(TextId::addMessage), text(TextId::newMessageNamePrompt),
                                           message);
    screen.press(u"name a new one "_s + message, u"CommandCreate"_s);
    screen.write(u"TextMessage"_s, u"Vent $DB:I4201$ before you connect the module."_s);
    screen.press(u"write its text and save it"_s, u"CommandSave"_s);
    screen.close();
}

void setParameters(DemoWorkstation& station) {
    station.simulatedOperator.expectDialog(text(TextId::calibrationParameters),
                                           text(TextId::instrumentNumberPrompt), asset);
    Screen screen(station, u"FormCalParam"_s, Qt::Key_P,
                  u"open the calibration parameters of %1, which has none"_s.arg(asset));
    screen.pick(u"ComboTSName"_s, strategy);
    screen.doubleClickRow(u"ListPreAvail"_s, message);
    screen.expectRows(u"ListPreDisplay"_s, {message});
    screen.showPage(1);
    screen.pick(u"ComboInputUnits"_s, u"psig"_s);
    screen.type(u"TextInputHigh"_s, u"100"_s);
    screen.pick(u"ComboMeasRes"_s, u"0.001"_s);
    screen.showPage(2);
    screen.type(u"TextOutputLow"_s, u"4"_s);
    screen.type(u"TextOutputHigh"_s, u"20"_s);
    screen.pick(u"ComboOutputUnits"_s, u"mA"_s);
    screen.turnOn(u"OptionCalLoopPWROut24VDC"_s);
    station.takePicture(u"FormCalParam"_s);
    screen.showPage(3);
    screen.type(u"TextSpanPos"_s, u"0.25"_s);
    screen.type(u"TextSpanNeg"_s, u"0.25"_s);
    screen.press(u"0 to 100 psig in, 4 to 20 mA out, 0.25 % of span; save"_s, u"CommandSave"_s);
    screen.close();
}

void makePackage(DemoWorkstation& station) {
    Screen screen(station, u"FormPredefinedTasks"_s, Qt::Key_T, u"open the task packages"_s);
    station.simulatedOperator.expectDialog(text(TextId::newPackageTitle), text(TextId::newStrategyNamePrompt),
                                           package);
    screen.press(u"name a new one "_s + package, u"CommandAddTP"_s);
    screen.type(u"TextListEnter"_s, asset);
    screen.press(u"put %1 into it"_s.arg(asset), u"CommandAdd"_s);
    screen.expectRows(u"ListAssets"_s, {asset});
    screen.press(u"save it"_s, u"CommandSave"_s);
    screen.close();
}

/// The message as the calibrator has it, with the instrument's number put in.
void expectMessageIn(const QString& memory) {
    QFile file(memory);
    if (!file.open(QIODevice::ReadOnly) ||
        !file.readAll().contains("Vent " + asset.toUtf8() + " before you connect the module."))
        throw Difference(u"the calibrator does not hold the message"_s);
}

} // namespace

void prepareTransmitter(DemoWorkstation& station) {
    makeStrategy(station);
    writeMessage(station);
    setParameters(station);
    makePackage(station);
}

void calibratePrepared(DemoWorkstation& station, const QString& memory, const QDate& day) {
    const QList<FieldRun> runs{preparedRun()};
    station.openDownloadList(fluke702);
    station.add(u"add the prepared task package "_s + package, package);
    station.expectList({asset});
    station.download();
    expectMessageIn(memory);
    station.step(u"carry out in the plant"_s,
                 [&] { carryOut(memory, planLine(runs.first(), day).toUtf8()); });
    station.expectChoice(uploadTitle(), fluke702);
    station.expectRecord(asset);
    station.upload(u"upload the first calibration of "_s + asset);
    checkRecords(*station.program.session.SharedConnection, day,
                 recordsAfterRuns(fluke702Runs().serial, runs));
}

} // namespace kelvane::demo
