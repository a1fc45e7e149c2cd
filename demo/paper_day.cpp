#include "demo/paper_day.h"

#include "resources/captions.h"
#include "testkit/records.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace kelvane::demo {

namespace {

const QStringList instruments{u"PT-102"_s, u"TIT-202"_s, u"IP-301"_s, u"LI-402"_s, u"VF-503"_s};

/// What came back from the plant. The operator enters no readings: they stay on the sheet.
const Record& paperRecord() {
    static const Record record{.asset = instruments.first(),
                               .time = u"14:30:00"_s,
                               .failed = {},
                               .marginal = {},
                               .strategy = u"(null)"_s,
                               .standards = {u"DMM-87V"_s, u"DWT-01"_s},
                               .lines = {}};
    return record;
}

void list(DemoWorkstation& station, const QString& asset) {
    station.step(u"add "_s + asset, [&] {
        auto& form = station.child(u"FormWorksheetPrint"_s);
        QTest::keyClicks(&control<QLineEdit>(form, u"TextAdd"_s), asset);
        click(control<QPushButton>(form, u"CommandAdd"_s));
    });
}

void checkStandard(DemoWorkstation& station) {
    auto& simulatedOperator = station.simulatedOperator;
    simulatedOperator.expectDialog(text(TextId::checkStandard), text(TextId::standardToCheck), u"PM-030"_s);
    simulatedOperator.expectBox(text(TextId::standardOverdue), text(TextId::checkStandard), box::warning);
    station.step(u"check the standard PM-030: it is overdue"_s, [&] {
        click(control<QPushButton>(station.child(u"FormWorksheetPrint"_s), u"CommandChkStandard"_s));
    });
}

void pressKey(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window))
        throw Difference(window.windowTitle() + u" did not become active"_s);
    QTest::keyClick(&window, key, modifiers);
}

/// In the preview: saves the pages as a PDF, and closes it.
void savePages(DemoWorkstation& station, QWidget& preview, const QString& path) {
    station.takePicture(preview, u"worksheets"_s);
    station.simulatedOperator.expectWindow(titleOf(TextId::saveReport), [&](QWidget& dialog) {
        auto& name = control<QLineEdit>(dialog, u"fileNameEdit"_s);
        // Typed letters would bring up the list of files.
        name.setText(path);
        QTest::keyClick(&name, Qt::Key_Return);
        if (dialog.isVisible())
            throw Difference(u"the file was not taken: "_s + path);
    });
    pressKey(preview, Qt::Key_S, Qt::ControlModifier);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !file.readAll().startsWith("%PDF"))
        throw Difference(path + u" is no PDF"_s);
    pressKey(preview, Qt::Key_Escape);
}

void printSheets(DemoWorkstation& station, const QString& path) {
    station.step(u"open the worksheets"_s, [&] { station.press(Qt::Key_W, Qt::ControlModifier); });
    for (const auto& asset : instruments)
        list(station, asset);
    checkStandard(station);
    station.takePicture(u"FormWorksheetPrint"_s);
    station.simulatedOperator.expectWindow(text(TextId::calibrationWorksheet),
                                           [&](QWidget& preview) { savePages(station, preview, path); });
    station.step(u"print the sheets into "_s + path, [&] {
        click(control<QPushButton>(station.child(u"FormWorksheetPrint"_s), u"CommandPrint"_s));
    });
    station.step(u"close it"_s, [&] { station.child(u"FormWorksheetPrint"_s).close(); });
}

void expectField(DemoWorkstation& station, const QString& title, const QString& value) {
    station.simulatedOperator.expectDialog(recordQuestion(paperRecord().asset), fieldQuestion(title), value);
}

void expectStandard(DemoWorkstation& station, const QString& standard) {
    station.simulatedOperator.expectDialog(text(TextId::standardsUsed), text(TextId::standardUsedPrompt),
                                           standard);
}

void openEntry(DemoWorkstation& station) {
    auto& simulatedOperator = station.simulatedOperator;
    simulatedOperator.expectDialog(text(TextId::enterWorksheetResults),
                                   text(TextId::worksheetInstrumentPrompt), paperRecord().asset);
    station.expectRecord(paperRecord().asset);
    // It is required and has no default, so it is asked for a second time.
    expectField(station, u"Ambient Temperature (C)"_s, u"21.5"_s);
    expectStandard(station, u"DWT-01"_s);
    expectStandard(station, u"DWT-01"_s);
    simulatedOperator.expectBox(text(TextId::standardAlreadyListed), text(TextId::standardsUsed),
                                box::warning);
    expectStandard(station, u"DMM-87V"_s);
    expectStandard(station, {});
    station.step(u"enter the sheet of "_s + paperRecord().asset,
                 [&] { station.press(Qt::Key_R, Qt::ControlModifier); });
}

/// The field is chosen with a double-click.
void changeField(DemoWorkstation& station, const QString& title, const QString& value) {
    expectField(station, title, value);
    station.step(u"%1: %2"_s.arg(title, value), [&] {
        auto& list = control<QTreeWidget>(station.child(u"FormWorkEntry"_s), u"ListViewData"_s);
        const auto found = list.findItems(title, Qt::MatchExactly);
        if (found.isEmpty())
            throw Difference(u"no field "_s + title);
        list.scrollToItem(found.last());
        const auto place = list.visualItemRect(found.last()).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
    });
}

void enterSheet(DemoWorkstation& station, const QDate& day) {
    openEntry(station);
    changeField(station, u"Calibration Date"_s,
                formatMoment({day, {}}, station.program.session.SessionDateFormat));
    changeField(station, u"Calibration Time"_s, u"14:30"_s);
    station.takePicture(u"FormWorkEntry"_s);
    station.expectRecord(paperRecord().asset);
    station.step(u"create the record"_s,
                 [&] { click(control<QPushButton>(station.child(u"FormWorkEntry"_s), u"CommandSave"_s)); });
    station.step(u"close it"_s, [&] { station.child(u"FormWorkEntry"_s).close(); });
}

} // namespace

void runPaperDay(DemoWorkstation& station, const QString& folder, const QDate& day) {
    printSheets(station, QDir(folder).filePath(u"worksheets.pdf"_s));
    enterSheet(station, day);
    checkRecords(*station.program.session.SharedConnection, day, {.records = {paperRecord()}, .serial = {}});
}

} // namespace kelvane::demo
