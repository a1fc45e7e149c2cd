#include "testkit/program_fixture.h"
#include "ui/open_windows.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString title = u"Kelvane"_s;
const QString bothNeeded = u"Must enter username AND password!"_s;
const QString failed =
    u"Database connection Failed! Check username/password and network connection and try again..."_s;
const QString exitQuestion = u"Are you sure you want to exit?"_s;

} // namespace

class FormConnectTest : public ProgramTest {
  protected:
    ChildWindow& form() { return child(u"FormConnect"_s); }
    QLineEdit& name() { return control<QLineEdit>(form(), u"TextUsername"_s); }
    QLineEdit& secret() { return control<QLineEdit>(form(), u"TextPassword"_s); }
    QPushButton& connectButton() { return control<QPushButton>(form(), u"CommandConnect"_s); }
    QPushButton& exitButton() { return control<QPushButton>(form(), u"CommandCancel"_s); }
    void fill(const QString& user, const QString& password) {
        name().setText(user);
        secret().setText(password);
    }
    void expectReadyForAnotherTry() {
        EXPECT_TRUE(secret().text().isEmpty());
        EXPECT_TRUE(secret().hasFocus());
        EXPECT_TRUE(connectButton().isEnabled());
        EXPECT_TRUE(exitButton().isEnabled());
        EXPECT_FALSE(QApplication::overrideCursor());
    }
};

TEST_F(FormConnectTest, HasItsSizePlaceTextsAndFocus) {
    start();
    EXPECT_EQ(form().geometry(), QRect(7, 5, 549, 105));
    EXPECT_EQ(form().windowTitle(), u"Connect to MET Database"_s);
    EXPECT_EQ(control<QLabel>(form(), u"Label1"_s).text(), u"Please Login:"_s);
    EXPECT_EQ(control<QLabel>(form(), u"Label2"_s).text(), u"Username:"_s);
    EXPECT_EQ(control<QLabel>(form(), u"Label3"_s).text(), u"Password:"_s);
    EXPECT_EQ(connectButton().text(), u"Connect"_s);
    EXPECT_EQ(exitButton().text(), u"Exit"_s);
    EXPECT_EQ(name().toolTip(), u"Enter your username"_s);
    EXPECT_EQ(secret().toolTip(), u"Enter your password"_s);
    EXPECT_EQ(connectButton().toolTip(), u"Connect to the database"_s);
    EXPECT_EQ(exitButton().toolTip(), u"Exit Kelvane"_s);
    EXPECT_TRUE(name().hasFocus());
    EXPECT_TRUE(name().text().isEmpty());
}

TEST_F(FormConnectTest, ThePasswordShowsAStarForEachCharacter) {
    start();
    QTest::keyClicks(&secret(), u"abc"_s);
    EXPECT_EQ(secret().displayText(), u"***"_s);
    EXPECT_EQ(secret().text(), u"abc"_s);
}

TEST_F(FormConnectTest, TheLastNameIsThereSelected) {
    settings.values.insert(u"Defaults/Username"_s, u" jdoe "_s);
    start();
    EXPECT_EQ(name().text(), u" jdoe "_s);
    EXPECT_EQ(name().selectedText(), u" jdoe "_s);
}

TEST_F(FormConnectTest, NameAndPasswordAreNeeded) {
    start();
    const struct {
        QString user;
        QString password;
        bool nameFocused;
    } rows[] = {{u""_s, u""_s, true}, {u""_s, u"x"_s, true}, {u"x"_s, u""_s, false}};
    for (const auto& row : rows) {
        fill(row.user, row.password);
        simulatedOperator.expectBox(bothNeeded, title, box::warning);
        click(connectButton());
        EXPECT_EQ(name().hasFocus(), row.nameFocused);
        EXPECT_EQ(secret().hasFocus(), !row.nameFocused);
        EXPECT_EQ(name().text(), row.user);
        EXPECT_EQ(secret().text(), row.password);
    }
    EXPECT_TRUE(script.opened.isEmpty());
}

