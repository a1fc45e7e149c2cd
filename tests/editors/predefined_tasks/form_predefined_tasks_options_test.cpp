#include "editors/predefined_tasks/form_predefined_tasks.h"

#include "tests/editors/predefined_tasks/package_screen.h"

#include <QApplication>
#include <QLabel>
#include <QRadioButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString listControls = u"TextListEnter CommandAdd CommandRemove ListAssets Label3"_s;

} // namespace

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
        EXPECT_EQ(controlNamed<QWidget>(name).isVisible(), kind.visible.split(u' ').contains(name))
            << name.toStdString();
    EXPECT_EQ(controlNamed<QLabel>(u"LabelDefinition"_s).text(), kind.label);
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
        EXPECT_EQ(controlNamed<QWidget>(name).isVisible(), kind.visible.split(u' ').contains(name))
            << name.toStdString();
    EXPECT_EQ(controlNamed<QLabel>(u"LabelDefinition"_s).text(), kind.label);
    EXPECT_EQ(choices().join(u' '), kind.choices);
    EXPECT_TRUE(value().currentText().isEmpty());
    // A click alone lights nothing, though closing notices the change.
    EXPECT_FALSE(button(u"CommandSave"_s).isEnabled());
    EXPECT_FALSE(button(u"CommandCancel"_s).isEnabled());
    simulatedOperator.expectBox(discardSinceSave, packagesTitle, box::warningYesNo, BoxAnswer::no);
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
    [](const auto& tested) { return std::string(tested.param.name); });

/// The options of a package's definition, and the values that belong to them.
class PackageOptions : public PackageScreen {};

TEST_F(PackageOptions, ClicksOnListAndSqlPutTheFocusIntoTheirEntry) {
    open();
    option(u"SQL"_s);
    EXPECT_TRUE(sql().hasFocus());
    EXPECT_TRUE(button(u"CommandSave"_s).isDefault());
    EXPECT_FALSE(button(u"CommandAdd"_s).isDefault());
    option(u"AssetList"_s);
    EXPECT_TRUE(entry().hasFocus());
    EXPECT_FALSE(button(u"CommandAdd"_s).isDefault());
    EXPECT_TRUE(button(u"CommandSave"_s).isDefault());
    option(u"Model"_s);
    EXPECT_TRUE(controlNamed<QRadioButton>(u"OptionModel"_s).hasFocus());
    // The arrow keys choose like the mouse does.
    QTest::keyClick(&controlNamed<QRadioButton>(u"OptionModel"_s), Qt::Key_Left);
    EXPECT_EQ(optionOn(), u"Description"_s);
    EXPECT_EQ(choices(), (QStringList{u"GAUGE"_s, u"WRENCH"_s}));
}

TEST_F(PackageOptions, ALoadLeavesTheFocusWithTheListOfPackages) {
    setPackages({{.name = u"LIST"_s, .letter = u"A"_s}, {.name = u"SQL"_s, .letter = u"S"_s}});
    open();
    EXPECT_TRUE(names().hasFocus());
    chooseRow(names(), u"SQL"_s);
    EXPECT_TRUE(sql().isVisible());
    EXPECT_TRUE(names().hasFocus());
}

TEST_F(PackageOptions, AnUnknownLetterOrNoneLeavesTheOptionAsItWas) {
    setPackages({{.name = u"MODEL"_s, .letter = u"M"_s, .value = u"CLICK"_s},
                 {.name = u"ODD"_s, .letter = u"Q"_s, .notes = u"Odd"_s},
                 {.name = u"SMALL"_s, .letter = u"a"_s},
                 {.name = u"NONE"_s}});
    open();
    for (const auto& name : {u"ODD"_s, u"SMALL"_s, u"NONE"_s}) {
        chooseRow(names(), name);
        EXPECT_EQ(optionOn(), u"Model"_s) << name.toStdString();
        EXPECT_TRUE(value().currentText().isEmpty());
        EXPECT_TRUE(value().isVisible());
    }
    EXPECT_EQ(script.statements.last(), selectPackage(u"NONE"_s));
}

// The values of the three kinds that are chosen from a list.

TEST_F(PackageOptions, FlippingBetweenOptionsBringsBackWhatWasTyped) {
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

TEST_F(PackageOptions, ALoadedValueIsTheLastOneOfItsOwnKind) {
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

TEST_F(PackageOptions, AValueMayBeChosenOrTypedAndEnablesOnlySave) {
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

TEST_F(PackageOptions, ChoosingTheValueThatIsSelectedEnablesSaveToo) {
    setPackages({{.name = u"G"_s, .letter = u"G"_s, .value = u"UTIL"_s}});
    open();
    chooseRow(value(), u"UTIL"_s);
    EXPECT_EQ(enabled(), (QStringList{u"AddTP"_s, u"RemoveTP"_s, u"Save"_s}));
}

TEST_F(PackageOptions, ViewingALoadedValueEnablesNothing) {
    setPackages({{.name = u"G"_s, .letter = u"G"_s, .value = u"UTIL"_s}});
    open();
    value().setFocus();
    QTest::keyClick(value().lineEdit(), Qt::Key_Tab);
    EXPECT_FALSE(value().hasFocus());
    EXPECT_FALSE(button(u"CommandSave"_s).isEnabled());
}

TEST_F(PackageOptions, AnOptionThatCantReadItsListKeepsTheTextsApart) {
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
    for (const auto& row : rows) {
        script.failures = {{row.statement, Error{208, u"no such table"_s}}};
        simulatedOperator.expectReport(208, row.routine);
        option(row.option);
        simulatedOperator.waitUntilAllCame();
        EXPECT_TRUE(choices().isEmpty());
        EXPECT_TRUE(value().isVisible());
        typeValue(row.option);
    }
    simulatedOperator.expectReport(208, rows[1].routine);
    script.failures = {{selectDescriptions, Error{208, u"no such table"_s}}};
    option(u"Description"_s);
    EXPECT_EQ(value().currentText(), u"Description"_s);
    script.failures.clear();
    for (const auto& row : rows) {
        option(row.option);
        EXPECT_EQ(value().currentText(), row.option);
    }
    EXPECT_FALSE(QApplication::overrideCursor());
}

} // namespace kelvane::testing
