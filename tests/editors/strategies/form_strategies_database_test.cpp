// The screen over a copy of the demonstration database: what the tables hold afterwards.
#include "data/parameters/cal_params.h"
#include "testkit/database_session.h"
#include "tests/editors/strategies/strategies_screen.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class StrategiesInTheDatabase : public DatabaseSession {
  protected:
    StrategiesInTheDatabase() : DatabaseSession(users::editor) {}
    void open() { screen.open(session); }
    /// The points of a strategy, each with its position.
    QStringList stored(const QString& name) {
        QStringList points;
        for (const auto& row : rows(u"select test_point_seq,test_point_pct from mt.hvm_kv_proc_points where "
                                    "tp_name = '"_s +
                                        QString(name).replace(u'\'', u"''"_s) + u"'"_s,
                                    2))
            points << row.section(u'|', 0, 0).rightJustified(2, u'0') + u':' +
                          QString::number(row.section(u'|', 1).toDouble());
        points.sort();
        return points;
    }
    /// As the screen shows what the engine's driver makes of them.
    QStringList realTexts(const QList<double>& values) {
        QStringList texts;
        for (const double value : values)
            texts << database.realText(value);
        return texts;
    }
    QStringList instrumentsOf(const QString& name) {
        return values(u"select mtag from mt.hvm_kv_tag_config where tp_name = '"_s + name + u"'"_s);
    }
    /// Another workstation runs a statement.
    void executeElsewhere(const QString& statement) { database.executeElsewhere(statement); }

    void add(const QString& name) {
        ui.expectDialog(u"Add new test strategy"_s,
                        u"Enter a name for the new test strategy (30 chars max!):"_s, name);
        screen.press(u"CommandAdd"_s);
    }
    void addPoint(const QString& point) {
        ui.expectDialog(u"Kelvane"_s, u"Enter the test point to add: (%)"_s, point);
        screen.press(u"CommandAddTP"_s);
    }
    void rename(const QString& name) {
        ui.expectDialog(u"Rename Test Strategy"_s, u"Enter new test stragegy name:"_s, name);
        screen.press(u"CommandRename"_s);
    }

    StrategiesScreen screen;
};

TEST_F(StrategiesInTheDatabase, ShowsThoseOfTheDemonstrationByName) {
    open();
    auto names = values(u"select distinct tp_name from mt.hvm_kv_proc_points"_s);
    EXPECT_EQ(screen.allNames(), names);
    screen.choose(screen.names(), u"9 POINT UP/DOWN"_s);
    EXPECT_EQ(screen.points(), realTexts({0, 25, 50, 75, 100, 75, 50, 25, 0}));
}

TEST_F(StrategiesInTheDatabase, AStrategyMadeFromNothingIsWhatTheDriversRead) {
    open();
    add(u"HALVES ½"_s);
    screen.choose(screen.predefined(), u"3 Points Down (100-50-0%)"_s);
    addPoint(u"-2.5"_s);
    EXPECT_EQ(stored(u"HALVES ½"_s), QStringList());
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(stored(u"HALVES ½"_s), (QStringList{u"00:100"_s, u"01:50"_s, u"02:0"_s, u"03:-2.5"_s}));
    EXPECT_EQ(screen.name(), u"HALVES ½"_s);

    const auto mtag = values(u"select mtag from mt.hvm_kv_tag_config"_s).first();
    execute(u"update mt.hvm_kv_tag_config set tp_name = 'HALVES ½' where mtag = '"_s + mtag + u"';commit"_s);
    const auto asset = values(u"select i4201 from mt.inventory where mtag = '"_s + mtag + u"'"_s).first();
    EXPECT_EQ(ModuleGlobals::GetTestPointList(session, asset), (QList<float>{1.0F, 0.5F, 0.0F, -0.025F}));
}

TEST_F(StrategiesInTheDatabase, SavingReplacesWhatWasStored) {
    open();
    screen.choose(screen.names(), u"5 POINT UP"_s);
    screen.select(0);
    screen.press(u"CommandMoveDown"_s);
    screen.select(4);
    screen.press(u"CommandDeletePoint"_s);
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(stored(u"5 POINT UP"_s), (QStringList{u"00:25"_s, u"01:0"_s, u"02:50"_s, u"03:75"_s}));
    EXPECT_EQ(screen.points(), realTexts({25, 0, 50, 75}));
}

TEST_F(StrategiesInTheDatabase, AnEmptyStrategyIsGoneOnceItIsSaved) {
    open();
    screen.choose(screen.names(), u"TORQUE 100"_s);
    screen.choose(screen.predefined(), u" "_s);
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(stored(u"TORQUE 100"_s), QStringList());
    EXPECT_FALSE(screen.allNames().contains(u"TORQUE 100"_s));
    EXPECT_EQ(screen.name(), screen.allNames().first());
}

TEST_F(StrategiesInTheDatabase, RenameCarriesTheInstrumentsAlong) {
    open();
    const auto instruments = instrumentsOf(u"5 POINT UP"_s);
    ASSERT_FALSE(instruments.isEmpty());
    const auto points = stored(u"5 POINT UP"_s);
    screen.choose(screen.names(), u"5 POINT UP"_s);
    rename(u"FIVE OF O'HARA"_s);
    EXPECT_EQ(stored(u"FIVE OF O'HARA"_s), points);
    EXPECT_EQ(instrumentsOf(u"FIVE OF O''HARA"_s), instruments);
    EXPECT_EQ(instrumentsOf(u"5 POINT UP"_s), QStringList());
    EXPECT_EQ(screen.name(), u"FIVE OF O'HARA"_s);
}