TEST_F(FormConnectTest, APasswordOfBlanksIsOneAndIsPassedAsAnEmptyOne) {
    answerLogin(u"jdoe"_s, u"MT"_s, u"4"_s);
    start();
    typeLogin(u"jdoe"_s, u"   "_s);
    EXPECT_TRUE(session.SessionConnected);
    EXPECT_EQ(script.opened, (QStringList{u"DSN=Calibration Data"_s, u"jdoe"_s, QString()}));
}

TEST_F(FormConnectTest, AQuoteInTheNameBreaksTheStatementAndEndsInTheSameMessage) {
    script.failures.insert(u"select (select i4240 from mt.userlist where mtuser = 'o'brien'),(select "
                           "mtlevel  from mt.userlist where mtuser = 'o'brien')"_s,
                           Error{1, u"near \"brien\": syntax error"_s});
    start();
    simulatedOperator.expectBox(failed, title, box::stop);
    typeLogin(u"o'brien"_s, u"secret"_s);
    expectReadyForAnotherTry();
}

TEST_F(FormConnectTest, AGoodLoginClosesTheScreenAndOpensTheMenu) {
    answerLogin(u"jdoe"_s, u"MT"_s, u"4"_s);
    start();
    typeLogin(u"jdoe"_s, u"secret"_s);
    EXPECT_TRUE(session.SessionConnected);
    EXPECT_EQ(findChild(u"FormConnect"_s), nullptr);
    EXPECT_FALSE(isWindowOpen(session, u"FormConnect"));
    EXPECT_FALSE(QApplication::overrideCursor());
    EXPECT_TRUE(action(u"mnuDownload"_s)->isEnabled());
    EXPECT_EQ(settings.values.value(u"Defaults/Username"_s), u"jdoe"_s);
    EXPECT_EQ(settings.values.value(u"Left/FormConnect"_s), u"105"_s);
    EXPECT_EQ(settings.values.value(u"Top/FormConnect"_s), u"75"_s);
}

TEST_F(FormConnectTest, WhileItRunsThePointerIsBusyAndTheButtonsAreDisabled) {
    answerLogin(u"jdoe"_s, u"MT"_s, u"4"_s);
    start();
    bool looked = false;
    session.makeConnection = [&]() -> std::unique_ptr<Connection> {
        looked = true;
        EXPECT_FALSE(connectButton().isEnabled());
        EXPECT_FALSE(exitButton().isEnabled());
        EXPECT_TRUE(QApplication::overrideCursor());
        // Nor can the frame interrupt it.
        form().close();
        return std::make_unique<RecordingConnection>(script);
    };
    typeLogin(u"jdoe"_s, u"secret"_s);
    EXPECT_TRUE(looked);
    EXPECT_TRUE(session.SessionConnected);
}

TEST_F(FormConnectTest, AWrongLoginIsReportedAndCanBeRepeated) {
    answerLogin(u"jdoe"_s, u"MT"_s, u"4"_s);
    script.failures.insert(u"DSN=Calibration Data"_s, Error{28000, u"wrong"_s});
    start();
    simulatedOperator.expectBox(failed, title, box::stop);
    typeLogin(u"jdoe"_s, u"wrong"_s);
    expectReadyForAnotherTry();
    EXPECT_EQ(name().text(), u"jdoe"_s);
    EXPECT_FALSE(session.SessionConnected);

    script.failures.clear();
    typeLogin(u"jdoe"_s, u"secret"_s);
    EXPECT_TRUE(session.SessionConnected);
}

TEST_F(FormConnectTest, ARefusedLoginLeavesItsReasonInTheLog) {
    answerLogin(u"jdoe"_s, u"MT"_s, u"4"_s);
    script.failures.insert(u"DSN=Calibration Data"_s,
                           Error{-103, u"Login or password\r\nis not valid."_s, u"28000"_s});
    start();
    simulatedOperator.expectBox(failed, title, box::stop);
    typeLogin(u"jdoe"_s, u"secret"_s);
    EXPECT_EQ(folder.read(u"errors.log"_s),
              u"[2026-03-18 09:30:00] The login failed: -103 Login or password is not valid.\r\n"_s);

    // A log that can't be written takes nothing away from the box.
    QFile::remove(u"errors.log"_s);
    QDir().mkdir(u"errors.log"_s);
    simulatedOperator.expectBox(failed, title, box::stop);
    typeLogin(u"jdoe"_s, u"secret"_s);
    expectReadyForAnotherTry();
}

