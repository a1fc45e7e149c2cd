#include "worksheets/form_worksheet_print.h"

#include "tests/worksheets/form_worksheet_print_fixture.h"
#include "ui/form_custom_dialog.h"
#include "ui/open_windows.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST_F(FormWorksheetPrintTest, HasItsSizePlaceTextsAndFocus) {
    open();
    EXPECT_EQ(form().geometry(), QRect(7, 5, 191, 404));
    EXPECT_EQ(form().windowTitle(), u"Print Worksheet(s)"_s);
    const auto entryName = u"Instrument or Task Package to Add to List:"_s;
    const auto listName = u"Instruments to be Calibrated:"_s;
    const struct {
        QString name, text, toolTip, accessibleName;
    } texts[] = {
        {u"Label1"_s, entryName, {}, entryName},
        {u"TextAdd"_s, {}, u"Enter instrument to print worksheet for"_s, entryName},
        {u"CommandAdd"_s, u"Add"_s, u"Add instrument to list for worksheet printing"_s, u"Add"_s},
        {u"Label2"_s, listName, {}, listName},
        {u"ListCal"_s, {}, u"List of instruments that will have worksheets printed"_s, listName},
        {u"CommandRemove"_s, u"Remove Instrument"_s, u"Remove an instrument from the list"_s,
         u"Remove Instrument"_s},
        {u"CommandChkStandard"_s, u"Check A Standard"_s,
         u"Check a standard against the selected instrument"_s, u"Check A Standard"_s},
        {u"CommandPrint"_s, u"Print Worksheets"_s, u"Print worksheets for the listed instruments"_s,
         u"Print Worksheets"_s},
    };
    for (const auto& text : texts) {
        const auto& shown = controlNamed<QWidget>(text.name);
        EXPECT_EQ(shown.property("text").toString(), text.text) << text.name.toStdString();
        EXPECT_EQ(shown.toolTip(), text.toolTip) << text.name.toStdString();
        EXPECT_EQ(shown.accessibleName(), text.accessibleName) << text.name.toStdString();
    }
    EXPECT_TRUE(entry().hasFocus());
    EXPECT_TRUE(button(u"CommandAdd"_s).isDefault());
    EXPECT_EQ(enabledOf(commands), commands);
    EXPECT_TRUE(isWindowOpen(session, u"FormWorksheetPrint"));
}

TEST_F(FormWorksheetPrintTest, TabGoesFromTopToBottom) {
    open();
    for (const auto& name : {u"CommandAdd"_s, u"ListCal"_s, u"CommandRemove"_s, u"CommandChkStandard"_s,
                             u"CommandPrint"_s, u"TextAdd"_s}) {
        const auto before = QApplication::focusWidget()->mapTo(&form(), QPoint());
        pressKeys(u"Tab"_s);
        ASSERT_TRUE(QApplication::focusWidget());
        EXPECT_EQ(QApplication::focusWidget()->objectName(), name);
        if (name != u"TextAdd") {
            EXPECT_GT(QApplication::focusWidget()->mapTo(&form(), QPoint()).y(), before.y());
        }
    }
}

TEST_F(FormWorksheetPrintTest, ReturnAddsAnInstrumentAndIsReadyForTheNext) {
    open();
    add(u"A-1"_s);
    EXPECT_EQ(rows(), QStringList{u"A-1"_s});
    EXPECT_EQ(entry().text(), QString());
    EXPECT_TRUE(entry().hasFocus());
    add(u"A-2"_s);
    add(u"A-1"_s);
    EXPECT_EQ(rows(), (QStringList{u"A-1"_s, u"A-2"_s, u"A-1"_s}));
    EXPECT_FALSE(QApplication::overrideCursor());
}

TEST_F(FormWorksheetPrintTest, TheAddButtonAddsAndGivesTheFocusBack) {
    open();
    QTest::keyClicks(&entry(), u"A-1"_s);
    press(u"CommandAdd"_s);
    EXPECT_EQ(rows(), QStringList{u"A-1"_s});
    EXPECT_TRUE(entry().hasFocus());
}

TEST_F(FormWorksheetPrintTest, ReturnInTheListAddsWhatIsTyped) {
    open();
    QTest::keyClicks(&entry(), u"A-1"_s);
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_EQ(rows(), QStringList{u"A-1"_s});
}

TEST_F(FormWorksheetPrintTest, AnUnknownEntryStaysSelectedForTheNextOne) {
    open();
    simulatedOperator.expectBox(u"Must enter a valid instrument number!"_s, u"Print Worksheet(s)"_s,
                                box::warning);
    add(u" X-9"_s);
    EXPECT_EQ(entry().text(), u" X-9"_s);
    EXPECT_TRUE(entry().hasFocus());
    EXPECT_FALSE(QApplication::overrideCursor());
    add(u"A-1"_s);
    EXPECT_EQ(rows(), QStringList{u"A-1"_s});
}

TEST_F(FormWorksheetPrintTest, AnEmptyEntryDoesNothing) {
    open();
    QTest::keyClick(&entry(), Qt::Key_Return);
    press(u"CommandAdd"_s);
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_EQ(rows(), QStringList());
}

