#include "data/assets/assets.h"
#include "tests/editors/predefined_tasks/package_screen.h"
#include "ui/form_custom_dialog.h"

#include <QApplication>
#include <QMessageBox>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

using PackageCommands = PackageScreen;

const Error noTable{208, u"no such table"_s};
const QString notConfigured =
    u"This instrument does not have complete configuration data! Either the calibration parameters for this "
    "instrument have not yet been set, or the test strategy has not been set or has been removed."_s;
const QString deletion = u"Are you sure you want to delete the selected task package?"_s;

} // namespace

// The list of instruments.

TEST_F(PackageCommands, AnInstrumentIsAddedAsTypedAndTheEntryIsReadyForTheNext) {
    open();
    add(u"A-3"_s);
    EXPECT_EQ(rows(), (QStringList{u"A-1"_s, u"A-2"_s, u"A-3"_s}));
    EXPECT_TRUE(entry().text().isEmpty());
    EXPECT_TRUE(entry().hasFocus());
    EXPECT_EQ(enabled(), (QStringList{u"AddTP"_s, u"RemoveTP"_s, u"Save"_s, u"Cancel"_s, u"Remove"_s}));
    QTest::keyClicks(&entry(), u"A-4"_s);
    press(u"CommandAdd"_s);
    EXPECT_EQ(rows().last(), u"A-4"_s);
}

TEST_F(PackageCommands, AnEmptyEntryAddsNothingAndSaysNothing) {
    open();
    QTest::keyClick(&entry(), Qt::Key_Return);
    press(u"CommandAdd"_s);
    EXPECT_TRUE(script.statements.isEmpty());
    EXPECT_EQ(rows().size(), 2);
}

TEST_F(PackageCommands, AnInstrumentThatCantBeListedIsReportedAndTheEntryCleared) {
    configure(u"Ä-1"_s);
    setPackages({{.name = u"LIST"_s, .letter = u"A"_s, .assets = {u"AB1"_s, u"ä-1"_s}}});
    script.answers.insert(u"select mtag from MT.inventory where i4201 = 'B-1'"_s, {Row{u"18"_s}});
    open();
    const struct {
        QString typed;
        QString message;
        bool queried;
    } cases[] = {
        {u"AB1"_s, u"Instrument already listed!"_s, false},
        {u"ab1"_s, u"Instrument already listed!"_s, false},
        {u"Ä-1"_s, u"Instrument already listed!"_s, false},
        {u"X-9"_s, unknownInstrument, true},
        {u" A-1"_s, unknownInstrument, true},
        {u"B-1"_s, notConfigured, true},
        {u"A''1"_s, unknownInstrument, true},
    };
    for (const auto& testCase : cases) {
        script.statements.clear();
        simulatedOperator.expectBox(testCase.message, packagesTitle, box::warning);
        add(testCase.typed);
        EXPECT_EQ(rows().size(), 2) << testCase.typed.toStdString();
        EXPECT_TRUE(entry().text().isEmpty());
        EXPECT_TRUE(entry().hasFocus());
        EXPECT_EQ(!script.statements.isEmpty(), testCase.queried);
    }
}

TEST_F(PackageCommands, AnInstrumentWhoseNumberHasAQuoteIsReportedAndCountsAsUnknown) {
    open();
    script.statements.clear();
    simulatedOperator.expectReport(1, u"ModuleGlobals,CheckAsset"_s);
    simulatedOperator.expectBox(unknownInstrument, packagesTitle, box::warning);
    add(u"A'1"_s);
    EXPECT_EQ(rows().size(), 2);
    EXPECT_TRUE(entry().text().isEmpty());
    EXPECT_TRUE(script.statements.isEmpty());
}

TEST_F(PackageCommands, AFailedQueryOfAnInstrumentIsReportedAndCountsAsUnknown) {
    open();
    script.failures.insert(u"select mtag from MT.inventory where i4201 = 'A-3'"_s, noTable);
    simulatedOperator.expectReport(208, u"ModuleGlobals,CheckAsset"_s);
    simulatedOperator.expectBox(unknownInstrument, packagesTitle, box::warning);
    add(u"A-3"_s);
    EXPECT_EQ(rows().size(), 2);
}

TEST_F(PackageCommands, RemovingNeedsASelectedInstrument) {
    open();
    press(u"CommandRemove"_s);
    EXPECT_EQ(rows().size(), 2);
    EXPECT_FALSE(button(u"CommandSave"_s).isEnabled());
    assets().setCurrentRow(0);
    press(u"CommandRemove"_s);
    EXPECT_EQ(rows(), QStringList{u"A-2"_s});
    EXPECT_EQ(enabled(), (QStringList{u"AddTP"_s, u"RemoveTP"_s, u"Save"_s, u"Cancel"_s, u"Remove"_s}));
    // The next one is not selected by itself, but the keyboard stands on it.
    press(u"CommandRemove"_s);
    EXPECT_EQ(rows(), QStringList{u"A-2"_s});
    assets().setFocus();
    QTest::keyClick(&assets(), Qt::Key_Delete);
    EXPECT_EQ(rows(), QStringList{u"A-2"_s});
    QTest::keyClick(&assets(), Qt::Key_Space);
    QTest::keyClick(&assets(), Qt::Key_Delete);
    EXPECT_TRUE(rows().isEmpty());
}