class RefusedLogins : public FormConnectTest {
  protected:
    std::function<void()> atBox = [] {};
    /// The seconds that pass, by the clock, until a login is refused. The clock advances with each reading.
    qint64 secondsOfRefusal() {
        script.failures.insert(u"DSN=Calibration Data"_s, Error{-103, u"wrong"_s, u"28000"_s});
        clock.tick = 0;
        const auto before = clock.now();
        clock.tick = 1;
        qint64 seconds = -1;
        simulatedOperator.expectBox(failed, title, box::stop, [&](QMessageBox& box) {
            atBox();
            clock.tick = 0;
            seconds = before.secsTo(clock.now());
            click(*box.buttons().first());
        });
        typeLogin(u"jdoe"_s, u"guess"_s);
        script.failures.clear();
        return seconds;
    }
};

TEST_F(RefusedLogins, InARowWaitLongerEachTime) {
    answerLogin(u"jdoe"_s, u"MT"_s, u"4"_s);
    start();
    // Readings of the clock beside the wait: one for the log, one for its start.
    EXPECT_EQ(secondsOfRefusal(), 1) << "the first one waits for nothing";
    EXPECT_EQ(secondsOfRefusal(), 1 + 1 + 1);
    EXPECT_EQ(secondsOfRefusal(), 1 + 1 + 2);
    EXPECT_EQ(secondsOfRefusal(), 1 + 1 + 4);
    EXPECT_EQ(secondsOfRefusal(), 1 + 1 + 8);
    expectReadyForAnotherTry();
}

TEST_F(RefusedLogins, NeverWaitLongerThanAMinute) {
    start();
    qint64 seconds = 0;
    clock.tick = 0;
    for (int attempt = 0; attempt < 6; ++attempt) {
        script.failures.insert(u"DSN=Calibration Data"_s, Error{-103, u"wrong"_s, u"28000"_s});
        // A whole minute passes with a look: the wait is over at once.
        clock.tick = 60;
        simulatedOperator.expectBox(failed, title, box::stop);
        typeLogin(u"jdoe"_s, u"guess"_s);
    }
    seconds = secondsOfRefusal();
    EXPECT_EQ(seconds, 1 + 1 + 32);
    EXPECT_EQ(secondsOfRefusal(), 1 + 1 + 60);
    EXPECT_EQ(secondsOfRefusal(), 1 + 1 + 60);
}

TEST_F(RefusedLogins, ARightOneDoesNotWaitAndTheNextRowBeginsAnew) {
    answerLogin(u"jdoe"_s, u"MT"_s, u"4"_s);
    start();
    for (int attempt = 0; attempt < 4; ++attempt)
        secondsOfRefusal();
    clock.tick = 0;
    const auto before = clock.now();
    clock.tick = 1;
    typeLogin(u"jdoe"_s, u"secret"_s);
    clock.tick = 0;
    EXPECT_TRUE(session.SessionConnected);
    EXPECT_EQ(before, clock.now());
    choose(u"mnuLogout"_s);
    EXPECT_EQ(secondsOfRefusal(), 1);
}

TEST_F(RefusedLogins, KeepPaintingWhileTheyWaitBusyWithTheButtonsDisabled) {
    start();
    for (int attempt = 0; attempt < 3; ++attempt)
        secondsOfRefusal();
    int turns = 0;
    bool waiting = true;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        if (!script.opened.isEmpty() && QApplication::activeModalWidget() == nullptr) {
            ++turns;
            waiting = waiting && !connectButton().isEnabled() && !exitButton().isEnabled() &&
                      QApplication::overrideCursor() != nullptr;
        }
    });
    script.opened.clear();
    timer.start(0);
    atBox = [&] { timer.stop(); };
    secondsOfRefusal();
    EXPECT_GE(turns, 3);
    EXPECT_TRUE(waiting);
}

