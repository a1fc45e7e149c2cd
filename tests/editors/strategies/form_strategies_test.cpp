#include "tests/editors/strategies/strategies_fixture.h"
#include "ui/open_windows.h"

#include <QApplication>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST_F(StrategiesTest, HasItsPlaceTextsAndToolTips) {
    open();
    EXPECT_EQ(screen.form().pos(), QPoint(7, 5));
    EXPECT_EQ(screen.form().height(), 464);
    // 306 pixels are given; the longest of the pre-defined rows needs some more in these letters.
    EXPECT_GE(screen.form().width(), 306);
    EXPECT_LE(screen.form().width(), 320);
    EXPECT_EQ(screen.form().windowTitle(), u"Test Points/Strategies"_s);
    const struct {
        QString name;
        QString text;
        QString toolTip;
    } texts[] = {
        {u"Label1"_s, u"Test strategy name"_s, {}},
        {u"ComboTSNames"_s, {}, u"Select a test strategy from this list"_s},
        {u"CommandAdd"_s, u"Add new test strategy"_s, u"Add a new test strategy"_s},
        {u"CommandRename"_s, u"Rename Test Strategy"_s, u"Rename this test strategy"_s},
        {u"CommandDeleteTS"_s, u"Delete test strategy"_s, u"Delete this test strategy"_s},
        {u"CommandSave"_s, u"Save test strategy"_s, u"Save this test strategy"_s},
        {u"Label2"_s, u"Pre-defined test strategies"_s, {}},
        {u"ComboPreDef"_s, {}, u"Select a pre-defined test strategy from this list (optional)"_s},
        {u"Label3"_s, u"Test points (expressed in %)"_s, {}},
        {u"ListPoints"_s, {}, u"List of test points (in order) that will be performed"_s},
        {u"CommandAddTP"_s, u"Add new test point"_s, u"Add a new test point to the list"_s},
        {u"CommandModify"_s, u"Modify test point"_s, u"Modify an existing test point"_s},
        {u"CommandDeletePoint"_s, u"Delete test point"_s, u"Delete the selected test point"_s},
        {u"CommandMoveUp"_s, u""_s, u"Make the selected test point occur earlier in the calibration"_s},
        {u"CommandMoveDown"_s, u""_s, u"Make the selected test point occur later in the calibration"_s},
        {u"CommandCancel"_s, u"Cancel changes"_s, u"Cancel changes made to this test strategy"_s},
    };
    for (const auto& text : texts) {
        const auto& shown = control<QWidget>(screen.form(), text.name);
        EXPECT_EQ(shown.property("text").toString(), text.text) << text.name.toStdString();
        EXPECT_EQ(shown.toolTip(), text.toolTip) << text.name.toStdString();
    }
    EXPECT_EQ(screen.predefined().count(), 14);
    EXPECT_EQ(screen.predefined().currentText(), u" "_s);
}

TEST_F(StrategiesTest, OpensWithTheFirstStrategyItsPointsInTheirOrderAndNothingToSave) {
    screen.open(session);
    EXPECT_EQ(statements(), loadOf(u""_s, u"FIVE"_s));
    EXPECT_EQ(script.firstRowOnly, QStringList{selectName(u""_s)});
    EXPECT_EQ(screen.allNames(), (QStringList{u"FIVE"_s, u"UP DOWN"_s}));
    EXPECT_EQ(screen.name(), u"FIVE"_s);
    EXPECT_EQ(screen.points(), (QStringList{u"0"_s, u"25"_s, u"50"_s, u"75"_s, u"100"_s}));
    EXPECT_EQ(screen.enabled(), idle);
    EXPECT_TRUE(screen.names().hasFocus());
    EXPECT_TRUE(isWindowOpen(session, u"FormStrategies"));
    EXPECT_FALSE(ui.busy);
    // The hourglass shows while it loads, and while the sum is taken at the end of that.
    EXPECT_EQ(ui.events,
              (QStringList{u"busy"_s, u"busy"_s, u"busy"_s, u"normal"_s, u"normal"_s, u"normal"_s}));
}

