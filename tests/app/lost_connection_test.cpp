// A connection that is lost while screens are open: what they hold stays, and is saved afterwards.
#include "tests/app/lost_connection_fixture.h"
#include "ui/form_custom_dialog.h"
#include "ui/text_box.h"

#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString lostAdvice = u"This workstation is no longer connected to the database. Please select "
                           u"FILE,LOG OUT from the menu, or CTRL-L to log out and reconnect."_s;
const QString enterName = u"Enter a name for the new test strategy (30 chars max!):"_s;

} // namespace

TEST_F(LostConnection, IsShownAtOnceWhoeverMeetsIt) {
    lose();
    connectAgain();
    expectConnected();
    // A record set that is read.
    const auto rows = session.SharedConnection->select(u"select i4201 from mt.inventory"_s);
    EXPECT_TRUE(rows->next());
    cut = true;
    EXPECT_THROW(rows->next(), Error);
    expectLost();
    connectAgain();
    expectConnected();
    // A transaction, and a lock.
    cut = true;
    EXPECT_THROW(session.SharedConnection->beginTransaction(), Error);
    expectLost();
    connectAgain();
    cut = true;
    EXPECT_THROW(session.SharedConnection->lock(u"mt.1301"_s), Error);
    expectLost();
}

TEST_F(LostConnection, OtherErrorsLeaveTheSessionAsItIs) {
    EXPECT_THROW(session.SharedConnection->select(u"select no_such_column from mt.inventory"_s), Error);
    expectConnected();
}

TEST_F(LostConnection, TheNextCommandSaysWhatToDoAndLogOutAndLogInWork) {
    lose();
    simulatedOperator.expectBox(lostAdvice, u"Connection To Database Lost!"_s, box::warning);
    choose(u"mnuStrategies"_s);
    EXPECT_TRUE(simulatedOperator.hasMetAll());
    choose(u"mnuLogout"_s);
    EXPECT_FALSE(again().isVisible()) << "the login screen is open";
    typeLogin(user, u"kelvane"_s);
    expectConnected();
    choose(u"mnuStrategies"_s);
    EXPECT_NE(findChild(u"FormStrategies"_s), nullptr);
}

TEST_F(LostConnection, AStrategyStaysAndIsSavedInTheSecondTry) {
    openScreen(u"mnuStrategies"_s, u"FormStrategies"_s);
    simulatedOperator.expectDialog(u"Add new test strategy"_s, enterName, u"NEW STRATEGY"_s);
    press(u"CommandAdd"_s);
    pick(controlNamed<QComboBox>(u"ComboPreDef"_s), u"3 Points Up (0-50-100%)"_s);
    expectSavedInTheSecondTry(
        {u"FormStrategies,CommandSave"_s},
        [&] {
            return controlNamed<QListWidget>(u"ListPoints"_s).count() == 3 &&
                   controlNamed<QComboBox>(u"ComboTSNames"_s).currentText() == u"NEW STRATEGY"_s;
        },
        u"select distinct(tp_name) from mt.hvm_kv_proc_points"_s, u"NEW STRATEGY"_s);
}

TEST_F(LostConnection, AMessageStaysAndIsSavedInTheSecondTry) {
    openScreen(u"mnuPrompts"_s, u"FormTestMess"_s);
    simulatedOperator.expectDialog(u"Add Test Message"_s,
                                   u"Enter a name for the new test message: (30 characters max)"_s,
                                   u"NEW MESSAGE"_s);
    press(u"CommandCreate"_s);
    QTest::keyClicks(&controlNamed<TextBox>(u"TextMessage"_s), u"Vent it."_s);
    expectSavedInTheSecondTry(
        {u"FormTestMess,CommandSave"_s},
        [&] { return controlNamed<TextBox>(u"TextMessage"_s).text() == u"Vent it."_s; },
        u"select prompt from mt.hvm_kv_prompts"_s, u"Vent it."_s);
}

TEST_F(LostConnection, APackageStaysAndIsSavedInTheSecondTry) {
    openScreen(u"mnuPredefined"_s, u"FormPredefinedTasks"_s);
    simulatedOperator.expectDialog(u"Add New Task Package"_s, enterName, u"NEW PACKAGE"_s);
    press(u"CommandAddTP"_s);
    type(u"TextListEnter"_s, u"PT-101"_s);
    press(u"CommandAdd"_s);
    expectSavedInTheSecondTry(
        {u"ModuleGlobals,ClearSystemTables"_s, u"FormPredefinedTasks,CommandSave"_s},
        [&] { return controlNamed<QListWidget>(u"ListAssets"_s).count() == 1; },
        u"select taskname from mt.hvm_kv_task_packages"_s, u"NEW PACKAGE"_s);
}

TEST_F(LostConnection, ParametersStayAndAreSavedInTheSecondTry) {
    simulatedOperator.expectDialog(u"Calibration Parameters"_s, u"Enter instrument number:"_s, u"PT-101"_s);
    openScreen(u"mnuCalParameters"_s, u"FormCalParam"_s);
    controlNamed<QTabWidget>(u"SSTab1"_s).setCurrentIndex(1);
    type(u"TextInputHigh"_s, u"123.5"_s);
    expectSavedInTheSecondTry(
        {u"FormCalParam,SaveData"_s},
        [&] { return controlNamed<QLineEdit>(u"TextInputHigh"_s).text() == u"123.5"_s; },
        u"select input_high from mt.hvm_kv_tag_config where mtag = '1401'"_s, u"123.5"_s);
}

