#include "tests/editors/work_config_fixture.h"
#include "ui/open_windows.h"

#include <QGroupBox>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString title = u"Calibration Record Configuration"_s;
const QString discardToCancel = u"Are you sure you want to discard changes made?"_s;
const QString loading = u"FormWorkConfig,LoadLists"_s;

} // namespace

TEST_F(WorkConfigTest, HasItsPlaceTextsAndToolTips) {
    open();
    EXPECT_EQ(screen.form().pos(), QPoint(7, 5));
    EXPECT_EQ(screen.form().width(), 383);
    // 449 pixels are given; the note needs some more in these letters.
    EXPECT_GE(screen.form().height(), 449);
    EXPECT_LE(screen.form().height(), 520);
    EXPECT_EQ(screen.form().windowTitle(), title);
    const struct {
        QString name;
        QString text;
        QString toolTip;
    } texts[] = {
        {u"Label1"_s, u"Fields that WILL NOT be requested:"_s, {}},
        {u"ListAvail"_s, {}, u"These fields are available for request (not currently used)"_s},
        {u"Label2"_s, u"Double-click on a fieldname to add it to the list"_s, {}},
        {u"Label3"_s, u"Fields that WILL be requested (in order):"_s, {}},
        {u"ListRequest"_s, {}, u"These fields are prompted to the operator during entry"_s},
        {u"Label4"_s, u"Double-click on a fieldname to remove it from the list"_s, {}},
        {u"CommandMoveUp"_s, u""_s, u"Move the selected field earlier in the question list"_s},
        {u"CommandMoveDown"_s, u""_s, u"Move the selected field later in the question list"_s},
        {u"Label5"_s,
         u"Fields that are requested will always be prompted for a value from the operator. Required fields may not be requested if default values or copy forward values are specified. These values may be overriden by the operator. If a field is required and does not have a default value, then that field will be requested for entry automatically."_s,
         {}},
        {u"CheckOOC"_s, u"Allow out-of-cal standards"_s,
         u"Allow standards that are overdue to be used in the performance of a calibration"_s},
        {u"CheckTrace"_s, u"Allow improper trace level standards"_s,
         u"Allow standards that are of a lower trace level than desired to be used in a calibration"_s},
        {u"CommandSave"_s, u"Save"_s, u"Save changes made"_s},
        {u"CommandCancel"_s, u"Cancel"_s, u"Cancel changes made"_s},
    };
    for (const auto& text : texts) {
        const auto& shown = control<QWidget>(screen.form(), text.name);
        EXPECT_EQ(shown.property("text").toString(), text.text) << text.name.toStdString();
        EXPECT_EQ(shown.toolTip(), text.toolTip) << text.name.toStdString();
    }
    EXPECT_EQ(control<QGroupBox>(screen.form(), u"Frame1"_s).title(),
              u"Requested fields during calibration data entry"_s);
    EXPECT_EQ(control<QGroupBox>(screen.form(), u"Frame2"_s).title(), u"Standards configuration"_s);
}

TEST_F(WorkConfigTest, ShowsWhatIsStored) {
    screen.open(session);
    EXPECT_EQ(statements(), (QStringList{countFields, selectAvailable, selectRequested, selectStandards}));
    EXPECT_EQ(script.firstRowOnly, (QStringList{countFields, selectStandards}));
    EXPECT_EQ(available(), (QStringList{procedure, workOrder}));
    EXPECT_EQ(requested(), (QStringList{time, date}));
    EXPECT_TRUE(screen.overdue().isChecked());
    EXPECT_FALSE(screen.poorTrace().isChecked());
    EXPECT_TRUE(screen.available().hasFocus());
    EXPECT_TRUE(isWindowOpen(session, u"FormWorkConfig"));
    EXPECT_FALSE(ui.busy);
    // The hourglass shows while it loads, and while the sum is taken at the end of that.
    EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"busy"_s, u"normal"_s, u"normal"_s}));
}

