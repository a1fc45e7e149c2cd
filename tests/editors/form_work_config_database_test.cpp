// The screen over a copy of the demonstration database: what it shows, and what the tables hold afterwards.
#include "testkit/database_session.h"
#include "tests/editors/work_config_screen.h"
#include "ui/list_rows.h"

#include <QLabel>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class WorkConfigInTheDatabase : public DatabaseSession {
  protected:
    WorkConfigInTheDatabase() : DatabaseSession(users::configurer) {}
    QStringList available() { return rowsOf(screen.available()); }
    QStringList requested() { return rowsOf(screen.requested()); }
    /// The stored fields, each behind its position.
    QStringList stored() {
        QStringList fields;
        for (const auto& row : rows(u"select sequence,fldnum from mt.hvm_kv_worksheetfields"_s, 2))
            fields << row.section(u'|', 0, 0).rightJustified(2, u'0') + u':' + row.section(u'|', 1);
        fields.sort();
        return fields;
    }
    QStringList switches() {
        return values(u"select allow_ooc_stds || allow_poor_trace_stds from mt.hvm_kv_sysconfig"_s);
    }
    void forgetFields() { execute(u"delete from mt.hvm_kv_worksheetfields;commit"_s); }
    /// Another workstation runs a statement.
    void executeElsewhere(const QString& statement) { database.executeElsewhere(statement); }

    WorkConfigScreen screen;
};

TEST_F(WorkConfigInTheDatabase, TheFirstConfigurationProposesTheRequiredFieldsAndStoresNothingByItself) {
    forgetFields();
    screen.open(session);
    EXPECT_EQ(requested(), (QStringList{u"C2301 : Calibration Date"_s, u"C2307 : Technician"_s,
                                        u"C2308 : Run State"_s, u"C2312 : Ambient Temperature (C)"_s,
                                        u"C2323 : Passed"_s, u"C2333 : Calibration Time"_s}));
    screen.close();
    EXPECT_FALSE(screen.isOpen());
    EXPECT_EQ(stored(), QStringList());
}

TEST_F(WorkConfigInTheDatabase, FieldsOf90To95And2340AndSuppressedOnesNeverAppear) {
    execute(
        u"insert into mt.customiz (fldnum,title,ireq,sreq,suppressed) values "
        "('2392','a','N','N','N'),('2393','b','Y','N','N'),('2394','c','N','Y','N'),('2395','d','N','N','N'),"
        "('2396','e','N','N','N'),('2389','f','N','Y','N');commit"_s);
    forgetFields();
    screen.open(session);
    auto all = available() + requested();
    EXPECT_TRUE(all.contains(u"C2396 : e"_s));
    EXPECT_TRUE(requested().contains(u"C2389 : f"_s));
    all.sort();
    auto expected =
        values(u"select 'C' || fldnum || ' : ' || title from mt.customiz where fldnum between '2300' "
               "and '2399' and suppressed = 'N' and fldnum not between '2390' and '2395' and fldnum "
               "<> '2340'"_s);
    EXPECT_EQ(all, expected);
}

TEST_F(WorkConfigInTheDatabase, AFieldThatIsNeitherRequiredNorOptionalStandsInNeitherListOfTheProposal) {
    execute(
        u"insert into mt.customiz (fldnum,title,ireq,sreq,suppressed) values "
        "('2361','both',null,null,'N'),('2362','first',null,'Y','N'),('2363','second','N',null,'N');commit"_s);
    forgetFields();
    screen.open(session);
    EXPECT_FALSE((available() + requested()).contains(u"C2361 : both"_s));
    EXPECT_TRUE(requested().contains(u"C2362 : first"_s));
    EXPECT_FALSE((available() + requested()).contains(u"C2363 : second"_s));
}

TEST_F(WorkConfigInTheDatabase, WhatIsSavedIsWhatComesBack) {
    forgetFields();
    screen.open(session);
    screen.doubleClick(screen.requested(), u"C2323 : Passed"_s);
    screen.doubleClick(screen.available(), u"C2316 : Work Order"_s);
    screen.select(screen.requested(), u"C2316 : Work Order"_s);
    screen.press(u"CommandMoveUp"_s);
    const bool overdue = screen.overdue().isChecked();
    screen.toggle(screen.overdue());
    const auto saved = requested();
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(stored(), (QStringList{u"00:2301"_s, u"01:2307"_s, u"02:2308"_s, u"03:2312"_s, u"04:2316"_s,
                                     u"05:2333"_s}));
    EXPECT_EQ(switches().size(), 1);
    EXPECT_EQ(switches().first().startsWith(u'Y'), !overdue);
    screen.close();
    screen.open(session);
    EXPECT_EQ(requested(), saved);
    // In number order again.
    EXPECT_TRUE(std::ranges::is_sorted(available()));
    EXPECT_TRUE(available().contains(u"C2323 : Passed"_s));
    EXPECT_EQ(screen.overdue().isChecked(), !overdue);
}

