#include "editors/form_predefined_tasks.h"

#include "tests/editors/package_screen.h"

#include <QApplication>
#include <QClipboard>
#include <QGroupBox>
#include <QLabel>
#include <QMessageBox>
#include <QRadioButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

using FormPredefinedTasksTest = PackageScreen;

const Error noTable{208, u"no such table"_s};
const QString listControls = u"TextListEnter CommandAdd CommandRemove ListAssets Label3"_s;

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
    for (const auto& one : texts)
        EXPECT_EQ(the<QWidget>(one.name).property("text").toString(), one.text) << one.name.toStdString();
    EXPECT_EQ(the<QGroupBox>(u"SSPanelIdentification"_s).title(), u"Task Package Identification"_s);
    EXPECT_EQ(the<QGroupBox>(u"SSPanelDefinition"_s).title(), u"Task Package Definition"_s);
    EXPECT_TRUE(names().hasFocus());
    EXPECT_TRUE(session.openFlag(ChildForm::FormPredefinedTasks));
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
        EXPECT_FALSE(the<QWidget>(name).isEnabled()) << name.toStdString();
    EXPECT_EQ(optionOn(), u"AssetList"_s);
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

/// How a package of each kind comes up.
struct ShownKind {
    const char* name;
    QString letter;
    QString option;
    QString visible;
    QString label;
    QString choices;
};

void PrintTo(const ShownKind& kind, std::ostream* out) {
    *out << kind.name;
}

class KindsOfPackages : public PackageScreen, public ::testing::WithParamInterface<ShownKind> {};

TEST_P(KindsOfPackages, ShowTheirOptionTheirValueAndTheControlsOfTheirDefinition) {
    const auto& kind = GetParam();
    setPackages({{.name = u"P"_s, .letter = kind.letter, .value = u"Value"_s, .assets = {u"A-1"_s}}});
    open();
    EXPECT_EQ(optionOn(), kind.option);
    for (const auto& name : (u"TextSQL ComboSelectList "_s + listControls).split(u' '))
        EXPECT_EQ(the<QWidget>(name).isVisible(), kind.visible.split(u' ').contains(name))
            << name.toStdString();
    EXPECT_EQ(the<QLabel>(u"LabelDefinition"_s).text(), kind.label);
    EXPECT_EQ(rows(), kind.letter == u"A"_s ? QStringList{u"A-1"_s} : QStringList());
    EXPECT_EQ(sql().text(), kind.letter == u"S"_s ? u"Value"_s : QString());
    EXPECT_EQ(value().currentText(), kind.choices.isEmpty() ? QString() : u"Value"_s);
    EXPECT_EQ(choices().join(u' '), kind.choices);
    EXPECT_FALSE(button(u"CommandSave"_s).isEnabled());
    // What the load put there is no change.
    form().close();
    EXPECT_EQ(findChild(u"FormPredefinedTasks"_s), nullptr);
}

