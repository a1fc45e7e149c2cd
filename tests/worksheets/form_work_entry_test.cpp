#include "worksheets/form_work_entry.h"

#include "data/journal/journal.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/program_fixture.h"
#include "testkit/screen_controls.h"
#include "tests/worksheets/entry_database.h"
#include "tests/worksheets/worksheet_questions.h"
#include "ui/form_custom_dialog.h"
#include "ui/list_rows.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QSignalSpy>
#include <QTest>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const auto instrumentPrompt = u"Enter instrument #: (or press CANCEL to quit)"_s;
const auto standardPrompt = u"Enter standard used:"_s;
const QStringList entryButtons{u"CommandAddSTD"_s, u"CommandSave"_s, u"CommandNewAsset"_s};

} // namespace

/// The screen with its real dialogs; PT-1 has a date, a time, and a temperature that is asked for.
class FormWorkEntryTest : public ProgramTest, public EntryDatabase, public ScreenControls {
  protected:
    using ProgramTest::choose;

    FormWorkEntryTest() : EntryDatabase(script) {
        startLoggedIn(4);
        program.window.resize(900, 800);
        setDictionary(
            {{.column = u"C2301"_s, .title = u"Date"_s, .defaultText = u"99/99/99"_s, .isDate = true},
             {.column = u"C2333"_s, .title = u"Time"_s, .defaultText = u"99:99"_s},
             {.column = u"C2312"_s, .title = u"Temperature"_s, .required = u"Y"_s, .maxLength = u"8"_s}});
        show();
        script.statements.clear();
    }

    void show() {
        form_ = new FormWorkEntry(session);
        form_->showIn(program.window.area());
        QCoreApplication::processEvents();
    }
    FormWorkEntry& form() { return *form_; }
    ChildWindow& screen() override { return child(u"FormWorkEntry"_s); }
    bool isOpen() { return findChild(u"FormWorkEntry"_s) != nullptr; }
    void begin() {
        form().begin();
        EXPECT_TRUE(simulatedOperator.hasMetAll());
    }

    void expectField(const QString& answer, const QString& asset = u"PT-1"_s) {
        simulatedOperator.expectDialog(u"Calibration Record Data (%1)"_s.arg(asset),
                                       u"Please enter information for: Temperature"_s, answer);
    }
    void expectStandard(const QString& answer) {
        simulatedOperator.expectDialog(standardsTitle, standardPrompt, answer);
    }
    /// An entry of PT-1 with these standards.
    void enter(const QStringList& standards) {
        simulatedOperator.expectDialog(entryTitle, instrumentPrompt, u"PT-1"_s);
        expectField(u"21"_s);
        for (const auto& standard : standards)
            expectStandard(standard);
        expectStandard({});
        begin();
    }

