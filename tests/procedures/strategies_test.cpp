#include "procedures/strategies.h"

#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const auto selectNames = u"select distinct(tp_name) from mt.hvm_kv_proc_points order by tp_name asc"_s;
const auto countUses = u"select count(tp_name) from mt.hvm_kv_tag_config where tp_name = 'O''B'"_s;
const auto countPoints = u"select count(tp_name) from mt.hvm_kv_proc_points"_s;
const auto deletePoints = u"delete from mt.hvm_kv_proc_points where tp_name = 'O''B';commit"_s;
const auto movePoints = u"update mt.hvm_kv_proc_points set tp_name = 'B' where tp_name = 'O''B';commit"_s;
const auto moveUses = u"update mt.hvm_kv_tag_config set tp_name = 'B' where tp_name = 'O''B';commit"_s;

QString selectName(const QString& name) {
    return u"select tp_name from mt.hvm_kv_proc_points where tp_name = '"_s + name + u'\'';
}

QString selectPoints(const QString& name) {
    return u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = '"_s + name +
           u"' order by test_point_seq asc"_s;
}

QString insertPoint(int sequence, const QString& point) {
    return u"insert into mt.hvm_kv_proc_points (tp_name,test_point_seq,test_point_pct) values ('UP','%1','%2');commit"_s
        .arg(sequence)
        .arg(point);
}

} // namespace

class Strategies : public RecordedSession {
  protected:
    Strategies() {
        script.answers[selectNames] = {{u"DOWN"_s}, {u"UP"_s}};
        script.answers[selectPoints(u"DOWN"_s)] = {{u"100"_s}, {u"0"_s}};
        script.answers[selectPoints(u"UP"_s)] = {{u"0"_s}, {u"100.00"_s}};
    }
    const QString confirmation = u"Are you sure you want to delete the selected test strategy?"_s;
};

TEST_F(Strategies, LoadingReadsAllNamesAndThePointsOfTheOneThatWasAskedFor) {
    script.answers[selectName(u"UP"_s)] = {{u"UP"_s}};
    const auto list = loadStrategies(session, u"UP"_s);
    ASSERT_TRUE(list);
    EXPECT_EQ(list->names, (QStringList{u"DOWN"_s, u"UP"_s}));
    EXPECT_EQ(list->shown.name, u"UP"_s);
    EXPECT_EQ(list->shown.points, (QStringList{u"0"_s, u"100.00"_s}));
    EXPECT_EQ(script.statements, (QStringList{selectNames, selectName(u"UP"_s), selectPoints(u"UP"_s)}));
}

TEST_F(Strategies, LoadingAnUnknownOrEmptyNameGivesTheFirstOne) {
    for (const auto& name : {u"GONE"_s, u""_s}) {
        const auto list = loadStrategies(session, name);
        ASSERT_TRUE(list);
        EXPECT_EQ(list->shown.name, u"DOWN"_s);
        EXPECT_EQ(list->shown.points, (QStringList{u"100"_s, u"0"_s}));
    }
}

TEST_F(Strategies, LoadingWithoutAnyGivesNeitherNameNorPoints) {
    script.answers.clear();
    const auto list = loadStrategies(session, {});
    ASSERT_TRUE(list);
    EXPECT_EQ(list->names, QStringList());
    EXPECT_EQ(list->shown.name, QString());
    EXPECT_EQ(list->shown.points, QStringList());
}

TEST_F(Strategies, LoadingThatFailsAtAnyStatementGivesNothingAndIsReported) {
    for (const auto& statement : {selectNames, selectName(u"UP"_s), selectPoints(u"DOWN"_s)}) {
        script.failures = {{statement, Error{-210, u"Locked"_s}}};
        ui.expectReport(-210, u"FormStrategies,LoadStrategyList"_s);
        EXPECT_FALSE(loadStrategies(session, u"UP"_s)) << statement.toStdString();
        EXPECT_TRUE(ui.hasMetAll());
    }
}

TEST_F(Strategies, ANewNameIsAskedForUntilItIsFree) {
    const auto title = u"Add new test strategy"_s;
    const auto prompt = u"Enter a name for the new test strategy (30 chars max!):"_s;
    script.answers[selectName(u"UP"_s)] = {{u"UP"_s}};
    ui.expectDialog(title, prompt, u"UP"_s, [](const DialogQuestion& question) {
        EXPECT_TRUE(question.required);
        EXPECT_EQ(question.maxLength, 30);
    });
    ui.expectBox(u"Test Strategy Already Exists!"_s, title, box::warning);
    ui.expectDialog(title, prompt, u"NEW"_s);
    EXPECT_EQ(askStrategyName(session), u"NEW"_s);
    EXPECT_EQ(script.statements, (QStringList{selectName(u"UP"_s), selectName(u"NEW"_s)}));
    ui.expectDialog(title, prompt, cancelled);
    EXPECT_EQ(askStrategyName(session), cancelled);
    ui.expectDialog(title, prompt, u"NEW"_s);
    ui.expectReport(-210, u"FormStrategies,CommandAdd"_s);
    script.failures[selectName(u"NEW"_s)] = Error{-210, u"Locked"_s};
    EXPECT_EQ(askStrategyName(session), std::nullopt);
}