// New packages.

TEST_F(PackageCommands, ANewPackageStartsEmptyAndExistsOnceItIsSaved) {
    open();
    create(u"O'B"_s);
    EXPECT_EQ(script.statements, QStringList{selectTaken(u"O'B"_s)});
    EXPECT_TRUE(script.firstRowOnly.contains(selectTaken(u"O'B"_s)));
    EXPECT_EQ(tasks(), (QStringList{u"LIST"_s, u"O'B"_s}));
    EXPECT_EQ(names().currentText(), u"O'B"_s);
    EXPECT_TRUE(rows().isEmpty());
    EXPECT_FALSE(names().isEnabled());
    EXPECT_EQ(enabled(), (QStringList{u"Save"_s, u"Cancel"_s, u"Remove"_s}));
    EXPECT_TRUE(notes().hasFocus());

    add(u"A-5"_s);
    script.statements.clear();
    press(u"CommandSave"_s);
    const auto tag = newTag();
    EXPECT_EQ(ownStatements(),
              deletes(u"O'B"_s) +
                  (QStringList{insertPackage(u"O''B"_s, tag, u"'A',NULL,NULL,NULL,NULL"_s, u"NULL"_s),
                               insertAsset(tag, u"A-5"_s)}));
    EXPECT_EQ(enabled(), (QStringList{u"AddTP"_s, u"RemoveTP"_s, u"Remove"_s}));
    EXPECT_TRUE(names().isEnabled());
    form().close();
    EXPECT_EQ(findChild(u"FormPredefinedTasks"_s), nullptr);
}

TEST_F(PackageCommands, NothingThatWasEnteredGoesIntoANewPackage) {
    open();
    QTest::keyClicks(&entry(), u"A-9"_s);
    QTest::keyClicks(&notes(), u"Note"_s);
    option(u"SQL"_s);
    QTest::keyClicks(&sql(), u"select"_s);
    script.failures.insert(selectModels, noTable);
    simulatedOperator.expectReport(208, u"FormPredefinedTasks,OptionModel-Click"_s);
    option(u"Model"_s);
    typeValue(u"Typed"_s);
    create(u"NEW"_s);
    EXPECT_TRUE(entry().text().isEmpty());
    EXPECT_TRUE(notes().text().isEmpty());
    EXPECT_TRUE(sql().text().isEmpty());
    EXPECT_TRUE(value().currentText().isEmpty());
    EXPECT_TRUE(rows().isEmpty());
}

TEST_F(PackageCommands, TheFirstPackageOfAllMakesTheScreenUsable) {
    setPackages({});
    open();
    create(u"FIRST"_s);
    EXPECT_TRUE(notes().isEnabled());
    EXPECT_TRUE(entry().isEnabled());
    EXPECT_EQ(enabled(), (QStringList{u"Save"_s, u"Cancel"_s, u"Remove"_s}));
}

TEST_F(PackageCommands, ANameHasAtMostThirtyCharacters) {
    open();
    simulatedOperator.expectDialog(
        u"Add New Task Package"_s, u"Enter a name for the new test strategy (30 chars max!):"_s,
        [](FormCustomDialog& dialog) { answerDialog(dialog, u"N"_s.repeated(31)); });
    press(u"CommandAddTP"_s);
    EXPECT_EQ(names().currentText(), u"N"_s.repeated(30));
}

TEST_F(PackageCommands, AnExistingNameIsReportedAndAskedForAgain) {
    open();
    script.answers.insert(selectTaken(u"LIST"_s), {Row{u"LIST"_s}});
    expectName(u"LIST"_s);
    simulatedOperator.expectBox(u"Task Package Already Exists!"_s, u"Add New Task Package"_s, box::warning);
    expectName(u"LIST 2"_s);
    press(u"CommandAddTP"_s);
    EXPECT_EQ(script.statements, (QStringList{selectTaken(u"LIST"_s), selectTaken(u"LIST 2"_s)}));
    EXPECT_EQ(names().currentText(), u"LIST 2"_s);
}