    QLineEdit& asset() { return controlNamed<QLineEdit>(u"TextCalAsset"_s); }
    QTreeWidget& fields() { return controlNamed<QTreeWidget>(u"ListViewData"_s); }
    QListWidget& standards() { return controlNamed<QListWidget>(u"ListStandards"_s); }
    QStringList shownFields() {
        QStringList rows;
        for (int row = 0; row < fields().topLevelItemCount(); ++row)
            rows << fields().topLevelItem(row)->text(0) + u'=' + fields().topLevelItem(row)->text(1);
        return rows;
    }
    void doubleClickField(int row, int column) {
        const auto place = fields().visualRect(fields().model()->index(row, column)).center();
        QTest::mouseClick(fields().viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(fields().viewport(), Qt::LeftButton, {}, place);
        EXPECT_TRUE(simulatedOperator.hasMetAll());
    }

  private:
    FormWorkEntry* form_ = nullptr;
};

TEST_F(FormWorkEntryTest, HasItsSizePlaceTextsAndTips) {
    EXPECT_EQ(form().geometry(), QRect(7, 5, 465, 523));
    EXPECT_EQ(form().windowTitle(), entryTitle);
    const struct {
        QString name;
        QString text;
        QString toolTip;
        QString accessibleName;
    } texts[] = {
        {u"Label1"_s, u"Asset Calibrated"_s, {}, u"Asset Calibrated"_s},
        {u"TextCalAsset"_s, {}, u"Enter instrument number from worksheet"_s, u"Asset Calibrated"_s},
        {u"Label2"_s, u"Calibration Record Data"_s, {}, u"Calibration Record Data"_s},
        {u"ListViewData"_s,
         {},
         u"Individual calibration parameters for this activity"_s,
         u"Calibration Record Data"_s},
        {u"LabelNote2"_s, u"Double-click on a fieldname to change information for that field"_s, {}, {}},
        {u"Label3"_s, u"Standards Used"_s, {}, u"Standards Used"_s},
        {u"ListStandards"_s, {}, u"Standards used during this calibration"_s, u"Standards Used"_s},
        {u"LabelNote3"_s, u"Double-click on a standard to remove it from the list"_s, {}, {}},
        {u"Label4"_s, u"Calibration Results"_s, {}, u"Calibration Results"_s},
        {u"ListViewResults"_s, {}, u"Calibration test results"_s, u"Calibration Results"_s},
        {u"LabelNote4"_s, u"Double-click on a calibration result to modify that result"_s, {}, {}},
        {u"CommandAddSTD"_s, u"Add Standard(s)"_s, u"Add another standard used"_s, {}},
        {u"CommandSave"_s,
         u"Create Cal Record"_s,
         u"Create calibration record with information provided above"_s,
         {}},
        {u"CommandNewAsset"_s, u"Create Another Record"_s, u"Create a new calibration record"_s, {}},
    };
    for (const auto& text : texts) {
        auto& shown = control<QWidget>(form(), text.name);
        EXPECT_EQ(shown.property("text").toString(), text.text) << text.name.toStdString();
        EXPECT_EQ(shown.toolTip(), text.toolTip) << text.name.toStdString();
        EXPECT_EQ(shown.accessibleName(), text.accessibleName.isEmpty() ? text.text : text.accessibleName);
    }
    for (const auto& list : {u"ListViewData"_s, u"ListViewResults"_s}) {
        auto* header = controlNamed<QTreeWidget>(list).headerItem();
        EXPECT_EQ(header->columnCount(), 2);
        EXPECT_EQ(header->text(0), u"Field"_s);
        EXPECT_EQ(header->text(1), u"Value"_s);
    }
    EXPECT_EQ(enabledOf(entryButtons), (QStringList{u"CommandAddSTD"_s, u"CommandSave"_s}));
    EXPECT_TRUE(asset().hasFocus());
    EXPECT_EQ(script.statements, QStringList()) << "nothing is asked before it begins";
}

TEST_F(FormWorkEntryTest, ItsPlaceIsKept) {
    form().move(20, 30);
    form().close();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(settings.values.value(u"Left/FormWorkEntry"_s), u"300"_s);
    EXPECT_EQ(settings.values.value(u"Top/FormWorkEntry"_s), u"450"_s);
    show();
    EXPECT_EQ(form().pos(), QPoint(20, 30));
}

TEST_F(FormWorkEntryTest, AWholeEntryByKeyboardMakesItsRecord) {
    const QSignalSpy left(&form(), &FormWorkEntry::resultsLeft);
    enter({u"S-1"_s});
    EXPECT_EQ(asset().text(), u"PT-1"_s);
    EXPECT_EQ(shownFields(), (QStringList{u"Date=03/18/2026"_s, u"Time=09:30"_s, u"Temperature=21"_s}));
    EXPECT_EQ(rowsOf(standards()), QStringList{u"S-1"_s});
    EXPECT_EQ(enabledOf(entryButtons), (QStringList{u"CommandAddSTD"_s, u"CommandSave"_s}));
    asset().setFocus();
    for (int tab = 0; !button(u"CommandSave"_s).hasFocus(); ++tab) {
        ASSERT_LT(tab, 10);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(script.statements.filter(u"insert into MT.calibration"_s).size(), 1);
    EXPECT_EQ(script.statements.filter(u"insert into mt.standards"_s).size(), 1);
    EXPECT_EQ(asset().text(), QString());
    EXPECT_TRUE(asset().hasFocus());
    EXPECT_EQ(enabledOf(entryButtons), QStringList{u"CommandNewAsset"_s});
    EXPECT_EQ(rowsOf(standards()), QStringList{u"S-1"_s});
    EXPECT_EQ(left.count(), 0);
    EXPECT_EQ(controlNamed<QTreeWidget>(u"ListViewResults"_s).topLevelItemCount(), 0);
}

TEST_F(FormWorkEntryTest, TheNextRecordBeginsWithTheStandardsOfTheLast) {
    enter({u"S-1"_s});
    press(u"CommandSave"_s);
    simulatedOperator.expectDialog(entryTitle, instrumentPrompt, u"PT-2"_s);
    expectField(u"22"_s, u"PT-2"_s);
    press(u"CommandNewAsset"_s);
    EXPECT_TRUE(simulatedOperator.hasMetAll());
    EXPECT_EQ(asset().text(), u"PT-2"_s);
    EXPECT_EQ(rowsOf(standards()), QStringList{u"S-1"_s});
    EXPECT_EQ(enabledOf(entryButtons), entryButtons) << "it stays enabled";
    press(u"CommandSave"_s);
    EXPECT_EQ(script.statements.filter(u"insert into mt.standards"_s).size(), 2);
}

TEST_F(FormWorkEntryTest, WhileAQuestionIsOpenItsButtonsAreOffAndItStays) {
    const auto expectBusy = [this](FormCustomDialog& dialog, const QString& answer) {
        EXPECT_EQ(enabledOf(entryButtons), QStringList());
        form().close();
        EXPECT_TRUE(isOpen());
        answerDialog(dialog, answer);
    };
    simulatedOperator.expectDialog(entryTitle, instrumentPrompt,
                                   [&](FormCustomDialog& dialog) { expectBusy(dialog, u"PT-1"_s); });
    simulatedOperator.expectDialog(u"Calibration Record Data (PT-1)"_s,
                                   u"Please enter information for: Temperature"_s,
                                   [&](FormCustomDialog& dialog) { expectBusy(dialog, u"21"_s); });
    simulatedOperator.expectDialog(standardsTitle, standardPrompt, [&](FormCustomDialog& dialog) {
        // Nor is a listed field or standard changed meanwhile.
        fields().setCurrentItem(fields().topLevelItem(0));
        QTest::keyClick(&fields(), Qt::Key_Return);
        expectBusy(dialog, u"S-1"_s);
    });
    simulatedOperator.expectDialog(standardsTitle, standardPrompt, [&](FormCustomDialog& dialog) {
        standards().setCurrentRow(0);
        QTest::keyClick(&standards(), Qt::Key_Delete);
        EXPECT_EQ(rowsOf(standards()), QStringList{u"S-1"_s});
        simulatedOperator.expectBox(
            u"One or more windows are still open! Please close open windows before logging out..."_s,
            u"Kelvane"_s, box::warning);
        choose(u"mnuLogout"_s);
        expectBusy(dialog, {});
    });
    begin();
    EXPECT_EQ(shownFields().size(), 3);
    form().close();
    EXPECT_FALSE(isOpen()) << "what was not saved is given up without a question";
}

TEST_F(FormWorkEntryTest, ACancelledEntryLeavesItOpenAndEmpty) {
    expectCancelledDialog(entryTitle, instrumentPrompt);
    begin();
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(asset().text(), QString());
    EXPECT_EQ(shownFields(), QStringList());
    EXPECT_EQ(enabledOf(entryButtons), (QStringList{u"CommandAddSTD"_s, u"CommandSave"_s}));
    press(u"CommandSave"_s);
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_EQ(enabledOf(entryButtons), QStringList{u"CommandNewAsset"_s});
}

TEST_F(FormWorkEntryTest, BlanksEndTheStandards) {
    simulatedOperator.expectDialog(entryTitle, instrumentPrompt, u"  PT-1 "_s);
    expectField(u"21"_s);
    expectStandard(u"   "_s);
    begin();
    EXPECT_EQ(asset().text(), u"PT-1"_s);
    EXPECT_EQ(rowsOf(standards()), QStringList());
}

TEST_F(FormWorkEntryTest, TheInstrumentCantBeTyped) {
    asset().setFocus();
    QTest::keyClicks(&asset(), u"PT-2"_s);
    EXPECT_EQ(asset().text(), QString());
}

TEST_F(FormWorkEntryTest, ADoubleClickOnEitherColumnChangesAField) {
    enter({});
    for (int column = 0; column < 2; ++column) {
        expectField(QString::number(30 + column));
        doubleClickField(2, column);
        EXPECT_EQ(shownFields().last(), u"Temperature=%1"_s.arg(30 + column));
    }
    EXPECT_EQ(enabledOf(entryButtons), (QStringList{u"CommandAddSTD"_s, u"CommandSave"_s}));
}

TEST_F(FormWorkEntryTest, ReturnAndEnterChangeAField) {
    enter({});
    fields().setFocus();
    QTest::keyClick(&fields(), Qt::Key_End);
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        expectField(QString::number(key == Qt::Key_Return ? 40 : 41));
        QTest::keyClick(&fields(), key);
        EXPECT_TRUE(simulatedOperator.hasMetAll());
    }
    EXPECT_EQ(shownFields().last(), u"Temperature=41"_s);
    EXPECT_TRUE(fields().hasFocus());
}

TEST_F(FormWorkEntryTest, AStandardLeavesTheListByDoubleClickReturnEnterAndDelete) {
    enter({u"S-1"_s, u"S-2"_s});
    standards().addItems({u"A"_s, u"B"_s, u"C"_s});
    doubleClick(standards(), u"S-2"_s);
    EXPECT_EQ(rowsOf(standards()), (QStringList{u"S-1"_s, u"A"_s, u"B"_s, u"C"_s}));
    standards().setFocus();
    QTest::keyClick(&standards(), Qt::Key_Home);
    QStringList left{u"A"_s, u"B"_s, u"C"_s};
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Delete}) {
        QTest::keyClick(&standards(), key);
        EXPECT_EQ(rowsOf(standards()), left);
        if (!left.isEmpty())
            left.removeFirst();
    }
    QTest::keyClick(&standards(), Qt::Key_Delete);
    QTest::keyClick(&standards(), Qt::Key_Delete);
    EXPECT_EQ(rowsOf(standards()), QStringList());
}