TEST_F(FormWorksheetPrintTest, RemoveTakesTheSelectedRowAlone) {
    openWithRows();
    press(u"CommandRemove"_s);
    EXPECT_EQ(rows().size(), 2) << "no row is selected";
    select(list(), u"A-1"_s);
    press(u"CommandRemove"_s);
    EXPECT_EQ(rows(), QStringList{u"A-2"_s});
    press(u"CommandRemove"_s);
    EXPECT_EQ(rows(), QStringList{u"A-2"_s}) << "no other row has been selected";
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(FormWorksheetPrintTest, TheDeleteKeyRemovesOnlyInTheList) {
    openWithRows();
    select(list(), u"A-2"_s);
    QTest::keyClick(&list(), Qt::Key_Delete);
    EXPECT_EQ(rows(), QStringList{u"A-1"_s});
    EXPECT_TRUE(list().hasFocus());
    select(list(), u"A-1"_s);
    for (const auto& name : {u"TextAdd"_s, u"CommandPrint"_s}) {
        controlNamed<QWidget>(name).setFocus();
        pressKeys(u"Del"_s);
        EXPECT_EQ(rows(), QStringList{u"A-1"_s}) << name.toStdString();
    }
}

TEST_F(FormWorksheetPrintTest, AnEmptyListIsNeitherPrintedNorChecked) {
    open();
    press(u"CommandPrint"_s);
    press(u"CommandChkStandard"_s);
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_TRUE(reports.requests.isEmpty());
    EXPECT_EQ(enabledOf(commands), commands);
}

TEST_F(FormWorksheetPrintTest, AStandardIsCheckedForEachRow) {
    openWithRows();
    simulatedOperator.expectDialog(checking, standardPrompt, u"S-9"_s);
    simulatedOperator.expectBox(u"Standard does not exist!"_s, checking, box::warning);
    press(u"CommandChkStandard"_s);
    EXPECT_EQ(script.statements.size(), 1);
    EXPECT_EQ(enabledOf(commands), commands);
    EXPECT_FALSE(QApplication::overrideCursor());
}

TEST_F(FormWorksheetPrintTest, WhileTheStandardIsAskedForTheScreenWaits) {
    openWithRows();
    simulatedOperator.expectDialog(checking, standardPrompt, [this](FormCustomDialog& dialog) {
        auto& area = program.window.area();
        EXPECT_EQ(enabledOf(commands), QStringList{u"CommandChkStandard"_s});
        area.setActiveSubWindow(&form());
        press(u"CommandChkStandard"_s);
        EXPECT_EQ(area.activeSubWindow(), &dialog);
        area.setActiveSubWindow(&form());
        form().close();
        EXPECT_TRUE(isOpen());
        EXPECT_EQ(area.activeSubWindow(), &dialog);
        area.setActiveSubWindow(&form());
        select(list(), u"A-1"_s);
        QTest::keyClick(&list(), Qt::Key_Delete);
        add(u"A-3"_s);
        EXPECT_EQ(rows(), (QStringList{u"A-1"_s, u"A-2"_s}));
        cancel(dialog);
    });
    press(u"CommandChkStandard"_s);
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_EQ(enabledOf(commands), commands);
    form().close();
    EXPECT_FALSE(isOpen());
}

TEST_F(FormWorksheetPrintTest, AnotherQuestionIsBroughtForwardAndTheRestOfTheScreenWorks) {
    openWithRows();
    simulatedOperator.expectDialog(u"Upload Test Results From Calibrator"_s, u"Select Calibrator To Use:"_s,
                                   [this](FormCustomDialog& dialog) {
                                       auto& area = program.window.area();
                                       area.setActiveSubWindow(&form());
                                       press(u"CommandChkStandard"_s);
                                       EXPECT_EQ(area.activeSubWindow(), &dialog);
                                       EXPECT_EQ(enabledOf(commands), commands);
                                       area.setActiveSubWindow(&form());
                                       add(u"A-3"_s);
                                       EXPECT_EQ(rows().size(), 3);
                                       cancel(dialog);
                                   });
    choose(u"mnuUpload"_s);
    EXPECT_TRUE(isOpen());
}

TEST_F(FormWorksheetPrintTest, TheCheckEndsWhenTheScreenIsGoneBeforeItsAnswer) {
    openWithRows();
    const QPointer screen(&form());
    simulatedOperator.expectDialog(checking, standardPrompt, [&](FormCustomDialog& dialog) {
        delete screen;
        cancel(dialog);
    });
    button(u"CommandChkStandard"_s).click();
    EXPECT_TRUE(screen.isNull());
}

TEST_F(FormWorksheetPrintTest, ClosingStoresThePosition) {
    open();
    form().close();
    EXPECT_EQ(settings.values.value(u"Left/FormWorksheetPrint"_s), u"105"_s);
    EXPECT_EQ(settings.values.value(u"Top/FormWorksheetPrint"_s), u"75"_s);
    openWithRows();
    form().move(40, 30);
    form().close();
    EXPECT_FALSE(isOpen());
    EXPECT_FALSE(isWindowOpen(session, u"FormWorksheetPrint"));
    EXPECT_EQ(settings.values.value(u"Left/FormWorksheetPrint"_s), u"600"_s);
    EXPECT_EQ(settings.values.value(u"Top/FormWorksheetPrint"_s), u"450"_s);
    open();
    EXPECT_EQ(form().pos(), QPoint(40, 30));
    EXPECT_EQ(rows(), QStringList());
}

TEST_F(FormWorksheetPrintTest, ShowsEveryTextWholeInLargeLetters) {
    const auto before = QApplication::font();
    const auto after = qScopeGuard([&] { QApplication::setFont(before); });
    QApplication::setFont(QFont(before.family(), 14));
    openWithRows();
    for (const auto* label : form().findChildren<QLabel*>())
        EXPECT_LE(label->heightForWidth(label->width()), label->height()) << label->text().toStdString();
    for (const auto* command : form().findChildren<QPushButton*>()) {
        EXPECT_LE(command->sizeHint().width(), command->width()) << command->text().toStdString();
        EXPECT_LE(command->sizeHint().height(), command->height()) << command->text().toStdString();
    }
    EXPECT_GE(list().height(), 3 * list().sizeHintForRow(0));
}

} // namespace kelvane::testing