TEST_F(PackageCommands, ACancelledNameLoadsThePackageAgainWithoutAQuestionAboutChanges) {
    open();
    add(u"A-3"_s);
    script.statements.clear();
    cancelDialog();
    press(u"CommandAddTP"_s);
    EXPECT_EQ(script.statements, (QStringList{selectPackage(u"LIST"_s), selectAssets(u"TAG OF LIST"_s)}));
    EXPECT_EQ(rows(), (QStringList{u"A-1"_s, u"A-2"_s}));
    EXPECT_EQ(enabled(), (QStringList{u"AddTP"_s, u"RemoveTP"_s, u"Remove"_s}));
    EXPECT_TRUE(names().isEnabled());
    EXPECT_TRUE(button(u"CommandAddTP"_s).hasFocus());
}

TEST_F(PackageCommands, ACancelledFirstNameLeavesTheScreenDisabled) {
    setPackages({});
    open();
    cancelDialog();
    press(u"CommandAddTP"_s);
    EXPECT_EQ(script.statements, (QStringList{selectPackage({}), selectTasks}));
    EXPECT_EQ(enabled(), QStringList{u"AddTP"_s});
    EXPECT_FALSE(names().isEnabled());
}

TEST_F(PackageCommands, WhileTheNameIsAskedThePackagesAreDisabledAndTheScreenStaysOpen) {
    open();
    QTest::keyClicks(&notes(), u"x"_s);
    simulatedOperator.expectDialog(u"Add New Task Package"_s,
                                   u"Enter a name for the new test strategy (30 chars max!):"_s,
                                   [this](FormCustomDialog& dialog) {
                                       EXPECT_TRUE(enabled().isEmpty());
                                       EXPECT_FALSE(button(u"CommandSave"_s).isEnabledTo(form().widget()));
                                       EXPECT_FALSE(names().isEnabled());
                                       EXPECT_TRUE(notes().text().isEmpty());
                                       EXPECT_TRUE(rows().isEmpty());
                                       form().close();
                                       choose(u"mnuPredefined"_s);
                                       EXPECT_EQ(openChildren().count(u"FormPredefinedTasks"_s), 1);
                                       answerDialog(dialog, u"NEW"_s);
                                   });
    press(u"CommandAddTP"_s);
    EXPECT_EQ(names().currentText(), u"NEW"_s);
}

TEST_F(PackageCommands, AFailedQueryOfANameIsReportedUnderTheStrategiesName) {
    open();
    option(u"Model"_s);
    typeValue(u"My model"_s);
    option(u"AssetList"_s);
    add(u"A-3"_s);
    QTest::keyClicks(&notes(), u"Note"_s);
    const auto lit = enabled();
    script.failures.insert(selectTaken(u"NEW"_s), noTable);
    script.statements.clear();
    expectName(u"NEW"_s);
    simulatedOperator.expectReport(208, u"FormStrategies,CommandAdd"_s);
    press(u"CommandAddTP"_s);
    // Everything that was entered is there again.
    EXPECT_EQ(script.statements, QStringList{selectTaken(u"NEW"_s)});
    EXPECT_EQ(rows(), (QStringList{u"A-1"_s, u"A-2"_s, u"A-3"_s}));
    EXPECT_EQ(notes().text(), u"Note"_s);
    EXPECT_EQ(names().currentText(), u"LIST"_s);
    EXPECT_TRUE(names().isEnabled());
    EXPECT_EQ(enabled(), lit);
    EXPECT_FALSE(QApplication::overrideCursor());
    option(u"Model"_s);
    EXPECT_EQ(value().currentText(), u"My model"_s);
}

TEST_F(PackageCommands, CancellingANewPackageDropsItsName) {
    open();
    create(u"NEW"_s);
    script.statements.clear();
    simulatedOperator.expectBox(discardChanges, packagesTitle, box::question, BoxAnswer::no);
    press(u"CommandCancel"_s);
    EXPECT_EQ(names().currentText(), u"NEW"_s);
    simulatedOperator.expectBox(discardChanges, packagesTitle, box::question, BoxAnswer::yes);
    press(u"CommandCancel"_s);
    EXPECT_EQ(script.statements, (QStringList{selectPackage(u"NEW"_s), selectTasks, selectPackage(u"LIST"_s),
                                              selectAssets(u"TAG OF LIST"_s)}));
    EXPECT_EQ(tasks(), QStringList{u"LIST"_s});
    EXPECT_EQ(rows(), (QStringList{u"A-1"_s, u"A-2"_s}));
    EXPECT_EQ(enabled(), (QStringList{u"AddTP"_s, u"RemoveTP"_s, u"Remove"_s}));
}

TEST_F(PackageCommands, ClosingWithANewPackageAsks) {
    open();
    create(u"NEW"_s);
    simulatedOperator.expectBox(discardSinceSave, packagesTitle, box::warningYesNo, BoxAnswer::yes);
    form().close();
    EXPECT_EQ(findChild(u"FormPredefinedTasks"_s), nullptr);
}

// Removing and cancelling.