TEST_F(FormWorkEntryTest, TheButtonAsksForStandardsWhileNoneIsListed) {
    enter({u"S-1"_s});
    press(u"CommandAddSTD"_s);
    EXPECT_EQ(rowsOf(standards()), QStringList{u"S-1"_s});
    doubleClick(standards(), 0);
    expectStandard(u"S-2"_s);
    expectStandard({});
    press(u"CommandAddSTD"_s);
    EXPECT_TRUE(simulatedOperator.hasMetAll());
    EXPECT_EQ(rowsOf(standards()), QStringList{u"S-2"_s});
}

TEST_F(FormWorkEntryTest, WhatStaysWithoutARecordIsSaidOnceAfterTheButtonsAreBack) {
    int said = 0;
    QObject::connect(&form(), &FormWorkEntry::resultsLeft, &form(), [&] {
        ++said;
        EXPECT_EQ(enabledOf(entryButtons), QStringList{u"CommandNewAsset"_s});
    });
    script.failures[standardQuery(u"S-1"_s, u"PT-1"_s)] = Error{-158, u"Value out of range"_s};
    simulatedOperator.expectDialog(entryTitle, instrumentPrompt, u"PT-1"_s);
    expectField(u"21"_s);
    expectStandard(u"S-1"_s);
    simulatedOperator.expectReport(-158, u"ModuleGlobals,CheckStandard"_s);
    expectStandard({});
    begin();
    EXPECT_EQ(said, 0);
    press(u"CommandSave"_s);
    EXPECT_EQ(said, 1);
    EXPECT_EQ(Journal(session).unfinished().size(), 1);
    EXPECT_TRUE(script.statements.filter(u"insert "_s).isEmpty());
    EXPECT_EQ(asset().text(), QString());
}

