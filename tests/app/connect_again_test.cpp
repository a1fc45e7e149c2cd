// The button of the status line, and the login screen that it opens.
#include "data/session_values.h"
#include "tests/app/lost_connection_fixture.h"
#include "tests/worksheets/small_layout.h"
#include "ui/form_custom_dialog.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString lostAdvice = u"This workstation is no longer connected to the database. Please select "
                           u"FILE,LOG OUT from the menu, or CTRL-L to log out and reconnect."_s;
const QString loginFailed =
    u"Database connection Failed! Check username/password and network connection and try again..."_s;

} // namespace

TEST_F(LostConnection, TheScreenNamesTheUserWhoCanNotBeChanged) {
    choose(u"mnuStrategies"_s);
    lose();
    click(again());
    EXPECT_FALSE(again().isVisible()) << "the screen is open now";
    const auto& form = child(u"FormConnect"_s);
    auto& name = control<QLineEdit>(form, u"TextUsername"_s);
    EXPECT_EQ(name.text(), user);
    EXPECT_TRUE(name.isReadOnly());
    QTest::keyClicks(&name, u"efischer"_s);
    EXPECT_EQ(name.text(), user);
    const auto& cancelling = control<QPushButton>(form, u"CommandCancel"_s);
    EXPECT_EQ(cancelling.text(), u"Cancel"_s);
    EXPECT_EQ(cancelling.toolTip(), u"Go back to the open windows without a connection"_s);
}

TEST_F(LostConnection, CancellingLeavesAllAsItIs) {
    choose(u"mnuStrategies"_s);
    lose();
    const std::function<void()> ways[] = {
        [&] { click(control<QPushButton>(child(u"FormConnect"_s), u"CommandCancel"_s)); },
        [&] { child(u"FormConnect"_s).close(); },
        [&] {
            QTest::keyClick(&control<QLineEdit>(child(u"FormConnect"_s), u"TextPassword"_s), Qt::Key_Escape);
        },
    };
    for (const auto& cancelIt : ways) {
        click(again());
        cancelIt();
        EXPECT_EQ(openChildren(), QStringList{u"FormStrategies"_s});
        expectLost();
    }
    simulatedOperator.expectBox(lostAdvice, u"Connection To Database Lost!"_s, box::warning);
    choose(u"mnuPrompts"_s);
    EXPECT_EQ(processEnded, 0);
}

TEST_F(LostConnection, ARefusedLoginLeavesTheScreenForAnotherTry) {
    choose(u"mnuStrategies"_s);
    lose();
    simulatedOperator.expectBox(loginFailed, u"Kelvane"_s, box::stop);
    connectAgain(u"wrong"_s);
    EXPECT_TRUE(simulatedOperator.hasMetAll());
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_EQ(session.SessionUser, user);
    EXPECT_EQ(session.SessionOwner, u"MT"_s);
    EXPECT_EQ(session.SessionLevel, 5);
    connectAgain();
    expectConnected();
}

TEST_F(LostConnection, LostWhileItIsMadeAgainItIsMadeOnceMore) {
    lose();
    cut = true; // meets the first statement behind the opening
    simulatedOperator.expectBox(loginFailed, u"Kelvane"_s, box::stop);
    connectAgain();
    EXPECT_TRUE(simulatedOperator.hasMetAll());
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_EQ(session.SessionOwner, u"MT"_s);
    connectAgain();
    expectConnected();
}

TEST_F(LostConnection, LostTwiceItIsMadeAgainTwice) {
    choose(u"mnuStrategies"_s);
    for (int time = 0; time < 2; ++time) {
        lose();
        connectAgain();
        expectConnected();
    }
    EXPECT_EQ(openChildren(), QStringList{u"FormStrategies"_s});
}