TEST_F(RefusedLogins, DoNotCountWhenTheConnectionWasOpened) {
    script.answers.clear();
    start();
    for (int attempt = 0; attempt < 3; ++attempt) {
        clock.tick = 0;
        const auto before = clock.now();
        simulatedOperator.expectBox(failed, title, box::stop);
        clock.tick = 1;
        typeLogin(u"nobody"_s, u"secret"_s);
        clock.tick = 0;
        EXPECT_LE(before.secsTo(clock.now()), 2) << attempt;
    }
}

TEST_F(FormConnectTest, EachLaterFailureEndsInTheSameMessage) {
    const auto site = u"select datecode,version,b_cal_4225,b_cal_4224,b_cal_p from mt.dbconfig"_s;
    const struct {
        const char* what;
        std::function<void()> spoil;
    } rows[] = {
        {"user without a row",
         [&] {
             script.answers.insert(u"select (select i4240 from mt.userlist where mtuser = 'jdoe'),(select "
                                   "mtlevel  from mt.userlist where mtuser = 'jdoe')"_s,
                                   {Row{std::nullopt, std::nullopt}});
         }},
        {"no site row", [&] { script.answers.remove(site); }},
        {"site not readable",
         [&] {
             script.failures.insert(site, Error{208, u"no table"_s});
         }},
        {"connection lost",
         [&] {
             script.failures.insert(site, Error{10054, u"gone"_s, u"08S01"_s, true});
         }},
    };
    start();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        script.open = false;
        script.lost = false;
        script.failures.clear();
        answerLogin(u"jdoe"_s, u"MT"_s, u"4"_s);
        row.spoil();
        simulatedOperator.expectBox(failed, title, box::stop);
        typeLogin(u"jdoe"_s, u"secret"_s);
        expectReadyForAnotherTry();
        EXPECT_TRUE(isWindowOpen(session, u"FormConnect"));
    }
}

TEST_F(FormConnectTest, AUserWithoutARowLeavesTheConnectionOpenSoThatTheNextTryFailsToo) {
    answerLogin(u"jdoe"_s, u"MT"_s, u"4"_s);
    start();
    for (int attempt = 0; attempt < 2; ++attempt) {
        simulatedOperator.expectBox(failed, title, box::stop);
        typeLogin(attempt == 0 ? u"nobody"_s : u"jdoe"_s, u"secret"_s);
    }
    EXPECT_TRUE(script.open);
    EXPECT_TRUE(session.SessionConnected);
    EXPECT_TRUE(action(u"mnuLogout"_s)->isEnabled());
    // Log out is of no help: the login screen itself is open.
    simulatedOperator.expectBox(
        u"One or more windows are still open! Please close open windows before logging out..."_s, title,
        box::warning);
    choose(u"mnuLogout"_s);
}

TEST_F(FormConnectTest, EveryExitAsksForConfirmation) {
    start();
    const std::function<void()> ways[] = {
        [&] { click(exitButton()); },
        [&] { QTest::keyClick(&name(), Qt::Key_Escape); },
        [&] { form().close(); },
        [&] { QTest::keyClick(&name(), Qt::Key_F4, Qt::ControlModifier); },
    };
    for (const auto& leave : ways) {
        simulatedOperator.expectBox(exitQuestion, title, box::question, BoxAnswer::no);
        leave();
        EXPECT_EQ(processEnded, 0);
        EXPECT_TRUE(form().isVisible());
    }
    int ended = 0;
    for (const auto& leave : ways) {
        simulatedOperator.expectBox(exitQuestion, title, box::question, BoxAnswer::yes);
        leave();
        EXPECT_EQ(processEnded, ++ended);
    }
}

} // namespace kelvane::testing
