#include "tests/editors/work_config_fixture.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString saving = u"FormWorkConfig,CommandSave"_s;
const QString deleteFields = u"delete from mt.hvm_kv_worksheetfields;commit"_s;
const QString insertRow =
    u"insert into mt.hvm_kv_sysconfig (allow_ooc_stds,allow_poor_trace_stds) values ('N','N');commit"_s;

QString insertField(const QString& number, int sequence) {
    return u"insert into mt.hvm_kv_worksheetfields (fldnum,sequence) values ('"_s + number + u"','"_s +
           QString::number(sequence) + u"');commit"_s;
}

} // namespace

TEST_F(WorkConfigTest, SaveReplacesTheFieldsAndSetsBothSwitches) {
    open();
    screen.doubleClick(screen.available(), workOrder);
    screen.toggle(screen.overdue());
    screen.toggle(screen.poorTrace());
    ui.events.clear();
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"busy"_s, u"normal"_s, u"normal"_s}));
    EXPECT_EQ(statements(), (QStringList{deleteFields, insertField(u"2333"_s, 0), insertField(u"2301"_s, 1),
                                         insertField(u"2316"_s, 2), selectRow} +
                             allow(u"N"_s, u"Y"_s)));
    EXPECT_TRUE(script.firstRowOnly.contains(selectRow));
    EXPECT_FALSE(ui.busy);
    screen.close();
    EXPECT_FALSE(screen.isOpen());
}

TEST_F(WorkConfigTest, SaveMakesTheRowOfSwitchesWhenItIsMissing) {
    script.answers[selectStandards].clear();
    script.answers[selectRow].clear();
    open();
    screen.toggle(screen.poorTrace());
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(statements(), (QStringList{deleteFields, insertField(u"2333"_s, 0), insertField(u"2301"_s, 1),
                                         selectRow, insertRow} +
                             allow(u"N"_s, u"Y"_s)));
}

TEST_F(WorkConfigTest, SaveOfNoFieldInsertsNone) {
    open();
    screen.doubleClick(screen.requested(), time);
    screen.doubleClick(screen.requested(), date);
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(statements(), (QStringList{deleteFields, selectRow} + allow(u"Y"_s, u"N"_s)));
}

TEST_F(WorkConfigTest, SaveTakesTheFourCharactersBehindTheC) {
    script.answers[selectRequested] = {Row{u"23456"_s, u"Too long"_s}, Row{u"23"_s, u"Short"_s},
                                       Row{u"23''"_s, u"Quotes"_s}};
    open();
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(statements().mid(1, 3),
              (QStringList{insertField(u"2345"_s, 0), insertField(u"23 :"_s, 1), insertField(u"23''"_s, 2)}));
}

TEST_F(WorkConfigTest, AFailureOfEachStatementOfASaveEndsItThereAndTheScreenKeepsWhatWasChosen) {
    script.answers[selectRow].clear();
    open();
    screen.doubleClick(screen.available(), workOrder);
    screen.toggle(screen.poorTrace());
    const QStringList whole = QStringList{deleteFields,
                                          insertField(u"2333"_s, 0),
                                          insertField(u"2301"_s, 1),
                                          insertField(u"2316"_s, 2),
                                          selectRow,
                                          insertRow} +
                              allow(u"Y"_s, u"Y"_s);
    for (int failing = 0; failing < whole.size(); ++failing) {
        SCOPED_TRACE(whole[failing].toStdString());
        script.failures = {{whole[failing], refused}};
        ui.expectReport(547, saving);
        screen.press(u"CommandSave"_s);
        EXPECT_TRUE(ui.hasMetAll());
        EXPECT_EQ(statements(), whole.mid(0, failing + 1));
        EXPECT_EQ(requested(), (QStringList{time, date, workOrder}));
        EXPECT_TRUE(screen.poorTrace().isChecked());
        EXPECT_FALSE(ui.busy);
    }
    // What is not stored counts as a change still.
    ui.expectBox(discardToClose, u"Kelvane"_s, box::warningYesNo, BoxAnswer::no);
    screen.close();
    EXPECT_TRUE(screen.isOpen());
    script.failures.clear();
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(statements(), whole);
    screen.close();
    EXPECT_FALSE(screen.isOpen());
}

TEST_F(WorkConfigTest, AConnectionLostInTheMiddleOfASaveIsReportedOnce) {
    open();
    script.failures.insert(insertField(u"2301"_s, 1), Error{10054, u"Gone"_s, u"08S01"_s, true});
    ui.expectReport(10054, saving);
    screen.press(u"CommandSave"_s);
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_EQ(requested(), (QStringList{time, date}));
    ui.expectReport(10054, saving);
    screen.press(u"CommandSave"_s);
}

} // namespace kelvane::testing