TEST_F(StrategiesTest, ADatabaseWithoutStrategiesLeavesOnlyAddAndTheEmptyList) {
    script.answers.clear();
    screen.open(session);
    EXPECT_EQ(statements(), loadOf(u""_s));
    EXPECT_EQ(screen.enabled(), (QStringList{u"ComboTSNames"_s, u"CommandAdd"_s}));
    EXPECT_EQ(screen.allNames(), QStringList());
    EXPECT_EQ(screen.points(), QStringList());
    EXPECT_TRUE(screen.button(u"CommandAdd"_s).hasFocus());
    screen.close();
    EXPECT_FALSE(screen.isOpen());
}

TEST_F(StrategiesTest, AnEmptyNameMeansTheFirstStrategyThoughThereBeOneOfThatName) {
    script.answers[selectName(u""_s)] = {Row{u""_s}};
    open();
    EXPECT_EQ(screen.name(), u"FIVE"_s);
    EXPECT_EQ(screen.points().size(), 5);
}

TEST_F(StrategiesTest, APointIsShownAsItComes) {
    script.answers[selectPoints(u"FIVE"_s)] = {Row{u"0.00"_s}, Row{u" 7"_s}, Row{u""_s}, Row{u"1E+2"_s}};
    open();
    EXPECT_EQ(screen.points(), (QStringList{u"0.00"_s, u" 7"_s, u""_s, u"1E+2"_s}));
}

TEST_F(StrategiesTest, ChoosingAStrategyShowsIt) {
    open();
    screen.choose(screen.names(), u"UP DOWN"_s);
    EXPECT_EQ(statements(), loadOf(u"UP DOWN"_s));
    EXPECT_EQ(screen.name(), u"UP DOWN"_s);
    EXPECT_EQ(screen.points(), (QStringList{u"0"_s, u"100"_s, u"0"_s}));
    EXPECT_EQ(screen.predefined().currentText(), u" "_s);
    EXPECT_EQ(screen.enabled(), idle);
}

TEST_F(StrategiesTest, AStrategyIsChosenByKeyboardWithTheListClosed) {
    open();
    const struct {
        Qt::Key key;
        QString name;
    } keys[] = {{Qt::Key_Down, u"UP DOWN"_s},
                {Qt::Key_Up, u"FIVE"_s},
                {Qt::Key_End, u"UP DOWN"_s},
                {Qt::Key_Home, u"FIVE"_s},
                {Qt::Key_U, u"UP DOWN"_s}};
    for (const auto& key : keys) {
        SCOPED_TRACE(key.name.toStdString());
        QTest::keyClick(&screen.names(), key.key);
        EXPECT_EQ(statements(), loadOf(key.name));
        EXPECT_EQ(screen.name(), key.name);
        EXPECT_EQ(screen.points().size(), key.name == u"FIVE"_s ? 5 : 3);
    }
}

TEST_F(StrategiesTest, APredefinedRowIsChosenByItsFirstLetterWithTheListClosed) {
    open();
    QTest::keyClick(&screen.predefined(), Qt::Key_3);
    EXPECT_EQ(screen.predefined().currentText(), u"3 Points Up (0-50-100%)"_s);
    EXPECT_EQ(screen.points(), (QStringList{u"0.00"_s, u"50.00"_s, u"100.00"_s}));
    EXPECT_TRUE(screen.button(u"CommandSave"_s).isEnabled());
}

TEST_F(StrategiesTest, ChoosingAStrategyDropsUnsavedChangesWithoutAQuestionAndLeavesSaveEnabled) {
    open();
    addPoint(u"110"_s);
    screen.choose(screen.names(), u"UP DOWN"_s);
    EXPECT_EQ(screen.points(), (QStringList{u"0"_s, u"100"_s, u"0"_s}));
    EXPECT_TRUE(screen.button(u"CommandSave"_s).isEnabled());
    EXPECT_TRUE(screen.button(u"CommandCancel"_s).isEnabled());
    screen.close();
    EXPECT_FALSE(screen.isOpen());
}

TEST_F(StrategiesTest, AStrategyThatHasGoneMeanwhileGivesWayToTheFirst) {
    open();
    forget(u"UP DOWN"_s);
    screen.choose(screen.names(), u"UP DOWN"_s);
    EXPECT_EQ(statements(), loadOf(u"UP DOWN"_s, u"FIVE"_s));
    EXPECT_EQ(screen.name(), u"FIVE"_s);
    EXPECT_EQ(screen.allNames(), QStringList{u"FIVE"_s});
}