TEST_F(LostConnection, AUserOrASiteThatIsAnotherOneNowIsRefused) {
    choose(u"mnuStrategies"_s);
    const auto ofUser = u"update mt.userlist set %1 where mtuser = 'dsantos'"_s;
    const auto ofSite = u"update mt.dbconfig set %1"_s;
    const struct {
        QString update;
        QString change;
        QString undo;
    } changes[] = {{ofUser, u"mtlevel = 1"_s, u"mtlevel = 5"_s},
                   {ofUser, u"i4240 = 'ABC'"_s, u"i4240 = 'MT'"_s},
                   {ofSite, u"datecode = 1"_s, u"datecode = 0"_s},
                   {ofSite, u"b_cal_p = 0"_s, u"b_cal_p = 1"_s}};
    const auto before = databaseValuesOf(session);
    for (const auto& [update, change, undo] : changes) {
        SCOPED_TRACE(change.toStdString());
        lose();
        executeAnything(*database.connect(), update.arg(change));
        simulatedOperator.expectBox(u"The account of dsantos or the site's configuration has been changed "
                                    u"meanwhile. Please note down "
                                    "what is not saved, close all windows, log out and log in."_s,
                                    u"Kelvane"_s, box::stop);
        connectAgain();
        EXPECT_TRUE(simulatedOperator.hasMetAll());
        EXPECT_FALSE(session.SessionConnected);
        EXPECT_FALSE(session.SharedConnection->isOpen());
        EXPECT_EQ(databaseValuesOf(session), before);
        executeAnything(*database.connect(), update.arg(undo));
        connectAgain();
        expectConnected();
    }
}

TEST_F(LostConnection, ANewDataSourceWaitsForTheNextLogin) {
    choose(u"mnuStrategies"_s);
    settings.values.insert(u"Workstation/ODBC"_s, u"another"_s);
    lose();
    connectAgain();
    expectConnected();
    EXPECT_EQ(session.SessionDataSource, database.dsn());
}

TEST_F(LostConnection, TheButtonIsReachedByTheKeyboardAndDescribed) {
    EXPECT_FALSE(again().isVisible());
    lose();
    EXPECT_EQ(again().accessibleName(), u"Connect Again"_s);
    EXPECT_EQ(again().toolTip(), u"Connect to the database again; all windows stay open"_s);
    EXPECT_TRUE(again().focusPolicy() & Qt::TabFocus);
    const auto mnemonic = QKeySequence::mnemonic(again().text());
    ASSERT_FALSE(mnemonic.isEmpty());
    for (const auto* menu : {"mnuFile", "mnuCalibration", "mnuParameters", "mnuHelp"})
        EXPECT_NE(QKeySequence::mnemonic(action(QLatin1StringView(menu))->text()), mnemonic) << menu;
    QTest::keyClick(&program.window, mnemonic[0].key(), mnemonic[0].keyboardModifiers());
    EXPECT_TRUE(QTest::qWaitFor([&] { return findChild(u"FormConnect"_s) != nullptr; }));
}

TEST_F(LostConnection, DuringLongWorkTheButtonWaits) {
    program.ui.showProgress(u"Long work"_s);
    cut = true;
    EXPECT_THROW(session.SharedConnection->select(u"select datecode from mt.dbconfig"_s), Error);
    EXPECT_TRUE(again().isVisible());
    EXPECT_FALSE(again().isEnabled());
    program.ui.hideProgress();
    expectLost();
}

TEST_F(LostConnection, DuringAQuestionTheButtonBringsTheQuestionForward) {
    simulatedOperator.expectDialog(u"Download"_s, u"Select Calibrator To Use:"_s,
                                   [&](FormCustomDialog& dialog) {
                                       lose();
                                       click(again());
                                       EXPECT_EQ(findChild(u"FormConnect"_s), nullptr);
                                       cancel(dialog);
                                   });
    choose(u"mnuDownload"_s);
    EXPECT_TRUE(simulatedOperator.hasMetAll());
    expectLost();
}

TEST_F(LostConnection, OfAReportEndsThatOfTheSessionToo) {
    writeSmallLayout(folder);
    const ReportRequest request{
        .connect = u"DSN = %1;UID = dsantos;PWD = kelvane"_s.arg(database.dsn()),
        .windowTitle = u"Calibration Worksheet"_s,
        .reportFileName = u"kvwrksht.rpt"_s,
        .formulas = {u"task_id='WS7Q2K9D4M1X8B5N3V6C0Z2L7J4H1G'"_s},
    };
    cut = true;
    EXPECT_EQ(program.reports.run(request), 1);
    EXPECT_TRUE(program.reports.lastErrorText().contains(u"Connection lost"_s))
        << program.reports.lastErrorText().toStdString();
    expectLost();
    connectAgain();
    expectConnected();
}

TEST_F(LostConnection, AtTheLoginIsTheToldMessageAndTheNextTryWorks) {
    choose(u"mnuLogout"_s);
    cut = true;
    simulatedOperator.expectBox(loginFailed, u"Kelvane"_s, box::stop);
    typeLogin(user, u"kelvane"_s);
    EXPECT_TRUE(simulatedOperator.hasMetAll());
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_FALSE(again().isVisible()) << "the login screen is open";
    typeLogin(user, u"kelvane"_s);
    expectConnected();
}

} // namespace kelvane::testing
