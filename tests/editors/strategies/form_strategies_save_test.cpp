#include "tests/editors/strategies/strategies_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString saving = u"FormStrategies,CommandSave"_s;

QString selectStored(const QString& name) {
    return u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = '"_s + name + u"'"_s;
}

QString insertPoint(const QString& name, int sequence, const QString& point) {
    return u"insert into mt.hvm_kv_proc_points (tp_name,test_point_seq,test_point_pct) values ('"_s + name +
           u"','"_s + QString::number(sequence) + u"','"_s + point + u"');commit"_s;
}

} // namespace

TEST_F(StrategiesTest, SaveReplacesThePointsByPositionsFromZero) {
    open();
    screen.choose(screen.predefined(), u"3 Points Up (0-50-100%)"_s);
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(
        statements(),
        (QStringList{selectStored(u"FIVE"_s), deletePoints(u"FIVE"_s), insertPoint(u"FIVE"_s, 0, u"0.00"_s),
                     insertPoint(u"FIVE"_s, 1, u"50.00"_s), insertPoint(u"FIVE"_s, 2, u"100.00"_s)} +
         loadOf(u"FIVE"_s)));
    EXPECT_TRUE(script.firstRowOnly.contains(selectStored(u"FIVE"_s)));
}

TEST_F(StrategiesTest, SaveOfANewStrategyDeletesNothing) {
    open();
    add(u"NEW"_s);
    statements();
    addPoint(u"-5"_s);
    addPoint(u"1e3"_s);
    addPoint(u"-5"_s);
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(statements(),
              (QStringList{selectStored(u"NEW"_s), insertPoint(u"NEW"_s, 0, u"-5"_s),
                           insertPoint(u"NEW"_s, 1, u"1e3"_s), insertPoint(u"NEW"_s, 2, u"-5"_s)} +
               loadOf(u"NEW"_s, u"FIVE"_s)));
}

TEST_F(StrategiesTest, SaveLeavesItselfEnabledDisablesCancelAndEnablesAdd) {
    open();
    add(u"NEW"_s);
    addPoint(u"10"_s);
    know(u"NEW"_s, {u"10"_s});
    screen.press(u"CommandSave"_s);
    auto expected = idle;
    expected.insert(4, u"CommandSave"_s);
    EXPECT_EQ(screen.enabled(), expected);
    EXPECT_EQ(screen.name(), u"NEW"_s);
    screen.close();
    EXPECT_FALSE(screen.isOpen());
}

TEST_F(StrategiesTest, TheBlankPredefinedRowSavedRemovesTheStrategy) {
    open();
    screen.choose(screen.predefined(), u" "_s);
    forget(u"UP DOWN"_s);
    statements();
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(statements(),
              (QStringList{selectStored(u"FIVE"_s), deletePoints(u"FIVE"_s)} + loadOf(u"FIVE"_s)));
    // With the last one gone only a new one can be made, and a second save has nothing to write.
    script.answers.clear();
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(screen.enabled(), (QStringList{u"ComboTSNames"_s, u"CommandAdd"_s, u"CommandSave"_s}));
    statements();
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(statements(), (QStringList{selectStored(u""_s)} + loadOf(u""_s)));
}

TEST_F(StrategiesTest, SaveTakesTheNameAsItStandsSoThatOneWithAQuoteFailsAndIsReported) {
    open();
    add(u"A'S"_s);
    EXPECT_EQ(statements(), QStringList{selectName(u"A''S"_s)});
    addPoint(u"10"_s);
    ui.expectReport(1, saving);
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(statements(), QStringList());
    EXPECT_EQ(screen.name(), u"A'S"_s);
    EXPECT_EQ(screen.points(), QStringList{u"10"_s});
}