TEST_F(Strategies, RenamingMovesThePointsAndTheInstrumentsAsOne) {
    EXPECT_FALSE(renameStrategy(session, u"O'B"_s, u"B"_s));
    EXPECT_EQ(script.statements, (QStringList{movePoints, moveUses}));
    EXPECT_EQ(script.transactions, (QStringList{u"begin"_s, u"commit"_s}));
}

TEST_F(Strategies, RenamingOneThatVanishedIsRolledBackWithoutAReport) {
    script.changedRows[movePoints] = 0;
    const auto failure = renameStrategy(session, u"O'B"_s, u"B"_s);
    ASSERT_TRUE(failure);
    EXPECT_TRUE(failure->vanished);
    EXPECT_EQ(script.statements, (QStringList{movePoints, moveUses}));
    EXPECT_EQ(script.transactions, (QStringList{u"begin"_s, u"roll back"_s}));
}

TEST_F(Strategies, RenamingThatFailsIsRolledBackAndReported) {
    script.failures[moveUses] = Error{-210, u"Locked"_s};
    ui.expectReport(-210, u"FormStrategies,CommandRename"_s);
    const auto failure = renameStrategy(session, u"O'B"_s, u"B"_s);
    ASSERT_TRUE(failure);
    EXPECT_FALSE(failure->vanished);
    EXPECT_EQ(failure->error.number, -210);
    EXPECT_EQ(script.transactions, (QStringList{u"begin"_s, u"roll back"_s}));
}

TEST_F(Strategies, OneThatIsUsedIsNotDeleted) {
    script.answers[countUses] = {{u"1"_s}};
    ui.expectBox(u"This test strategy is still being used!"_s, u"Kelvane"_s, box::warning);
    EXPECT_FALSE(deleteStrategy(session, u"O'B"_s));
    EXPECT_EQ(script.statements, QStringList{countUses});
}

TEST_F(Strategies, AnUnusedOneIsDeletedOnceItIsConfirmed) {
    script.answers[countUses] = {{u"0"_s}};
    ui.expectBox(confirmation, u"Kelvane"_s, box::question, BoxAnswer::no);
    EXPECT_FALSE(deleteStrategy(session, u"O'B"_s));
    ui.expectBox(confirmation, u"Kelvane"_s, box::question, BoxAnswer::yes);
    EXPECT_TRUE(deleteStrategy(session, u"O'B"_s));
    EXPECT_EQ(script.statements, (QStringList{countUses, countUses, deletePoints}));
    script.failures[deletePoints] = Error{-210, u"Locked"_s};
    ui.expectBox(confirmation, u"Kelvane"_s, box::question, BoxAnswer::yes);
    ui.expectReport(-210, u"FormStrategies,CommandDeleteTS"_s);
    EXPECT_FALSE(deleteStrategy(session, u"O'B"_s));
}

TEST_F(Strategies, SavingReplacesThePointsInOneTransaction) {
    const auto stored = u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = 'UP'"_s;
    const auto removal = u"delete from mt.hvm_kv_proc_points where tp_name = 'UP';commit"_s;
    EXPECT_FALSE(saveStrategy(session, {u"UP"_s, {u"0"_s, u"99.5"_s}}));
    EXPECT_EQ(script.statements, (QStringList{stored, insertPoint(0, u"0"_s), insertPoint(1, u"99.5"_s)}));
    script.statements.clear();
    script.answers[stored] = {{u"0"_s}};
    EXPECT_FALSE(saveStrategy(session, {u"UP"_s}));
    EXPECT_EQ(script.statements, (QStringList{stored, removal}));
    EXPECT_EQ(script.transactions, (QStringList{u"begin"_s, u"commit"_s, u"begin"_s, u"commit"_s}));
}

TEST_F(Strategies, ASaveThatFailsTellsThePointAndStoresNothing) {
    script.failures[insertPoint(1, u"x"_s)] = Error{19, u"test_point_pct"_s};
    ui.expectReport(19, u"FormStrategies,CommandSave"_s);
    const auto failure = saveStrategy(session, {u"UP"_s, {u"0"_s, u"x"_s, u"100"_s}});
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->row, 1);
    EXPECT_EQ(failure->error.description, u"test_point_pct"_s);
    EXPECT_EQ(script.transactions, (QStringList{u"begin"_s, u"roll back"_s}));
}

TEST_F(Strategies, WithoutOneThereIsAWarning) {
    script.answers[countPoints] = {{u"3"_s}};
    EXPECT_TRUE(warnWithoutStrategies(session));
    script.answers[countPoints] = {{u"0"_s}};
    ui.expectBox(text(TextId::noTestStrategiesDefined), u"Calibration Parameters"_s, box::warning);
    EXPECT_TRUE(warnWithoutStrategies(session));
    script.failures[countPoints] = Error{-210, u"Locked"_s};
    ui.expectReport(-210, u"MDIFormMain,mnuCalParameters.Click"_s);
    EXPECT_FALSE(warnWithoutStrategies(session));
}

TEST(SaveFailure, AValueThatEndsItsQuotesIsNotConfined) {
    for (const auto& value : {u""_s, u"UP"_s, u"O''B"_s, u"a;b -- c"_s})
        EXPECT_TRUE(isConfined(value)) << value.toStdString();
    for (const auto& value : {u"O'B"_s, u"'"_s, u"x' or 'a' = 'a"_s, u"x"_s + QChar(0)})
        EXPECT_FALSE(isConfined(value)) << value.toStdString();
}

} // namespace kelvane::testing