TEST_P(KindsOfPackages, AreShownAlikeByAClickOnTheOption) {
    const auto& kind = GetParam();
    setPackages({{.name = u"P"_s, .letter = kind.letter == u"A"_s ? u"S"_s : u"A"_s, .assets = {u"A-1"_s}}});
    open();
    option(kind.option);
    for (const auto& name : (u"TextSQL ComboSelectList "_s + listControls).split(u' '))
        EXPECT_EQ(the<QWidget>(name).isVisible(), kind.visible.split(u' ').contains(name))
            << name.toStdString();
    EXPECT_EQ(the<QLabel>(u"LabelDefinition"_s).text(), kind.label);
    EXPECT_EQ(choices().join(u' '), kind.choices);
    EXPECT_TRUE(value().currentText().isEmpty());
    // A click alone lights nothing, though closing notices the change.
    EXPECT_FALSE(button(u"CommandSave"_s).isEnabled());
    EXPECT_FALSE(button(u"CommandCancel"_s).isEnabled());
    person.expectBox(discardSinceSave, packagesTitle, box::warningYesNo, BoxAnswer::no);
    form().close();
    EXPECT_NE(findChild(u"FormPredefinedTasks"_s), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    All, KindsOfPackages,
    ::testing::Values(
        ShownKind{"list", u"A"_s, u"AssetList"_s, listControls, u"Instrument (UUT) To Add To List:"_s, {}},
        ShownKind{"sql", u"S"_s, u"SQL"_s, u"TextSQL"_s, u"SQL Statement To Execute:"_s, {}},
        ShownKind{"segregate", u"G"_s, u"Segregate"_s, u"ComboSelectList"_s, u"Segregate To Use:"_s,
                  u"LAB UTIL"_s},
        ShownKind{"description", u"D"_s, u"Description"_s, u"ComboSelectList"_s, u"Description To Use:"_s,
                  u"GAUGE WRENCH"_s},
        ShownKind{"model", u"M"_s, u"Model"_s, u"ComboSelectList"_s, u"Model To Use:"_s, u"CLICK"_s}),
    [](const auto& one) { return std::string(one.param.name); });

TEST_F(FormPredefinedTasksTest, ClicksOnListAndSqlPutTheFocusIntoTheirEntry) {
    open();
    option(u"SQL"_s);
    EXPECT_TRUE(sql().hasFocus());
    option(u"AssetList"_s);
    EXPECT_TRUE(entry().hasFocus());
    option(u"Model"_s);
    EXPECT_TRUE(the<QRadioButton>(u"OptionModel"_s).hasFocus());
    // The arrow keys choose like the mouse does.
    QTest::keyClick(&the<QRadioButton>(u"OptionModel"_s), Qt::Key_Left);
    EXPECT_EQ(optionOn(), u"Description"_s);
    EXPECT_EQ(choices(), (QStringList{u"GAUGE"_s, u"WRENCH"_s}));
}

TEST_F(FormPredefinedTasksTest, AnUnknownLetterOrNoneLeavesTheOptionAsItWas) {
    setPackages({{.name = u"MODEL"_s, .letter = u"M"_s, .value = u"CLICK"_s},
                 {.name = u"ODD"_s, .letter = u"Q"_s, .notes = u"Odd"_s},
                 {.name = u"SMALL"_s, .letter = u"a"_s},
                 {.name = u"NONE"_s}});
    open();
    for (const auto& name : {u"ODD"_s, u"SMALL"_s, u"NONE"_s}) {
        pick(names(), name);
        EXPECT_EQ(optionOn(), u"Model"_s) << name.toStdString();
        EXPECT_TRUE(value().currentText().isEmpty());
        EXPECT_TRUE(value().isVisible());
    }
    EXPECT_EQ(script.statements.last(), selectPackage(u"NONE"_s));
}

// The values of the three kinds that are chosen from a list.

TEST_F(FormPredefinedTasksTest, FlippingBetweenOptionsBringsBackWhatWasTyped) {
    open();
    option(u"Segregate"_s);
    EXPECT_EQ(script.statements, QStringList{selectSegregates});
    typeValue(u"my group"_s);
    option(u"Description"_s);
    EXPECT_TRUE(value().currentText().isEmpty());
    typeValue(u"my gauge"_s);
    option(u"Model"_s);
    EXPECT_TRUE(value().currentText().isEmpty());
    typeValue(u"my model"_s);
    option(u"SQL"_s);
    option(u"Segregate"_s);
    EXPECT_EQ(value().currentText(), u"my group"_s);
    option(u"Description"_s);
    EXPECT_EQ(value().currentText(), u"my gauge"_s);
    option(u"Model"_s);
    EXPECT_EQ(value().currentText(), u"my model"_s);
    // A click on the option that is on already keeps the text too.
    typeValue(u"another"_s);
    option(u"Model"_s);
    EXPECT_EQ(value().currentText(), u"another"_s);
}

TEST_F(FormPredefinedTasksTest, ALoadedValueIsTheLastOneOfItsOwnKind) {
    setPackages({{.name = u"G"_s, .letter = u"G"_s, .value = u"UTIL"_s},
                 {.name = u"D"_s, .letter = u"D"_s, .value = u"WRENCH"_s}});
    open();
    EXPECT_EQ(value().currentText(), u"UTIL"_s);
    pick(names(), u"D"_s);
    EXPECT_EQ(value().currentText(), u"WRENCH"_s);
    option(u"Segregate"_s);
    EXPECT_EQ(value().currentText(), u"UTIL"_s);
    option(u"Description"_s);
    EXPECT_EQ(value().currentText(), u"WRENCH"_s);
}

TEST_F(FormPredefinedTasksTest, AValueMayBeChosenOrTypedAndLightsOnlySave) {
    setPackages({{.name = u"G"_s, .letter = u"G"_s, .value = u"UTIL"_s}});
    open();
    typeValue(u"lab"_s);
    // What is typed is not made into a row that is written otherwise.
    QTest::keyClick(value().lineEdit(), Qt::Key_Tab);
    EXPECT_EQ(value().currentText(), u"lab"_s);
    EXPECT_EQ(enabled(), (QStringList{u"AddTP"_s, u"RemoveTP"_s, u"Save"_s}));
    value().setFocus();
    QTest::keyClick(&value(), Qt::Key_Up);
    QTest::keyClick(&value(), Qt::Key_Up);
    EXPECT_EQ(value().currentText(), u"LAB"_s);
    EXPECT_EQ(enabled(), (QStringList{u"AddTP"_s, u"RemoveTP"_s, u"Save"_s}));
}

TEST_F(FormPredefinedTasksTest, LookingAtALoadedValueLightsNothing) {
    setPackages({{.name = u"G"_s, .letter = u"G"_s, .value = u"UTIL"_s}});
    open();
    value().setFocus();
    QTest::keyClick(value().lineEdit(), Qt::Key_Tab);
    EXPECT_FALSE(value().hasFocus());
    EXPECT_FALSE(button(u"CommandSave"_s).isEnabled());
}

TEST_F(FormPredefinedTasksTest, AnOptionThatCantReadItsListKeepsTheTextsApart) {
    const struct {
        QString option;
        QString statement;
        QString routine;
    } rows[] = {
        {u"Segregate"_s, selectSegregates, u"FormPredefinedTasks,OptionSegregate-Click"_s},
        {u"Description"_s, selectDescriptions, u"FormPredefinedTasks,OptionModel-Click"_s},
        {u"Model"_s, selectModels, u"FormPredefinedTasks,OptionModel-Click"_s},
    };
    open();
    for (const auto& one : rows) {
        script.failures = {{one.statement, noTable}};
        person.expectReport(208, one.routine);
        option(one.option);
        person.waitUntilAllCame();
        EXPECT_TRUE(choices().isEmpty());
        EXPECT_TRUE(value().isVisible());
        typeValue(one.option);
    }
    script.failures.clear();
    for (const auto& one : rows) {
        option(one.option);
        EXPECT_EQ(value().currentText(), one.option);
    }
    EXPECT_FALSE(QApplication::overrideCursor());
}

// What lights the buttons.

TEST_F(FormPredefinedTasksTest, TypingLightsSaveAndCancel) {
    const QStringList lit{u"AddTP"_s, u"RemoveTP"_s, u"Save"_s, u"Cancel"_s};
    for (const auto& name : {u"TextNotes"_s, u"TextSQL"_s, u"TextListEnter"_s}) {
        setPackages({{.name = u"P"_s, .letter = name == u"TextSQL"_s ? u"S"_s : u"A"_s}});
        open();
        EXPECT_EQ(enabled(), lit.mid(0, 2));
        auto& field = the<QWidget>(name);
        field.setFocus();
        QTest::keyClicks(&field, u"x"_s);
        EXPECT_EQ(enabled(), lit) << name.toStdString();
        // An instrument that is not in the list yet is no change of the package.
        if (name != u"TextListEnter"_s)
            person.expectBox(discardSinceSave, packagesTitle, box::warningYesNo, BoxAnswer::yes);
        form().close();
        EXPECT_EQ(findChild(u"FormPredefinedTasks"_s), nullptr);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

// Choosing another package.

TEST_F(FormPredefinedTasksTest, ChoosingAPackageShowsItAndAsksNothingWithoutAChange) {
    setPackages({{.name = u"LIST"_s, .letter = u"A"_s, .notes = u"Note"_s, .assets = {u"A-1"_s}},
                 {.name = u"MODEL"_s, .letter = u"M"_s, .value = u"CLICK"_s},
                 {.name = u"SQL"_s, .letter = u"S"_s, .value = u"select"_s}});
    open();
    pick(names(), u"MODEL"_s);
    EXPECT_EQ(script.statements, (QStringList{selectPackage(u"MODEL"_s), selectModels}));
    EXPECT_TRUE(notes().text().isEmpty());
    EXPECT_TRUE(rows().isEmpty());
    pick(names(), u"SQL"_s);
    EXPECT_EQ(sql().text(), u"select"_s);
    pick(names(), u"LIST"_s);
    EXPECT_EQ(notes().text(), u"Note"_s);
    EXPECT_EQ(enabled(), (QStringList{u"AddTP"_s, u"RemoveTP"_s, u"Remove"_s}));
}

TEST_F(FormPredefinedTasksTest, ChoosingWithAChangeAsksAndNoPutsTheNameBack) {
    setPackages({{.name = u"LIST"_s, .letter = u"A"_s, .assets = {u"A-1"_s}},
                 {.name = u"MODEL"_s, .letter = u"M"_s, .value = u"CLICK"_s}});
    open();
    add(u"A-3"_s);
    script.statements.clear();
    person.expectBox(discardChanges, packagesTitle, box::question, BoxAnswer::no);
    QTest::keyClick(&names(), Qt::Key_Down);
    person.waitUntilAllCame();
    EXPECT_EQ(names().currentText(), u"LIST"_s);
    EXPECT_EQ(rows(), (QStringList{u"A-1"_s, u"A-3"_s}));
    EXPECT_TRUE(script.statements.isEmpty());
    person.expectBox(discardChanges, packagesTitle, box::question, BoxAnswer::yes);
    QTest::keyClick(&names(), Qt::Key_Down);
    person.waitUntilAllCame();
    EXPECT_EQ(names().currentText(), u"MODEL"_s);
    EXPECT_EQ(value().currentText(), u"CLICK"_s);
    EXPECT_FALSE(button(u"CommandSave"_s).isEnabled());
}

TEST_F(FormPredefinedTasksTest, APackageThatHasVanishedBringsTheListAnew) {
    setPackages({{.name = u"LIST"_s, .letter = u"A"_s}, {.name = u"GONE"_s, .letter = u"A"_s}});
    open();
    setPackages({{.name = u"LIST"_s, .letter = u"A"_s}});
    script.answers.remove(selectPackage(u"GONE"_s));
    QTest::keyClick(&names(), Qt::Key_Down);
    EXPECT_EQ(script.statements, (QStringList{selectPackage(u"GONE"_s), selectTasks, selectPackage(u"LIST"_s),
                                              selectAssets(u"TAG OF LIST"_s)}));
    EXPECT_EQ(tasks(), QStringList{u"LIST"_s});
    EXPECT_EQ(names().currentText(), u"LIST"_s);
}

TEST_F(FormPredefinedTasksTest, AFirstPackageThatIsListedAndNotFoundIsNotSoughtWithoutEnd) {
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
    person.expectReport(208, u"FormPredefinedTasks,LoadTasks"_s);
    open();
    EXPECT_EQ(enabled(), QStringList{u"AddTP"_s});
    EXPECT_FALSE(QApplication::overrideCursor());
}

TEST_F(FormPredefinedTasksTest, AFailureOfEitherStatementOfAPackageShowsItEmpty) {
    for (const auto& statement : {selectPackage(u"LIST"_s), selectAssets(u"TAG OF LIST"_s)}) {
        script.failures = {{statement, noTable}};
        person.expectReport(208, u"FormPredefinedTasks,LoadPackage"_s);
        open();
        EXPECT_EQ(names().currentText(), u"LIST"_s);
        EXPECT_TRUE(rows().isEmpty());
        EXPECT_EQ(enabled(), (QStringList{u"AddTP"_s, u"RemoveTP"_s}));
        form().close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

TEST_F(FormPredefinedTasksTest, ANameWithAQuoteCantBeLoadedButCanBeRemoved) {
    setPackages({{.name = u"LIST"_s, .letter = u"A"_s}, {.name = u"O'B"_s, .letter = u"A"_s}});
    open();
    script.failures.insert(selectPackage(u"O'B"_s), Error{1, u"near \"B\""_s});
    person.expectReport(1, u"FormPredefinedTasks,LoadPackage"_s);
    QTest::keyClick(&names(), Qt::Key_Down);
    person.waitUntilAllCame();
    EXPECT_EQ(names().currentText(), u"O'B"_s);
    script.statements.clear();
    person.expectBox(u"Are you sure you want to delete the selected task package?"_s, packagesTitle,
                     box::question, BoxAnswer::yes);
    click(u"CommandRemoveTP"_s);
    EXPECT_EQ(script.statements.mid(0, 2), deletes(u"O'B"_s));
}

// Closing.

TEST_F(FormPredefinedTasksTest, ClosingAsksOnlyWithAChangeAndKeepsThePosition) {
    open();
    QTest::keyClicks(&notes(), u"x"_s);
    person.expectBox(discardSinceSave, packagesTitle, box::warningYesNo, BoxAnswer::no);
    form().close();
    EXPECT_TRUE(session.openFlag(ChildForm::FormPredefinedTasks));
    QTest::keyClick(&notes(), Qt::Key_Backspace);
    form().close();
    EXPECT_FALSE(session.openFlag(ChildForm::FormPredefinedTasks));
    EXPECT_TRUE(settings.writes.contains(u"Left/FormPredefinedTasks=105"_s));
    EXPECT_TRUE(settings.writes.contains(u"Top/FormPredefinedTasks=75"_s));
}

TEST_F(FormPredefinedTasksTest, AnotherOrderOfTheListIsNoChange) {
    open();
    assets().setCurrentRow(0);
    click(u"CommandRemove"_s);
    add(u"A-1"_s);
    EXPECT_EQ(rows(), (QStringList{u"A-2"_s, u"A-1"_s}));
    form().close();
    EXPECT_EQ(findChild(u"FormPredefinedTasks"_s), nullptr);
}

TEST_F(FormPredefinedTasksTest, WhileAQuestionIsOpenNothingIsDoneTwice) {
    open();
    QTest::keyClicks(&notes(), u"x"_s);
    person.expectBox(discardSinceSave, packagesTitle, box::warningYesNo, [this](QMessageBox& shown) {
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