TEST_F(StrategiesTest, ANameWithAQuoteIsDoubledWhereverItIsRead) {
    know(u"A''S"_s, {u"10"_s});
    screen.open(session);
    EXPECT_EQ(statements(), loadOf(u""_s, u"A''S"_s));
    EXPECT_EQ(screen.name(), u"A'S"_s);
    screen.choose(screen.names(), u"FIVE"_s);
    statements();
    screen.choose(screen.names(), u"A'S"_s);
    EXPECT_EQ(statements(), loadOf(u"A''S"_s));
    EXPECT_EQ(screen.points(), QStringList{u"10"_s});
}

TEST_F(StrategiesTest, ShowsTheStrategyOfTheOpenParameterEditor) {
    standIn.shown = u"UP DOWN"_s;
    screen.open(session, &standIn);
    EXPECT_EQ(statements(), loadOf(u""_s, u"FIVE"_s) + loadOf(u"UP DOWN"_s));
    EXPECT_EQ(screen.name(), u"UP DOWN"_s);
    EXPECT_EQ(screen.enabled(), idle);
}

TEST_F(StrategiesTest, ShowsTheFirstOneWhenTheParameterEditorsStrategyIsEmptyOrUnknown) {
    standIn.shown = u"NOT SAVED"_s;
    screen.open(session, &standIn);
    EXPECT_EQ(statements(), loadOf(u""_s, u"FIVE"_s) + loadOf(u"NOT SAVED"_s, u"FIVE"_s));
    screen.close();
    standIn.shown.clear();
    screen.open(session, &standIn);
    EXPECT_EQ(screen.name(), u"FIVE"_s);
}

TEST_F(StrategiesTest, ANameInOtherLettersThatTheDatabaseTakesForTheSameSelectsNoRow) {
    standIn.shown = u"five"_s;
    script.answers[selectName(u"five"_s)] = {Row{u"FIVE"_s}};
    script.answers[selectPoints(u"five"_s)] = script.answers[selectPoints(u"FIVE"_s)];
    screen.open(session, &standIn);
    EXPECT_EQ(statements(), loadOf(u""_s, u"FIVE"_s) + loadOf(u"five"_s));
    EXPECT_EQ(screen.name(), u""_s);
    EXPECT_EQ(screen.points().size(), 5);
    // Nothing can be edited that would be stored without a name.
    EXPECT_EQ(screen.enabled(), (QStringList{u"ComboTSNames"_s, u"CommandAdd"_s}));
    screen.choose(screen.names(), u"UP DOWN"_s);
    EXPECT_EQ(screen.enabled(), idle);
}

