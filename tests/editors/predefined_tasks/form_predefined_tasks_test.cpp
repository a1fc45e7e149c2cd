#include "editors/predefined_tasks/form_predefined_tasks.h"

#include "tests/editors/predefined_tasks/package_screen.h"
#include "ui/open_windows.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QGroupBox>
#include <QMessageBox>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

using FormPredefinedTasksTest = PackageScreen;

const Error noTable{208, u"no such table"_s};

} // namespace

TEST_F(FormPredefinedTasksTest, HasItsSizePlaceTextsAndFocus) {
    open();
    EXPECT_EQ(form().geometry(), QRect(7, 5, 329, 483));
    EXPECT_EQ(form().windowTitle(), packagesTitle);
    const struct {
        QString name;
        QString text;
    } texts[] = {
        {u"Label1"_s, u"Task Package Name"_s},
        {u"Label2"_s, u"Notes:"_s},
        {u"CommandAddTP"_s, u"Add New"_s},
        {u"CommandRemoveTP"_s, u"Remove"_s},
        {u"OptionAssetList"_s, u"Asset List"_s},
        {u"OptionSQL"_s, u"SQL"_s},
        {u"OptionSegregate"_s, u"Segregate"_s},
        {u"OptionDescription"_s, u"Description"_s},
        {u"OptionModel"_s, u"Model"_s},
        {u"CommandAdd"_s, u"Add"_s},
        {u"Label3"_s, u"Instruments to be Calibrated:"_s},
        {u"CommandRemove"_s, u"Remove Instrument"_s},
        {u"CommandSave"_s, u"Save"_s},
        {u"CommandCancel"_s, u"Cancel"_s},
    };
    for (const auto& text : texts)
        EXPECT_EQ(controlNamed<QWidget>(text.name).property("text").toString(), text.text)
            << text.name.toStdString();
    EXPECT_EQ(controlNamed<QGroupBox>(u"SSPanelIdentification"_s).title(), u"Task Package Identification"_s);
    EXPECT_EQ(controlNamed<QGroupBox>(u"SSPanelDefinition"_s).title(), u"Task Package Definition"_s);
    EXPECT_TRUE(names().hasFocus());
    EXPECT_TRUE(isWindowOpen(session, u"FormPredefinedTasks"));
}

TEST_F(FormPredefinedTasksTest, OpensOnTheFirstPackageInTheOrderOfTheDatabase) {
    setPackages({{.name = u"Z"_s, .letter = u"A"_s, .notes = u"Note\r\nit"_s, .assets = {u"B"_s, u"A"_s}},
                 {.name = u"A"_s, .letter = u"A"_s}});
    choose(u"mnuPredefined"_s);
    EXPECT_EQ(script.statements,
              (QStringList{selectTasks, selectPackage(u"Z"_s), selectAssets(u"TAG OF Z"_s)}));
    EXPECT_TRUE(script.firstRowOnly.contains(selectPackage(u"Z"_s)));
    EXPECT_EQ(tasks(), (QStringList{u"Z"_s, u"A"_s}));
    EXPECT_EQ(names().currentText(), u"Z"_s);
    EXPECT_EQ(notes().text(), u"Note\r\nit"_s);
    EXPECT_EQ(rows(), (QStringList{u"B"_s, u"A"_s}));
    EXPECT_EQ(enabled(), (QStringList{u"AddTP"_s, u"RemoveTP"_s, u"Remove"_s}));
    EXPECT_FALSE(QApplication::overrideCursor());
}

TEST_F(FormPredefinedTasksTest, WithoutPackagesEverythingButAddingIsDisabled) {
    setPackages({});
    choose(u"mnuPredefined"_s);
    EXPECT_EQ(script.statements, QStringList{selectTasks});
    EXPECT_EQ(enabled(), QStringList{u"AddTP"_s});
    for (const auto& name :
         {u"ComboTPName"_s, u"TextNotes"_s, u"OptionAssetList"_s, u"OptionSQL"_s, u"OptionSegregate"_s,
          u"OptionDescription"_s, u"OptionModel"_s, u"TextListEnter"_s, u"ListAssets"_s, u"TextSQL"_s,
          u"ComboSelectList"_s, u"CommandAdd"_s, u"LabelDefinition"_s, u"Label3"_s})
        EXPECT_FALSE(controlNamed<QWidget>(name).isEnabled()) << name.toStdString();
    EXPECT_EQ(optionOn(), u"AssetList"_s);
    EXPECT_TRUE(assets().isVisible());
    EXPECT_FALSE(sql().isVisible());
    EXPECT_FALSE(value().isVisible());
    EXPECT_TRUE(button(u"CommandAddTP"_s).hasFocus());
}