TEST_F(LostConnection, ADownloadListStaysAndGrowsAfterwards) {
    simulatedOperator.expectDialog(u"Download"_s, u"Select Calibrator To Use:"_s, u"Fluke 702"_s);
    openScreen(u"mnuDownload"_s, u"FormDockingDown"_s);
    type(u"TextAdd"_s, u"PT-101"_s);
    press(u"CommandAdd"_s);
    const auto rows = [&] { return controlNamed<QListWidget>(u"ListCal"_s).count(); };
    ASSERT_EQ(rows(), 1);
    lose();
    type(u"TextAdd"_s, u"PT-102"_s);
    connectAgain();
    expectConnected();
    EXPECT_EQ(rows(), 1);
    EXPECT_EQ(controlNamed<QLineEdit>(u"TextAdd"_s).text(), u"PT-102"_s);
    press(u"CommandAdd"_s);
    EXPECT_EQ(rows(), 2);
}

TEST_F(LostConnection, ADownloadThatMeetsItKeepsTheListForAnotherTry) {
    simulatedOperator.expectDialog(u"Download"_s, u"Select Calibrator To Use:"_s, u"Fluke 702"_s);
    openScreen(u"mnuDownload"_s, u"FormDockingDown"_s);
    type(u"TextAdd"_s, u"PT-101"_s);
    press(u"CommandAdd"_s);
    cut = true;
    simulatedOperator.expectReport(10054, u"FormDockingDown,Download"_s);
    press(u"CommandDownload"_s);
    expectLost();
    EXPECT_TRUE(link.calls.isEmpty()) << "nothing was done to the calibrator";
    connectAgain();
    expectConnected();
    EXPECT_EQ(controlNamed<QListWidget>(u"ListCal"_s).count(), 1);
}

/// The entry of a sheet of PT-102, as far as its record.
class LostEntry : public LostConnection {
  protected:
    void expectFields() {
        const auto caption = u"Calibration Record Data (PT-102)"_s;
        const auto prompt = u"Please enter information for: "_s;
        simulatedOperator.expectDialog(caption, prompt + u"Place of Calibration"_s, u"IN PLACE"_s);
        simulatedOperator.expectDialog(caption, prompt + u"Ambient Temperature (C)"_s, u"21.5"_s);
    }
    void enter() {
        simulatedOperator.expectDialog(u"Enter Test Results From Worksheet(s)"_s,
                                       u"Enter instrument #: (or press CANCEL to quit)"_s, u"PT-102"_s);
        expectFields();
        simulatedOperator.expectDialog(u"Calibration Record Data (PT-102)"_s,
                                       u"Please enter information for: Ambient Temperature (C)"_s, u"21.5"_s);
        simulatedOperator.expectDialog(u"Standards Used"_s, u"Enter standard used:"_s, u"DWT-01"_s);
        simulatedOperator.expectDialog(u"Standards Used"_s, u"Enter standard used:"_s, QString());
        openScreen(u"mnuEnter"_s, u"FormWorkEntry"_s);
    }
    int records() {
        return stored(u"select count(*) from mt.calibration where mtag = '1402' and cdsrc = 'KVN'"_s)
            .first()
            .toInt();
    }
};

TEST_F(LostEntry, OfAWorksheetStaysAndItsRecordIsMade) {
    enter();
    const int before = records();
    lose();
    const auto rows = [&] { return controlNamed<QListWidget>(u"ListStandards"_s).count(); };
    EXPECT_EQ(rows(), 1);
    connectAgain();
    expectConnected();
    EXPECT_EQ(rows(), 1);
    EXPECT_EQ(controlNamed<QLineEdit>(u"TextCalAsset"_s).text(), u"PT-102"_s);
    expectFields();
    press(u"CommandSave"_s);
    EXPECT_TRUE(simulatedOperator.hasMetAll());
    EXPECT_EQ(records(), before + 1);
}

TEST_F(LostEntry, WhoseRecordMeetsItIsOfferedAfterwards) {
    enter();
    const int before = records();
    cut = true;
    simulatedOperator.expectReport(10054, u"ModuleGlobals,CheckAsset"_s);
    simulatedOperator.expectReport(10054, u"ModuleGlobals,calcDueDate"_s);
    simulatedOperator.expectBox(lostAdvice, u"Calibration Record Creation"_s, box::stop);
    press(u"CommandSave"_s);
    EXPECT_TRUE(simulatedOperator.hasMetAll());
    expectLost();
    EXPECT_NE(findChild(u"FormUnfinishedResults"_s), nullptr);
    connectAgain();
    expectConnected();
    EXPECT_NE(findChild(u"FormUnfinishedResults"_s), nullptr);
    EXPECT_EQ(records(), before);
}

} // namespace kelvane::testing