TEST_F(WorkConfigTest, OneStoredFieldIsAConfigurationToo) {
    script.answers[countFields] = {Row{u"1"_s}};
    open();
    EXPECT_EQ(requested(), (QStringList{time, date}));
    EXPECT_EQ(available(), (QStringList{procedure, workOrder}));
}

TEST_F(WorkConfigTest, WithoutStoredFieldsTheRequiredOnesAreProposedAndCountAsSaved) {
    script.answers[countFields] = {Row{u"0"_s}};
    script.answers[selectRequired] = {Row{u"2301"_s, u"Date"_s}, Row{u"2333"_s, u"Time"_s}};
    script.answers[selectOptional] = {Row{u"2309"_s, u"Procedure"_s}};
    screen.open(session);
    EXPECT_EQ(statements(), (QStringList{countFields, selectRequired, selectOptional, selectStandards}));
    EXPECT_EQ(requested(), (QStringList{date, time}));
    EXPECT_EQ(available(), QStringList{procedure});
    screen.close();
    EXPECT_FALSE(screen.isOpen());
    EXPECT_TRUE(statements().isEmpty());
}

TEST_F(WorkConfigTest, TicksABoxForYInAnyCaseAndForNothingElse) {
    const struct {
        Row row;
        bool overdue;
        bool poorTrace;
    } rows[] = {{{u"Y"_s, u"Y"_s}, true, true},        {{u"y"_s, u"n"_s}, true, false},
                {{u"N"_s, u"y"_s}, false, true},       {{u"Yes"_s, u" Y"_s}, false, false},
                {{std::nullopt, u"Y"_s}, false, true}, {{u"Y"_s, std::nullopt}, true, false},
                {{u""_s, u"1"_s}, false, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.row[0].value_or(u"null"_s).toStdString());
        script.answers[selectStandards] = {row.row};
        screen.open(session);
        EXPECT_EQ(screen.overdue().isChecked(), row.overdue);
        EXPECT_EQ(screen.poorTrace().isChecked(), row.poorTrace);
        screen.close();
    }
}

TEST_F(WorkConfigTest, AnAbsentRowOfSwitchesReadsAsNAndN) {
    script.answers[selectStandards].clear();
    open();
    EXPECT_FALSE(screen.overdue().isChecked());
    EXPECT_FALSE(screen.poorTrace().isChecked());
    EXPECT_EQ(requested(), (QStringList{time, date}));
}

TEST_F(WorkConfigTest, AFieldThatLeftTheDictionaryHasNoTitle) {
    script.answers[selectRequested] << Row{u"2399"_s, std::nullopt};
    open();
    EXPECT_EQ(requested().last(), u"C2399 : "_s);
}

TEST_F(WorkConfigTest, ADoubleClickMovesAFieldToTheEndOfTheOtherList) {
    open();
    screen.doubleClick(screen.available(), procedure);
    EXPECT_EQ(available(), QStringList{workOrder});
    EXPECT_EQ(requested(), (QStringList{time, date, procedure}));
    screen.doubleClick(screen.requested(), time);
    // Out of number order, until the next load.
    EXPECT_EQ(available(), (QStringList{workOrder, time}));
    EXPECT_EQ(requested(), (QStringList{date, procedure}));
    EXPECT_EQ(selectedRow(screen.requested()), -1);
    EXPECT_TRUE(statements().isEmpty());
}

TEST_F(WorkConfigTest, ReturnMovesTheSelectedField) {
    open();
    QTest::keyClick(&screen.available(), Qt::Key_Down);
    QTest::keyClick(&screen.available(), Qt::Key_Return);
    EXPECT_EQ(requested().size(), 3);
    EXPECT_EQ(available().size(), 1);
    screen.requested().setFocus();
    QTest::keyClick(&screen.requested(), Qt::Key_Home);
    QTest::keyClick(&screen.requested(), Qt::Key_Enter);
    EXPECT_EQ(available().last(), time);
    EXPECT_TRUE(statements().isEmpty());
}