TEST_F(StrategiesTest, WithEveryStrategyGoneMeanwhileNothingCanBeStoredUnderNoName) {
    open();
    addPoint(u"110"_s);
    script.answers.clear();
    screen.choose(screen.names(), u"UP DOWN"_s);
    EXPECT_EQ(screen.points(), QStringList());
    EXPECT_EQ(screen.enabled(),
              (QStringList{u"ComboTSNames"_s, u"CommandAdd"_s, u"CommandSave"_s, u"CommandCancel"_s}));
    statements();
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(statements(),
              QStringList{u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = ''"_s} +
                  loadOf(u""_s));
}

TEST_F(StrategiesTest, EachPredefinedRowReplacesThePointsAndCanBeSaved) {
    open();
    const QList<QPair<QString, QString>> rows{
        {u" "_s, u""_s},
        {u"1 Point (100%)"_s, u"100.00"_s},
        {u"1 Point (0%)"_s, u"0.00"_s},
        {u"2 Points Up (0-100%)"_s, u"0.00|100.00"_s},
        {u"2 Points Down (100-0%)"_s, u"100.00|0.00"_s},
        {u"3 Points Up (0-50-100%)"_s, u"0.00|50.00|100.00"_s},
        {u"3 Points Down (100-50-0%)"_s, u"100.00|50.00|0.00"_s},
        {u"3 Points Up/Down (0-50-100-50-0%)"_s, u"0.00|50.00|100.00|50.00|0.00"_s},
        {u"5 Points Up (0-25-50-75-100%)"_s, u"0.00|25|50.00|75|100.00"_s},
        {u"5 Points Down (100-75-50-25-0%)"_s, u"100.00|75|50.00|25|0.00"_s},
        {u"5 Points Up/Down (0-25-50...50-25-0%)"_s, u"0.00|25|50.00|75|100.00|75|50.00|25|0.00"_s},
        {u"11 Points Up (0-10-20-30-40-50-60...100%)"_s,
         u"0.00|10.00|20.00|30.00|40.00|50.00|60.00|70.00|80.00|90.00|100.00"_s},
        {u"11 Points Down (100-90-80-70-60...0%)"_s,
         u"100.00|90.00|80.00|70.00|60.00|50.00|40.00|30.00|20.00|10.00|0.00"_s},
        {u"11 Points Up/Down (0-10-20-30...20-10-0%)"_s,
         u"0.00|10.00|20.00|30.00|40.00|50.00|60.00|70.00|80.00|90.00|100.00|90.00|80.00|70.00|60.00|50.00|"
         "40.00|30.00|20.00|10.00|0.00"_s},
    };
    for (const auto& [row, points] : rows) {
        SCOPED_TRACE(row.toStdString());
        screen.choose(screen.names(), u"FIVE"_s);
        screen.button(u"CommandSave"_s).setEnabled(false);
        screen.button(u"CommandCancel"_s).setEnabled(false);
        screen.choose(screen.predefined(), row);
        EXPECT_EQ(screen.points().join(u'|'), points);
        EXPECT_EQ(screen.predefined().currentText(), row);
        EXPECT_TRUE(screen.button(u"CommandSave"_s).isEnabled());
        EXPECT_TRUE(screen.button(u"CommandCancel"_s).isEnabled());
    }
}

TEST_F(StrategiesTest, ClosingWithoutChangesAsksNothingAndKeepsThePosition) {
    settings.values.insert(u"Left/FormStrategies"_s, u"300"_s);
    settings.values.insert(u"Top/FormStrategies"_s, u"150"_s);
    open();
    EXPECT_EQ(screen.form().pos(), QPoint(20, 10));
    screen.form().move(30, 40);
    screen.close();
    EXPECT_EQ(settings.writes, (QStringList{u"Left/FormStrategies=450"_s, u"Top/FormStrategies=600"_s}));
    EXPECT_FALSE(isWindowOpen(session, u"FormStrategies"));
    EXPECT_TRUE(statements().isEmpty());
}

TEST_F(StrategiesTest, ClosingWithChangesAsksAndNoKeepsItOpen) {
    open();
    addPoint(u"110"_s);
    ui.expectBox(discard, u"Kelvane"_s, box::warningYesNo, BoxAnswer::no);
    screen.close();
    EXPECT_TRUE(screen.isOpen());
    EXPECT_TRUE(isWindowOpen(session, u"FormStrategies"));
    EXPECT_EQ(screen.points().last(), u"110"_s);
    ui.expectBox(discard, u"Kelvane"_s, box::warningYesNo, BoxAnswer::yes);
    screen.close();
    EXPECT_FALSE(screen.isOpen());
    EXPECT_TRUE(statements().isEmpty());
}

TEST_F(StrategiesTest, ClosingWithANewNameAloneAsksSinceTheSumHoldsTheName) {
    script.answers.clear();
    open();
    add(u"NEW"_s);
    ui.expectBox(discard, u"Kelvane"_s, box::warningYesNo, BoxAnswer::no);
    screen.close();
    EXPECT_TRUE(screen.isOpen());
}

TEST_F(StrategiesTest, ClosingAfterMovesAloneAsksNothingSinceTheSumDoesNotSeeThem) {
    open();
    screen.select(1);
    screen.press(u"CommandMoveDown"_s);
    screen.press(u"CommandMoveDown"_s);
    EXPECT_TRUE(screen.button(u"CommandSave"_s).isEnabled());
    screen.close();
    EXPECT_FALSE(screen.isOpen());
}

TEST_F(StrategiesTest, ClosingAfterAChangeThatLeavesTheSumAsksNothing) {
    script.answers[selectPoints(u"FIVE"_s)] = {Row{u"10"_s}, Row{u"32"_s}};
    open();
    // The same characters in other rows.
    screen.select(0);
    expectModifyDialog(u"12"_s);
    screen.press(u"CommandModify"_s);
    screen.select(1);
    expectModifyDialog(u"30"_s);
    screen.press(u"CommandModify"_s);
    screen.close();
    EXPECT_FALSE(screen.isOpen());
}

TEST_F(StrategiesTest, AskedToCloseOnceMoreDuringTheQuestionDoesNotAskTwice) {
    open();
    addPoint(u"110"_s);
    ui.expectBox(discard, u"Kelvane"_s, box::warningYesNo, BoxAnswer::no);
    ui.onBox = [this] { screen.close(); };
    screen.close();
    EXPECT_TRUE(screen.isOpen());
    ui.onBox = {};
}

TEST_F(StrategiesTest, EachQueryThatFailsWhileLoadingIsReportedAndLeavesTheScreenAsItWas) {
    open();
    addPoint(u"110"_s);
    const auto before = screen.points();
    for (const auto& query : loadOf(u"UP DOWN"_s)) {
        SCOPED_TRACE(query.toStdString());
        script.failures = {{query, Error{208, u"no such table"_s}}};
        ui.expectReport(208, loading);
        screen.choose(screen.names(), u"UP DOWN"_s);
        EXPECT_TRUE(ui.hasMetAll());
        EXPECT_EQ(screen.name(), u"FIVE"_s);
        EXPECT_EQ(screen.allNames(), (QStringList{u"FIVE"_s, u"UP DOWN"_s}));
        EXPECT_EQ(screen.points(), before);
        EXPECT_TRUE(folder.read(u"errors.log"_s).contains(query));
    }
    script.failures.clear();
    ui.expectBox(discard, u"Kelvane"_s, box::warningYesNo, BoxAnswer::no);
    screen.close();
    EXPECT_TRUE(screen.isOpen());
}

TEST_F(StrategiesTest, ANullAmongNamesOrPointsIsReported) {
    for (const auto& query : {selectNames(), selectPoints(u"FIVE"_s)}) {
        SCOPED_TRACE(query.toStdString());
        const auto whole = script.answers[query];
        script.answers[query] << Row{std::nullopt};
        ui.expectReport(94, loading);
        screen.open(session);
        EXPECT_TRUE(ui.hasMetAll());
        script.answers[query] = whole;
        screen.close();
    }
}

TEST_F(StrategiesTest, OpensEmptyWhenTheDatabaseFailsAndAddIsThere) {
    script.failures.insert(selectNames(), Error{208, u"no such table"_s});
    ui.expectReport(208, loading);
    screen.open(session);
    EXPECT_EQ(screen.enabled(), (QStringList{u"ComboTSNames"_s, u"CommandAdd"_s}));
    EXPECT_EQ(screen.points(), QStringList());
    screen.close();
    EXPECT_FALSE(screen.isOpen());
}

TEST_F(StrategiesTest, ALostConnectionIsReportedAndShown) {
    open();
    script.lost = true;
    ui.expectReport(10054, loading);
    screen.choose(screen.names(), u"UP DOWN"_s);
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_EQ(screen.name(), u"FIVE"_s);
    EXPECT_FALSE(ui.busy);
}

TEST_F(StrategiesTest, TenThousandStrategiesAreThere) {
    script.answers.clear();
    for (int i = 0; i < 10000; ++i)
        script.answers[selectNames()] << Row{u"S%1"_s.arg(i, 5, 10, QLatin1Char('0'))};
    open();
    EXPECT_EQ(screen.names().count(), 10000);
    EXPECT_EQ(screen.name(), u"S00000"_s);
}

TEST_F(StrategiesTest, EscapeCancelsAndReturnSavesOnceThereIsSomethingToSave) {
    open();
    QTest::keyClick(&screen.names(), Qt::Key_Return);
    QTest::keyClick(&screen.names(), Qt::Key_Escape);
    EXPECT_TRUE(statements().isEmpty());
    addPoint(u"110"_s);
    screen.names().setFocus();
    ui.expectBox(discard, u"Kelvane"_s, box::question, BoxAnswer::no);
    QTest::keyClick(&screen.names(), Qt::Key_Escape);
    EXPECT_TRUE(ui.hasMetAll());
    QTest::keyClick(&screen.names(), Qt::Key_Return);
    EXPECT_TRUE(statements().contains(
        u"insert into mt.hvm_kv_proc_points (tp_name,test_point_seq,test_point_pct) values "
        "('FIVE','5','110');commit"_s));
}

} // namespace kelvane::testing