TEST_F(FormWorkEntryTest, WhileAnotherQuestionIsOpenACommandOnlyBringsItForward) {
    enter({});
    script.statements.clear();
    simulatedOperator.expectDialog(u"Download"_s, u"Select Calibrator To Use:"_s,
                                   [this](FormCustomDialog& dialog) {
                                       for (const auto& name : {u"CommandAddSTD"_s, u"CommandSave"_s}) {
                                           program.window.area().setActiveSubWindow(&form());
                                           press(name);
                                           EXPECT_EQ(program.window.area().activeSubWindow(), &dialog);
                                       }
                                       form().begin();
                                       EXPECT_EQ(asset().text(), u"PT-1"_s);
                                       EXPECT_EQ(script.statements, QStringList());
                                       cancel(dialog);
                                   });
    choose(u"mnuDownload"_s);
}

TEST_F(FormWorkEntryTest, AReportThatCantBeWrittenIsShownAndTheScreenCanBeUsedOn) {
    enter({});
    script.failures[keyQuery(u"PT-1"_s)] = Error{-158, u"Value out of range"_s};
    ASSERT_TRUE(QDir().mkdir(u"errors.log"_s));
    simulatedOperator.expectBox(text(TextId::errorReportNotWritten), u"Kelvane"_s, box::stop);
    press(u"CommandSave"_s);
    EXPECT_EQ(enabledOf(entryButtons), QStringList{u"CommandNewAsset"_s});
    EXPECT_TRUE(asset().hasFocus());
}