TEST_F(WorkConfigTest, MoveButtonsSwapTheSelectedFieldWithItsNeighbourAndFollowIt) {
    script.answers[selectRequested] << Row{u"2307"_s, u"Technician"_s};
    open();
    const auto technician = u"C2307 : Technician"_s;
    screen.press(u"CommandMoveUp"_s);
    screen.press(u"CommandMoveDown"_s);
    EXPECT_EQ(requested(), (QStringList{time, date, technician}));
    screen.select(screen.requested(), technician);
    screen.press(u"CommandMoveUp"_s);
    EXPECT_EQ(requested(), (QStringList{time, technician, date}));
    screen.press(u"CommandMoveUp"_s);
    screen.press(u"CommandMoveUp"_s);
    EXPECT_EQ(requested(), (QStringList{technician, time, date}));
    EXPECT_EQ(selectedRow(screen.requested()), 0);
    screen.press(u"CommandMoveDown"_s);
    screen.press(u"CommandMoveDown"_s);
    screen.press(u"CommandMoveDown"_s);
    EXPECT_EQ(requested(), (QStringList{time, date, technician}));
    EXPECT_EQ(selectedRow(screen.requested()), 2);
}

TEST_F(WorkConfigTest, TheListOfAvailableFieldsIsNotMoved) {
    open();
    screen.select(screen.available(), workOrder);
    screen.press(u"CommandMoveUp"_s);
    EXPECT_EQ(available(), (QStringList{procedure, workOrder}));
}

TEST_F(WorkConfigTest, CancelWithoutChangesDoesNothing) {
    open();
    screen.press(u"CommandCancel"_s);
    EXPECT_TRUE(statements().isEmpty());
}

TEST_F(WorkConfigTest, CancelAsksAndYesBringsBackWhatIsStored) {
    open();
    screen.doubleClick(screen.requested(), time);
    screen.toggle(screen.overdue());
    ui.expectBox(discardToCancel, title, box::question, BoxAnswer::no);
    screen.press(u"CommandCancel"_s);
    EXPECT_EQ(requested(), QStringList{date});
    EXPECT_TRUE(statements().isEmpty());
    ui.expectBox(discardToCancel, title, box::question, BoxAnswer::yes);
    screen.press(u"CommandCancel"_s);
    EXPECT_EQ(statements(), (QStringList{countFields, selectAvailable, selectRequested, selectStandards}));
    EXPECT_EQ(requested(), (QStringList{time, date}));
    EXPECT_EQ(available(), (QStringList{procedure, workOrder}));
    EXPECT_TRUE(screen.overdue().isChecked());
    screen.close();
    EXPECT_FALSE(screen.isOpen());
}

TEST_F(WorkConfigTest, EscapeCancelsAndReturnSavesExceptInTheLists) {
    open();
    screen.toggle(screen.overdue());
    ui.expectBox(discardToCancel, title, box::question, BoxAnswer::no);
    QTest::keyClick(&screen.overdue(), Qt::Key_Escape);
    EXPECT_TRUE(statements().isEmpty());
    QTest::keyClick(&screen.overdue(), Qt::Key_Return);
    EXPECT_EQ(statements().last(), allow(u"N"_s, u"N"_s).last());
}

TEST_F(WorkConfigTest, ClosingWithChangesAsksAndNoKeepsItOpen) {
    open();
    screen.toggle(screen.poorTrace());
    ui.expectBox(discardToClose, u"Kelvane"_s, box::warningYesNo, BoxAnswer::no);
    ui.onBox = [this] { screen.close(); };
    screen.close();
    ui.onBox = {};
    EXPECT_TRUE(screen.isOpen());
    EXPECT_TRUE(screen.poorTrace().isChecked());
    ui.expectBox(discardToClose, u"Kelvane"_s, box::warningYesNo, BoxAnswer::yes);
    screen.close();
    EXPECT_FALSE(screen.isOpen());
    EXPECT_FALSE(isWindowOpen(session, u"FormWorkConfig"));
    EXPECT_TRUE(statements().isEmpty());
}