TEST_F(WorkConfigInTheDatabase, AnEmptyListSavedMakesTheNextLoadProposeTheRequiredFieldsAfresh) {
    forgetFields();
    screen.open(session);
    const auto proposed = requested();
    for (const auto& row : proposed)
        screen.doubleClick(screen.requested(), row);
    EXPECT_EQ(requested(), QStringList());
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(stored(), QStringList());
    screen.close();
    screen.open(session);
    EXPECT_EQ(requested(), proposed);
}

TEST_F(WorkConfigInTheDatabase, AnEmptyTableOfSwitchesReadsAsNoAndIsFilledByTheFirstSave) {
    execute(u"delete from mt.hvm_kv_sysconfig;commit"_s);
    screen.open(session);
    EXPECT_FALSE(screen.overdue().isChecked());
    EXPECT_FALSE(screen.poorTrace().isChecked());
    screen.toggle(screen.poorTrace());
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(switches(), QStringList{u"NY"_s});
}

TEST_F(WorkConfigInTheDatabase, WhatAnotherWorkstationStoredMeanwhileIsReplaced) {
    forgetFields();
    screen.open(session);
    executeElsewhere(u"insert into mt.hvm_kv_worksheetfields (fldnum,sequence) values ('2326','0');commit"_s);
    executeElsewhere(u"delete from mt.hvm_kv_sysconfig;commit"_s);
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(stored().size(), requested().size());
    EXPECT_FALSE(stored().contains(u"00:2326"_s));
    EXPECT_EQ(switches().size(), 1);
}

TEST_F(WorkConfigInTheDatabase, AFieldWhoseNumberBreaksTheStatementIsReportedAndSelectedWithNothingStored) {
    forgetFields();
    execute(u"insert into mt.customiz (fldnum,title,ireq,sreq,suppressed) values "
            "('23''1','Odd','Y','Y','N');commit"_s);
    screen.open(session);
    EXPECT_EQ(requested().first(), u"C23'1 : Odd"_s);
    screen.select(screen.requested(), u"C23'1 : Odd"_s);
    screen.press(u"CommandMoveDown"_s);
    ui.expectReport(1, u"FormWorkConfig,CommandSave"_s);
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(stored(), QStringList());
    EXPECT_EQ(requested()[1], u"C23'1 : Odd"_s);
    EXPECT_EQ(screen.requested().currentRow(), 1);
    EXPECT_TRUE(screen.requested().hasFocus());
}

TEST_F(WorkConfigInTheDatabase, EveryRowAndTitleStandsThereWhole) {
    forgetFields();
    screen.open(session);
    for (auto* list : {&screen.available(), &screen.requested()}) {
        EXPECT_GT(list->count(), 0);
        EXPECT_EQ(list->horizontalScrollBar()->maximum(), 0) << list->objectName().toStdString();
        EXPECT_LE(list->sizeHintForColumn(0), list->viewport()->width());
    }
    for (const auto& name : {u"Label1"_s, u"Label2"_s, u"Label3"_s, u"Label4"_s, u"Label5"_s}) {
        const auto& label = control<QLabel>(screen.form(), name);
        EXPECT_LE(label.heightForWidth(label.width()), label.height()) << name.toStdString();
    }
}

TEST_F(WorkConfigInTheDatabase, ARowLongerThanTheWindowIsReachedByScrolling) {
    execute(u"insert into mt.customiz (fldnum,title,ireq,sreq,suppressed) values ('2399','"_s +
            u"long title "_s.repeated(20) + u"','N','N','N');commit"_s);
    forgetFields();
    screen.open(session);
    auto& list = screen.available();
    EXPECT_GE(list.horizontalScrollBar()->maximum() + list.viewport()->width(), list.sizeHintForColumn(0));
    EXPECT_LE(screen.form().width(), screen.form().mdiArea()->viewport()->width());
}

} // namespace kelvane::testing