TEST_F(FormWorkEntryTest, WhatLooksLikeMarkupIsShownAsItIs) {
    enter({});
    const auto typed = u"<b>x</b>"_s;
    expectField(typed);
    doubleClickField(2, 1);
    EXPECT_EQ(shownFields().last(), u"Temperature="_s + typed);
    EXPECT_TRUE(fields().topLevelItem(2)->toolTip(1).contains(u"&lt;b&gt;"_s)) << "it is no markup";
}

/// A desktop with large letters, before anything is on the screen.
class LargeLetters {
  protected:
    LargeLetters() : before_(QApplication::font()) { QApplication::setFont(QFont(before_.family(), 14)); }
    ~LargeLetters() { QApplication::setFont(before_); }

  private:
    QFont before_;
};

class FormWorkEntryInLargeLetters : private LargeLetters, public FormWorkEntryTest {};

TEST_F(FormWorkEntryInLargeLetters, IsReadable) {
    enter({u"S-1"_s, u"S-2"_s});
    QCoreApplication::processEvents();
    for (const auto* label : form().findChildren<QLabel*>()) {
        if (label->isVisible() && label->objectName().startsWith(u"Label"_s)) {
            EXPECT_LE(label->sizeHint().width(), label->width()) << label->text().toStdString();
        }
    }
    for (const auto& name : entryButtons)
        EXPECT_LE(button(name).sizeHint().width(), button(name).width()) << name.toStdString();
    EXPECT_GE(fields().viewport()->height(), 3 * fields().fontMetrics().height());
    const QDir pictures(QCoreApplication::applicationDirPath() + u"/../pictures"_s);
    ASSERT_TRUE(pictures.mkpath(u"."_s));
    EXPECT_TRUE(form().grab().save(pictures.filePath(u"FormWorkEntry-14.png"_s)));
}

} // namespace kelvane::testing