TEST_F(PackageCommands, RemovingAsksAndShowsTheFirstPackageThatIsLeft) {
    setPackages({{.name = u"O"_s, .letter = u"M"_s, .value = u"X"_s}, {.name = u"LIST"_s, .letter = u"A"_s}});
    open();
    simulatedOperator.expectBox(deletion, packagesTitle, box::question, BoxAnswer::no);
    press(u"CommandRemoveTP"_s);
    EXPECT_TRUE(script.statements.isEmpty());
    simulatedOperator.expectBox(deletion, packagesTitle, box::question, [this](QMessageBox& shown) {
        setPackages({{.name = u"LIST"_s, .letter = u"A"_s}});
        click(*shown.buttons().first());
    });
    press(u"CommandRemoveTP"_s);
    EXPECT_EQ(script.statements, deletes(u"O"_s) + (QStringList{selectTasks, selectPackage(u"LIST"_s),
                                                                selectAssets(u"TAG OF LIST"_s)}));
    EXPECT_EQ(tasks(), QStringList{u"LIST"_s});
    EXPECT_EQ(optionOn(), u"AssetList"_s);
    form().close();
    EXPECT_EQ(findChild(u"FormPredefinedTasks"_s), nullptr);
}

TEST_F(PackageCommands, RemovingTheLastPackageLeavesOnlyAdding) {
    open();
    simulatedOperator.expectBox(deletion, packagesTitle, box::question, [this](QMessageBox& shown) {
        setPackages({});
        click(*shown.buttons().first());
    });
    press(u"CommandRemoveTP"_s);
    EXPECT_EQ(enabled(), QStringList{u"AddTP"_s});
    EXPECT_TRUE(rows().isEmpty());
    cancelDialog();
    press(u"CommandAddTP"_s);
    form().close();
    EXPECT_EQ(findChild(u"FormPredefinedTasks"_s), nullptr);
}

TEST_F(PackageCommands, UnsavedChangesReplaceTheQuestionAboutRemoval) {
    open();
    QTest::keyClicks(&notes(), u"x"_s);
    expectDiscard(BoxAnswer::no);
    press(u"CommandRemoveTP"_s);
    EXPECT_TRUE(script.statements.isEmpty());
    EXPECT_EQ(notes().text(), u"x"_s);
    expectDiscard(BoxAnswer::yes);
    press(u"CommandRemoveTP"_s);
    EXPECT_EQ(script.statements.mid(0, 2), deletes(u"LIST"_s));
}

TEST_F(PackageCommands, AFailureOfEachStatementOfARemovalIsReportedAndThePackageStaysOnTheScreen) {
    open();
    for (const auto& statement : deletes(u"LIST"_s)) {
        script.failures = {{statement, noTable}};
        simulatedOperator.expectBox(deletion, packagesTitle, box::question, BoxAnswer::yes);
        simulatedOperator.expectReport(208, u"FormPredefinedTasks,CommandRemoveTP"_s);
        press(u"CommandRemoveTP"_s);
        EXPECT_EQ(rows(), (QStringList{u"A-1"_s, u"A-2"_s}));
        EXPECT_EQ(script.statements.last(), statement);
        EXPECT_FALSE(QApplication::overrideCursor());
    }
}

TEST_F(PackageCommands, CancelAsksAndLoadsThePackageAgain) {
    open();
    assets().setCurrentRow(1);
    press(u"CommandRemove"_s);
    QTest::keyClicks(&notes(), u"x"_s);
    simulatedOperator.expectBox(discardChanges, packagesTitle, box::question, BoxAnswer::no);
    press(u"CommandCancel"_s);
    EXPECT_EQ(rows(), QStringList{u"A-1"_s});
    simulatedOperator.expectBox(discardChanges, packagesTitle, box::question, BoxAnswer::yes);
    press(u"CommandCancel"_s);
    EXPECT_EQ(script.statements, (QStringList{selectPackage(u"LIST"_s), selectAssets(u"TAG OF LIST"_s)}));
    EXPECT_EQ(rows(), (QStringList{u"A-1"_s, u"A-2"_s}));
    EXPECT_TRUE(notes().text().isEmpty());
    EXPECT_EQ(enabled(), (QStringList{u"AddTP"_s, u"RemoveTP"_s, u"Remove"_s}));
}

TEST_F(PackageCommands, CancelWithoutAChangeDoesNothing) {
    open();
    QTest::keyClicks(&entry(), u"A-3"_s);
    press(u"CommandCancel"_s);
    EXPECT_TRUE(script.statements.isEmpty());
    EXPECT_EQ(entry().text(), u"A-3"_s);
}

TEST_F(PackageCommands, BlanksForANameCancelTheQuestion) {
    open();
    create(u"   "_s);
    EXPECT_EQ(names().currentText(), u"LIST"_s);
    EXPECT_EQ(tasks(), QStringList{u"LIST"_s});
}

} // namespace kelvane::testing