TEST_F(FormPredefinedTasksTest, RemovingAnInstrumentNeedsOneInTheListWhenThePackageIsShown) {
    setPackages({{.name = u"EMPTY"_s, .letter = u"A"_s}});
    open();
    EXPECT_EQ(enabled(), (QStringList{u"AddTP"_s, u"RemoveTP"_s}));
    // The first instrument that is added does not change that.
    add(u"A-1"_s);
    EXPECT_EQ(enabled(), (QStringList{u"AddTP"_s, u"RemoveTP"_s, u"Save"_s, u"Cancel"_s}));
}

// What lights the buttons.

TEST_F(FormPredefinedTasksTest, TypingEnablesSaveAndCancel) {
    const QStringList lit{u"AddTP"_s, u"RemoveTP"_s, u"Save"_s, u"Cancel"_s};
    for (const auto& name : {u"TextNotes"_s, u"TextSQL"_s, u"TextListEnter"_s}) {
        setPackages({{.name = u"P"_s, .letter = name == u"TextSQL"_s ? u"S"_s : u"A"_s}});
        open();
        EXPECT_EQ(enabled(), lit.mid(0, 2));
        auto& field = controlNamed<QWidget>(name);
        field.setFocus();
        QTest::keyClicks(&field, u"x"_s);
        EXPECT_EQ(enabled(), lit) << name.toStdString();
        // An instrument that is not in the list yet is no change of the package.
        if (name != u"TextListEnter"_s)
            simulatedOperator.expectBox(discardSinceSave, packagesTitle, box::warningYesNo, BoxAnswer::yes);
        form().close();
        EXPECT_EQ(findChild(u"FormPredefinedTasks"_s), nullptr);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

// Choosing another package.

TEST_F(FormPredefinedTasksTest, ChoosingAPackageShowsItAndAsksNothingTheFirstTime) {
    setPackages({{.name = u"LIST"_s, .letter = u"A"_s, .notes = u"Note"_s, .assets = {u"A-1"_s}},
                 {.name = u"MODEL"_s, .letter = u"M"_s, .value = u"CLICK"_s},
                 {.name = u"SQL"_s, .letter = u"S"_s, .value = u"select"_s}});
    open();
    pick(names(), u"MODEL"_s);
    EXPECT_EQ(script.statements, (QStringList{selectPackage(u"MODEL"_s), selectModels}));
    EXPECT_TRUE(notes().text().isEmpty());
    EXPECT_TRUE(rows().isEmpty());
    chooseRow(names(), u"SQL"_s);
    EXPECT_EQ(sql().text(), u"select"_s);
    chooseRow(names(), u"LIST"_s);
    EXPECT_EQ(notes().text(), u"Note"_s);
    EXPECT_EQ(enabled(), (QStringList{u"AddTP"_s, u"RemoveTP"_s, u"Remove"_s}));
}

TEST_F(FormPredefinedTasksTest, ChoosingWithAChangeAsksAndNoPutsTheNameBack) {
    setPackages({{.name = u"LIST"_s, .letter = u"A"_s, .assets = {u"A-1"_s}},
                 {.name = u"MODEL"_s, .letter = u"M"_s, .value = u"CLICK"_s}});
    open();
    add(u"A-3"_s);
    script.statements.clear();
    simulatedOperator.expectBox(discardChanges, packagesTitle, box::question, BoxAnswer::no);
    QTest::keyClick(&names(), Qt::Key_Down);
    simulatedOperator.waitUntilAllCame();
    EXPECT_EQ(names().currentText(), u"LIST"_s);
    EXPECT_EQ(rows(), (QStringList{u"A-1"_s, u"A-3"_s}));
    EXPECT_TRUE(script.statements.isEmpty());
    simulatedOperator.expectBox(discardChanges, packagesTitle, box::question, BoxAnswer::yes);
    QTest::keyClick(&names(), Qt::Key_Down);
    simulatedOperator.waitUntilAllCame();
    EXPECT_EQ(names().currentText(), u"MODEL"_s);
    EXPECT_EQ(value().currentText(), u"CLICK"_s);
    EXPECT_FALSE(button(u"CommandSave"_s).isEnabled());
}

TEST_F(FormPredefinedTasksTest, AChosenPackageIsNotChangedByBeingChosen) {
    setPackages({{.name = u"LIST"_s, .letter = u"A"_s, .assets = {u"A-1"_s}},
                 {.name = u"MODEL"_s, .letter = u"M"_s, .value = u"CLICK"_s}});
    open();
    chooseRow(names(), u"MODEL"_s);
    EXPECT_EQ(enabled(), (QStringList{u"AddTP"_s, u"RemoveTP"_s}));
    chooseRow(names(), u"LIST"_s);
    EXPECT_EQ(rows(), QStringList{u"A-1"_s});
    // A change of it counts, though.
    QTest::keyClicks(&notes(), u"x"_s);
    simulatedOperator.expectBox(discardChanges, packagesTitle, box::question, BoxAnswer::no);
    chooseRow(names(), u"MODEL"_s);
    EXPECT_EQ(names().currentText(), u"LIST"_s);
    simulatedOperator.expectBox(discardChanges, packagesTitle, box::question, BoxAnswer::yes);
    chooseRow(names(), u"MODEL"_s);
    form().close();
    EXPECT_EQ(findChild(u"FormPredefinedTasks"_s), nullptr);
}

TEST_F(FormPredefinedTasksTest, AfterASaveACancelOrTheSameChoiceAChosenPackageCountsAsUnchanged) {
    const std::function<void()> ends[] = {
        [this] {
            QTest::keyClicks(&notes(), u"x"_s);
            press(u"CommandSave"_s);
        },
        [this] {
            QTest::keyClicks(&notes(), u"x"_s);
            simulatedOperator.expectBox(discardChanges, packagesTitle, box::question, BoxAnswer::yes);
            press(u"CommandCancel"_s);
        },
        [this] {
            cancelDialog();
            press(u"CommandAddTP"_s);
        },
        [this] { chooseRow(names(), u"MODEL"_s); },
    };
    setPackages(
        {{.name = u"LIST"_s, .letter = u"A"_s}, {.name = u"MODEL"_s, .letter = u"M"_s, .value = u"CLICK"_s}});
    for (const auto& end : ends) {
        open();
        chooseRow(names(), u"MODEL"_s);
        end();
        form().close();
        EXPECT_EQ(findChild(u"FormPredefinedTasks"_s), nullptr);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

TEST_F(FormPredefinedTasksTest, AChosenPackageWhoseNameHasTheSameSumCountsAsUnchanged) {
    setPackages({{.name = u"AB"_s, .letter = u"A"_s}, {.name = u"BA"_s, .letter = u"A"_s}});
    open();
    chooseRow(names(), u"BA"_s);
    chooseRow(names(), u"AB"_s);
    form().close();
    EXPECT_EQ(findChild(u"FormPredefinedTasks"_s), nullptr);
}

TEST_F(FormPredefinedTasksTest, APackageThatHasVanishedBringsTheListAnewAndNothingCountsAsChanged) {
    setPackages({{.name = u"LIST"_s, .letter = u"A"_s}, {.name = u"GONE"_s, .letter = u"A"_s}});
    open();
    setPackages({{.name = u"LIST"_s, .letter = u"A"_s}});
    script.answers.remove(selectPackage(u"GONE"_s));
    QTest::keyClick(&names(), Qt::Key_Down);
    EXPECT_EQ(script.statements, (QStringList{selectPackage(u"GONE"_s), selectTasks, selectPackage(u"LIST"_s),
                                              selectAssets(u"TAG OF LIST"_s)}));
    EXPECT_EQ(tasks(), QStringList{u"LIST"_s});
    EXPECT_EQ(names().currentText(), u"LIST"_s);
    form().close();
    EXPECT_EQ(findChild(u"FormPredefinedTasks"_s), nullptr);
}

TEST_F(FormPredefinedTasksTest, AFirstPackageThatIsListedAndNotFoundIsNotSearchedEndlessly) {
    script.answers.insert(selectTasks, {Row{u"O''Brien"_s}});
    choose(u"mnuPredefined"_s);
    EXPECT_EQ(script.statements, (QStringList{selectTasks, selectPackage(u"O''Brien"_s)}));
    EXPECT_EQ(names().currentText(), u"O''Brien"_s);
}

TEST_F(FormPredefinedTasksTest, AFirstPackageWithoutANameLeavesTheScreenDisabled) {
    setPackages({{.name = u""_s, .letter = u"A"_s}, {.name = u"P"_s, .letter = u"A"_s}});
    choose(u"mnuPredefined"_s);
    EXPECT_EQ(script.statements, QStringList{selectTasks});
    EXPECT_EQ(enabled(), QStringList{u"AddTP"_s});
}

// Loading that fails.

TEST_F(FormPredefinedTasksTest, AFailureWhileOpeningOpensAnEmptyScreen) {
    script.failures.insert(selectTasks, noTable);
    simulatedOperator.expectReport(208, u"FormPredefinedTasks,LoadTasks"_s);
    open();
    EXPECT_EQ(enabled(), QStringList{u"AddTP"_s});
    EXPECT_FALSE(QApplication::overrideCursor());
}

TEST_F(FormPredefinedTasksTest, APackageThatCantBeReadIsShownEmptyAndNothingCanBeEnteredOverIt) {
    for (const auto& statement : {selectPackage(u"LIST"_s), selectAssets(u"TAG OF LIST"_s)}) {
        script.failures = {{statement, noTable}};
        simulatedOperator.expectReport(208, u"FormPredefinedTasks,LoadPackage"_s);
        open();
        EXPECT_EQ(names().currentText(), u"LIST"_s);
        EXPECT_TRUE(rows().isEmpty());
        EXPECT_EQ(enabled(), (QStringList{u"AddTP"_s, u"RemoveTP"_s}));
        for (auto* field :
             std::initializer_list<QWidget*>{&notes(), &entry(), &assets(), &button(u"CommandAdd"_s)})
            EXPECT_FALSE(field->isEnabled());
        // Chosen once more, it may be read.
        script.failures.clear();
        QTest::keyClick(&names(), Qt::Key_F4);
        QTest::keyClick(names().view(), Qt::Key_Return);
        EXPECT_EQ(rows(), (QStringList{u"A-1"_s, u"A-2"_s}));
        EXPECT_TRUE(notes().isEnabled());
        EXPECT_TRUE(button(u"CommandRemove"_s).isEnabled());
        form().close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

TEST_F(FormPredefinedTasksTest, NothingCanBeEnteredWhereTheListAnewBeginsWithAPackageThatCantBeRead) {
    setPackages({{.name = u"LIST"_s, .letter = u"A"_s}, {.name = u"GONE"_s, .letter = u"A"_s}});
    open();
    script.answers.remove(selectPackage(u"GONE"_s));
    script.failures.insert(selectPackage(u"LIST"_s), noTable);
    simulatedOperator.expectReport(208, u"FormPredefinedTasks,LoadPackage"_s);
    chooseRow(names(), u"GONE"_s);
    EXPECT_EQ(names().currentText(), u"LIST"_s);
    EXPECT_FALSE(notes().isEnabled());
}

TEST_F(FormPredefinedTasksTest, ANewPackageIsOpenForEntriesAfterOneThatCouldNotBeRead) {
    script.failures.insert(selectPackage(u"LIST"_s), noTable);
    simulatedOperator.expectReport(208, u"FormPredefinedTasks,LoadPackage"_s);
    open();
    create(u"NEW"_s);
    add(u"A-1"_s);
    press(u"CommandSave"_s);
    EXPECT_TRUE(notes().isEnabled());
    EXPECT_EQ(enabled(), (QStringList{u"AddTP"_s, u"RemoveTP"_s, u"Remove"_s}));
}

TEST_F(FormPredefinedTasksTest, ANameWithAQuoteCantBeLoadedButCanBeRemoved) {
    setPackages({{.name = u"LIST"_s, .letter = u"A"_s}, {.name = u"O'B"_s, .letter = u"A"_s}});
    open();
    simulatedOperator.expectReport(1, u"FormPredefinedTasks,LoadPackage"_s);
    QTest::keyClick(&names(), Qt::Key_Down);
    simulatedOperator.waitUntilAllCame();
    EXPECT_EQ(names().currentText(), u"O'B"_s);
    EXPECT_EQ(script.statements, QStringList());
    simulatedOperator.expectBox(u"Are you sure you want to delete the selected task package?"_s,
                                packagesTitle, box::question, BoxAnswer::yes);
    press(u"CommandRemoveTP"_s);
    EXPECT_EQ(script.statements.mid(0, 2), deletes(u"O'B"_s));
}

// Closing.

TEST_F(FormPredefinedTasksTest, ClosingAsksOnlyWithAChangeAndKeepsThePosition) {
    open();
    QTest::keyClicks(&notes(), u"x"_s);
    simulatedOperator.expectBox(discardSinceSave, packagesTitle, box::warningYesNo, BoxAnswer::no);
    form().close();
    EXPECT_TRUE(isWindowOpen(session, u"FormPredefinedTasks"));
    QTest::keyClick(&notes(), Qt::Key_Backspace);
    form().close();
    EXPECT_FALSE(isWindowOpen(session, u"FormPredefinedTasks"));
    EXPECT_TRUE(settings.writes.contains(u"Left/FormPredefinedTasks=105"_s));
    EXPECT_TRUE(settings.writes.contains(u"Top/FormPredefinedTasks=75"_s));
}

TEST_F(FormPredefinedTasksTest, AnotherOrderOfTheListIsNoChange) {
    open();
    assets().setCurrentRow(0);
    press(u"CommandRemove"_s);
    add(u"A-1"_s);
    EXPECT_EQ(rows(), (QStringList{u"A-2"_s, u"A-1"_s}));
    form().close();
    EXPECT_EQ(findChild(u"FormPredefinedTasks"_s), nullptr);
}

TEST_F(FormPredefinedTasksTest, WhileAQuestionIsOpenNothingIsDoneTwice) {
    open();
    QTest::keyClicks(&notes(), u"x"_s);
    simulatedOperator.expectBox(
        discardSinceSave, packagesTitle, box::warningYesNo, [this](QMessageBox& shown) {
            form().close();
            for (const auto& name :
                 {u"CommandSave"_s, u"CommandCancel"_s, u"CommandRemoveTP"_s, u"CommandAddTP"_s})
                button(name).click();
            EXPECT_TRUE(script.statements.isEmpty());
            QTest::keyClick(&shown, Qt::Key_Escape);
        });
    form().close();
    EXPECT_NE(findChild(u"FormPredefinedTasks"_s), nullptr);
    EXPECT_EQ(notes().text(), u"x"_s);
}

TEST_F(FormPredefinedTasksTest, TenThousandPackagesAndModelsOpenAtOnce) {
    QList<StoredPackage> many;
    QList<Row> models;
    for (int i = 0; i < 10000; ++i) {
        many << StoredPackage{.name = u"PACKAGE %1"_s.arg(i), .letter = u"M"_s, .value = u"MODEL 7"_s};
        models << Row{u"MODEL %1"_s.arg(i)};
    }
    setPackages(many);
    script.answers.insert(selectModels, models);
    open();
    EXPECT_EQ(names().count(), 10000);
    EXPECT_EQ(value().count(), 10000);
    EXPECT_EQ(value().currentText(), u"MODEL 7"_s);
    EXPECT_EQ(form().width(), 329);
}

} // namespace kelvane::testing