TEST_F(WorkConfigTest, ClosingKeepsThePosition) {
    settings.values.insert(u"Left/FormWorkConfig"_s, u"300"_s);
    open();
    EXPECT_EQ(screen.form().pos(), QPoint(20, 5));
    screen.close();
    EXPECT_EQ(settings.writes, (QStringList{u"Left/FormWorkConfig=300"_s, u"Top/FormWorkConfig=75"_s}));
}

TEST_F(WorkConfigTest, AnotherOrderAndSwappedTicksAreNotSeenByTheSum) {
    open();
    screen.select(screen.requested(), date);
    screen.press(u"CommandMoveUp"_s);
    screen.toggle(screen.overdue());
    screen.toggle(screen.poorTrace());
    screen.press(u"CommandCancel"_s);
    EXPECT_EQ(requested(), (QStringList{date, time}));
    EXPECT_TRUE(screen.poorTrace().isChecked());
    screen.close();
    EXPECT_FALSE(screen.isOpen());
    EXPECT_TRUE(statements().isEmpty());
}

TEST_F(WorkConfigTest, ChangesOfTheAvailableFieldsAloneCannotBeAndAFieldThereAndBackAsksNothing) {
    open();
    screen.doubleClick(screen.available(), procedure);
    screen.doubleClick(screen.requested(), procedure);
    EXPECT_EQ(available(), (QStringList{workOrder, procedure}));
    screen.close();
    EXPECT_FALSE(screen.isOpen());
}

TEST_F(WorkConfigTest, EachQueryThatFailsWhileReloadingIsReportedAndLeavesTheScreenAsItWas) {
    open();
    screen.doubleClick(screen.requested(), time);
    for (const auto& query : {countFields, selectAvailable, selectRequested, selectStandards}) {
        SCOPED_TRACE(query.toStdString());
        script.failures = {{query, refused}};
        ui.expectBox(discardToCancel, title, box::question, BoxAnswer::yes);
        ui.expectReport(547, loading);
        screen.press(u"CommandCancel"_s);
        EXPECT_TRUE(ui.hasMetAll());
        EXPECT_EQ(requested(), QStringList{date});
        EXPECT_EQ(available(), (QStringList{procedure, workOrder, time}));
        EXPECT_TRUE(folder.read(u"errors.log"_s).contains(query));
    }
}

TEST_F(WorkConfigTest, WhatWasNeverReadCannotBeSavedOverWhatIsStored) {
    script.failures = {{selectRequested, refused}};
    ui.expectReport(547, loading);
    screen.open(session);
    EXPECT_EQ(available(), QStringList());
    EXPECT_FALSE(screen.button(u"CommandSave"_s).isEnabled());
    statements();
    QTest::keyClick(&screen.overdue(), Qt::Key_Return);
    EXPECT_TRUE(statements().isEmpty());
    screen.close();
    EXPECT_FALSE(screen.isOpen());
}

TEST_F(WorkConfigTest, ANullFieldNumberOrCountIsReported) {
    for (const auto& query : {countFields, selectRequested}) {
        const auto whole = script.answers[query];
        script.answers[query] = {Row{std::nullopt, u"Nobody"_s}};
        ui.expectReport(94, loading);
        screen.open(session);
        EXPECT_TRUE(ui.hasMetAll());
        script.answers[query] = whole;
        screen.close();
    }
}

TEST_F(WorkConfigTest, NothingElseRunsWhileAQuestionIsOpen) {
    open();
    screen.toggle(screen.poorTrace());
    ui.expectBox(discardToCancel, title, box::question, BoxAnswer::no);
    ui.onBox = [this] {
        screen.press(u"CommandSave"_s);
        screen.press(u"CommandCancel"_s);
        screen.close();
    };
    screen.press(u"CommandCancel"_s);
    ui.onBox = {};
    EXPECT_TRUE(screen.isOpen());
    EXPECT_TRUE(statements().isEmpty());
}

} // namespace kelvane::testing