TEST_F(StrategiesTest, AFailureOfEachStatementOfASaveEndsItThereAndTheScreenKeepsWhatWasTyped) {
    open();
    addPoint(u"110"_s);
    const auto typed = screen.points();
    QStringList whole{selectStored(u"FIVE"_s), deletePoints(u"FIVE"_s)};
    for (int i = 0; i < typed.size(); ++i)
        whole << insertPoint(u"FIVE"_s, i, typed[i]);
    for (int failing = 0; failing < whole.size(); ++failing) {
        SCOPED_TRACE(whole[failing].toStdString());
        script.failures = {{whole[failing], refused}};
        ui.expectReport(547, saving);
        screen.press(u"CommandSave"_s);
        EXPECT_TRUE(ui.hasMetAll());
        EXPECT_EQ(statements(), whole.mid(0, failing + 1));
        EXPECT_EQ(screen.name(), u"FIVE"_s);
        EXPECT_EQ(screen.points(), typed);
        EXPECT_TRUE(screen.button(u"CommandSave"_s).isEnabled());
        EXPECT_TRUE(screen.button(u"CommandCancel"_s).isEnabled());
    }
    // What is not stored counts as a change still.
    ui.expectBox(discard, u"Kelvane"_s, box::warningYesNo, BoxAnswer::no);
    screen.close();
    script.failures.clear();
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(statements(), whole + loadOf(u"FIVE"_s));
}

TEST_F(StrategiesTest, AConnectionLostInTheMiddleOfASaveIsReportedOnceAndThePointsStay) {
    open();
    addPoint(u"110"_s);
    const auto typed = screen.points();
    script.failures.insert(insertPoint(u"FIVE"_s, 2, u"50"_s), Error{10054, u"Gone"_s, u"08S01"_s, true});
    ui.expectReport(10054, saving);
    screen.press(u"CommandSave"_s);
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_EQ(screen.points(), typed);
    EXPECT_FALSE(ui.busy);
}

TEST_F(StrategiesTest, ASaveThatCantReloadKeepsThePoints) {
    open();
    addPoint(u"110"_s);
    const auto typed = screen.points();
    script.failures.insert(selectPoints(u"FIVE"_s), refused);
    ui.expectReport(547, loading);
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(screen.points(), typed);
    EXPECT_EQ(screen.name(), u"FIVE"_s);
}

TEST_F(StrategiesTest, CancelAsksAndYesBringsBackWhatIsStored) {
    open();
    screen.choose(screen.names(), u"UP DOWN"_s);
    addPoint(u"110"_s);
    screen.choose(screen.predefined(), u"1 Point (0%)"_s);
    statements();
    ui.expectBox(discard, u"Kelvane"_s, box::question, BoxAnswer::no);
    screen.press(u"CommandCancel"_s);
    EXPECT_TRUE(statements().isEmpty());
    EXPECT_EQ(screen.points(), QStringList{u"0.00"_s});
    EXPECT_TRUE(screen.button(u"CommandSave"_s).isEnabled());
    ui.expectBox(discard, u"Kelvane"_s, box::question, BoxAnswer::yes);
    screen.press(u"CommandCancel"_s);
    EXPECT_EQ(statements(), loadOf(u"UP DOWN"_s));
    EXPECT_EQ(screen.points(), (QStringList{u"0"_s, u"100"_s, u"0"_s}));
    EXPECT_EQ(screen.predefined().currentText(), u" "_s);
    EXPECT_FALSE(screen.button(u"CommandSave"_s).isEnabled());
    EXPECT_TRUE(screen.button(u"CommandCancel"_s).isEnabled());
}

TEST_F(StrategiesTest, CancelOfAStrategyNeverSavedDropsItsNameAndShowsTheFirst) {
    open();
    add(u"NEW"_s);
    addPoint(u"10"_s);
    statements();
    ui.expectBox(discard, u"Kelvane"_s, box::question, BoxAnswer::yes);
    screen.press(u"CommandCancel"_s);
    EXPECT_EQ(statements(), loadOf(u"NEW"_s, u"FIVE"_s));
    EXPECT_EQ(screen.allNames(), (QStringList{u"FIVE"_s, u"UP DOWN"_s}));
    EXPECT_EQ(screen.name(), u"FIVE"_s);
    EXPECT_TRUE(screen.button(u"CommandAdd"_s).isEnabled());
}

TEST_F(StrategiesTest, MovedPointsAreSavedInTheirNewOrder) {
    open();
    screen.choose(screen.predefined(), u"2 Points Up (0-100%)"_s);
    screen.select(1);
    screen.press(u"CommandMoveUp"_s);
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(statements().mid(2, 2),
              (QStringList{insertPoint(u"FIVE"_s, 0, u"100.00"_s), insertPoint(u"FIVE"_s, 1, u"0.00"_s)}));
}

} // namespace kelvane::testing