TEST_F(StrategiesInTheDatabase, RenameOntoAnExistingNameMergesTheTwoPointLists) {
    open();
    screen.choose(screen.names(), u"2 POINT UP"_s);
    rename(u"3 POINT UP"_s);
    EXPECT_EQ(stored(u"3 POINT UP"_s),
              (QStringList{u"00:0"_s, u"00:0"_s, u"01:100"_s, u"01:50"_s, u"02:100"_s}));
    EXPECT_EQ(screen.points().size(), 5);
}

TEST_F(StrategiesInTheDatabase, OnlyAStrategyWithoutInstrumentsIsDeleted) {
    open();
    screen.choose(screen.names(), u"5 POINT UP"_s);
    ui.expectBox(u"This test strategy is still being used!"_s, u"Kelvane"_s, box::warning);
    screen.press(u"CommandDeleteTS"_s);
    EXPECT_EQ(stored(u"5 POINT UP"_s).size(), 5);
    execute(u"update mt.hvm_kv_tag_config set tp_name = '3 POINT UP' where tp_name = '5 POINT UP';commit"_s);
    ui.expectBox(u"Are you sure you want to delete the selected test strategy?"_s, u"Kelvane"_s,
                 box::question, BoxAnswer::yes);
    screen.press(u"CommandDeleteTS"_s);
    EXPECT_EQ(stored(u"5 POINT UP"_s), QStringList());
    EXPECT_FALSE(screen.allNames().contains(u"5 POINT UP"_s));
}

TEST_F(StrategiesInTheDatabase, ANameWithAQuotePassesAddRenameAndDeleteButFailsInSaveWithAReport) {
    open();
    add(u"O'HARA"_s);
    addPoint(u"50"_s);
    ui.expectReport(1, u"FormStrategies,CommandSave"_s);
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(stored(u"O'HARA"_s), QStringList());
    EXPECT_EQ(screen.name(), u"O'HARA"_s);
    EXPECT_EQ(screen.points(), QStringList{u"50"_s});
    screen.choose(screen.predefined(), u"1 Point (0%)"_s);
    ui.expectBox(u"Are you sure you want to discard any changes made since last save?"_s, u"Kelvane"_s,
                 box::question, BoxAnswer::yes);
    screen.press(u"CommandCancel"_s);

    screen.choose(screen.names(), u"FREQUENCY 10-50-90"_s);
    rename(u"O'HARA"_s);
    EXPECT_EQ(stored(u"O'HARA"_s).size(), 3);
    execute(u"update mt.hvm_kv_tag_config set tp_name = '3 POINT UP' where tp_name = 'O''HARA';commit"_s);
    ui.expectBox(u"Are you sure you want to delete the selected test strategy?"_s, u"Kelvane"_s,
                 box::question, BoxAnswer::yes);
    screen.press(u"CommandDeleteTS"_s);
    EXPECT_EQ(stored(u"O'HARA"_s), QStringList());
}

TEST_F(StrategiesInTheDatabase, AStrategyChangedElsewhereMeanwhileIsReplacedWhole) {
    open();
    screen.choose(screen.names(), u"2 POINT UP"_s);
    executeElsewhere(
        u"insert into mt.hvm_kv_proc_points (tp_name,test_point_seq,test_point_pct) values ('2 POINT "
        "UP','7','33');commit"_s);
    addPoint(u"110"_s);
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(stored(u"2 POINT UP"_s), (QStringList{u"00:0"_s, u"01:100"_s, u"02:110"_s}));
}

TEST_F(StrategiesInTheDatabase, AStrategyDeletedElsewhereMeanwhileIsStoredAgain) {
    open();
    screen.choose(screen.names(), u"2 POINT UP"_s);
    executeElsewhere(u"delete from mt.hvm_kv_proc_points where tp_name = '2 POINT UP';commit"_s);
    addPoint(u"110"_s);
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(stored(u"2 POINT UP"_s), (QStringList{u"00:0"_s, u"01:100"_s, u"02:110"_s}));
    EXPECT_EQ(screen.name(), u"2 POINT UP"_s);
}

TEST_F(StrategiesInTheDatabase, AStrategyDeletedElsewhereIsNotThereAnyMoreWhenItIsChosen) {
    open();
    executeElsewhere(u"delete from mt.hvm_kv_proc_points where tp_name = '9 POINT UP/DOWN';commit"_s);
    screen.choose(screen.names(), u"9 POINT UP/DOWN"_s);
    EXPECT_FALSE(screen.allNames().contains(u"9 POINT UP/DOWN"_s));
    EXPECT_EQ(screen.name(), screen.allNames().first());
}

TEST_F(StrategiesInTheDatabase, APointThatTheTableRefusesEndsTheSaveWithNothingStoredAndIsSelected) {
    open();
    add(u"WITH COMMA"_s);
    addPoint(u"10"_s);
    // A number to the screen, none to the column.
    addPoint(u"1,000"_s);
    addPoint(u"20"_s);
    ui.expectReport(database.refusedRow(), u"FormStrategies,CommandSave"_s);
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(stored(u"WITH COMMA"_s), QStringList());
    EXPECT_EQ(screen.points(), (QStringList{u"10"_s, u"1,000"_s, u"20"_s}));
    EXPECT_EQ(screen.selected(), 1);
    EXPECT_TRUE(screen.list().hasFocus());
    // Put right, it is saved whole.
    ui.expectDialog(u"Kelvane"_s, u"Enter the new test point: (%)"_s, u"1000"_s);
    screen.press(u"CommandModify"_s);
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(stored(u"WITH COMMA"_s), (QStringList{u"00:10"_s, u"01:1000"_s, u"02:20"_s}));
}

} // namespace kelvane::testing
