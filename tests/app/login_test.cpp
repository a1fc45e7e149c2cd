#include "app/login.h"
#include "testkit/fixtures.h"
#include "testkit/forwarding_connection.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString selectSite = u"select datecode,version,b_cal_4225,b_cal_4224,b_cal_p from mt.dbconfig"_s;
const QString selectEditors = u"select procedit from mt.dbconfig"_s;

QString selectUser(const QString& name) {
    return u"select (select i4240 from mt.userlist where mtuser = '"_s + name +
           u"'),(select mtlevel  from mt.userlist where mtuser = '"_s + name + u"')"_s;
}

} // namespace

/// A session before its first login.
class LogIn : public RecordedSession {
  protected:
    LogIn() {
        script.open = false;
        session.SessionOwner.clear();
        session.SessionUser.clear();
        session.SessionLevel = 0;
        session.SessionDateFormat.clear();
        session.SessionDbVersion = 0;
        session.SessionConnected = false;
        script.answers.insert(selectUser(u"jdoe"_s), {Row{u"STD"_s, u"4"_s}});
        script.answers.insert(selectEditors, {Row{u"3"_s}});
        site(u"0"_s, u"6"_s, u"1"_s, u"0"_s, u"1"_s);
    }

    void site(const std::optional<QString>& datecode, const std::optional<QString>& version,
              const std::optional<QString>& b4225, const std::optional<QString>& b4224,
              const std::optional<QString>& bp) {
        script.answers.insert(selectSite, {Row{datecode, version, b4225, b4224, bp}});
    }
    void logInAs(const QString& user, const QString& password = u"secret"_s) {
        logIn(session, menu, user, password);
    }
    /// The number of the error that a login ends with, or 0.
    double failure(const QString& user, const QString& password = u"secret"_s) {
        try {
            logInAs(user, password);
        } catch (const Error& error) {
            return error.number;
        }
        return 0;
    }

    Menu menu;
};

TEST_F(LogIn, FillsTheSessionAndRunsItsStatementsInOrder) {
    logInAs(u"jdoe"_s);
    EXPECT_EQ(session.SessionOwner, u"STD"_s);
    EXPECT_EQ(session.SessionLevel, 4);
    EXPECT_EQ(session.SessionUser, u"jdoe"_s);
    EXPECT_EQ(session.SessionPassword, u"secret"_s);
    EXPECT_EQ(session.SessionDataSource, u"Calibration Data"_s);
    EXPECT_EQ(session.SessionDateFormat, u"MM/DD/YYYY"_s);
    EXPECT_EQ(session.SessionDbVersion, 6);
    EXPECT_TRUE(session.BCal4225);
    EXPECT_FALSE(session.BCal4224);
    EXPECT_TRUE(session.BCalP);
    EXPECT_TRUE(session.SessionConnected);
    EXPECT_EQ(script.opened, (QStringList{u"DSN=Calibration Data"_s, u"jdoe"_s, u"secret"_s}));
    ASSERT_GE(script.statements.size(), 4);
    EXPECT_EQ(script.statements.mid(0, 3), (QStringList{selectUser(u"jdoe"_s), selectSite, selectEditors}));
    // The sweep of the system tables comes last.
    EXPECT_EQ(script.statements[3],
              u"delete from mt.hvm_kv_task_inuse where entered_date < now(*) - 90;commit"_s);
    EXPECT_EQ(script.firstRowOnly, script.statements.mid(0, 3));
    EXPECT_TRUE(menu.isReachable(MenuEntry::mnuPredefined));
}

TEST_F(LogIn, TheChosenDataSourceIsUsed) {
    settings.values.insert(u"Workstation/ODBC"_s, u"Site B"_s);
    logInAs(u"jdoe"_s);
    EXPECT_EQ(script.opened.first(), u"DSN=Site B"_s);
    EXPECT_EQ(session.SessionDataSource, u"Site B"_s);
}

TEST_F(LogIn, TheNameIsStoredAsTypedAndUsedTrimmed) {
    logInAs(u"  jdoe "_s, u" secret  "_s);
    EXPECT_EQ(settings.values.value(u"Defaults/Username"_s), u"  jdoe "_s);
    EXPECT_EQ(script.opened.mid(1), (QStringList{u"jdoe"_s, u"secret"_s}));
    EXPECT_EQ(session.SessionUser, u"jdoe"_s);
    EXPECT_EQ(session.SessionPassword, u"secret"_s);
    EXPECT_EQ(script.statements.first(), selectUser(u"jdoe"_s));
}

TEST_F(LogIn, APasswordOfBlanksIsPassedAsAnEmptyOne) {
    logInAs(u"jdoe"_s, u"   "_s);
    EXPECT_EQ(script.opened.last(), QString());
    EXPECT_EQ(session.SessionPassword, QString());
}

TEST_F(LogIn, TheDatabaseOwnerInAnyCaseNeedsNoRow) {
    for (const auto& name : {u"MT"_s, u"mt"_s, u" mt "_s, u"Mt"_s}) {
        SCOPED_TRACE(name.toStdString());
        script.open = false;
        session.SharedConnection.reset();
        session.SessionOwner.clear();
        session.SessionLevel = 0;
        EXPECT_EQ(failure(name), 0);
        EXPECT_EQ(session.SessionOwner, u"MT"_s);
        EXPECT_EQ(session.SessionLevel, 6);
        EXPECT_EQ(session.SessionUser, name.trimmed());
    }
}

TEST_F(LogIn, TheDatabaseOwnerIsThatWhateverTheUserListSays) {
    script.answers.insert(selectUser(u"mt"_s), {Row{u"STD"_s, u"1"_s}});
    logInAs(u"mt"_s);
    EXPECT_EQ(session.SessionOwner, u"MT"_s);
    EXPECT_EQ(session.SessionLevel, 6);
}

TEST_F(LogIn, TheLevelIsTheNumericValueRoundedHalfToEven) {
    const struct {
        QStringView level;
        qint16 expected;
    } rows[] = {{u"3", 3}, {u"2.5", 2}, {u"3.5", 4}, {u"4 of 6", 4}, {u"abc", 0}, {u"", 0}, {u" 5 ", 5}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.level.toString().toStdString());
        script.open = false;
        session.SharedConnection.reset();
        script.answers.insert(selectUser(u"jdoe"_s), {Row{u"MT"_s, row.level.toString()}});
        EXPECT_EQ(failure(u"jdoe"_s), 0);
        EXPECT_EQ(session.SessionLevel, row.expected);
    }
    script.open = false;
    session.SharedConnection.reset();
    script.answers.insert(selectUser(u"jdoe"_s), {Row{u"MT"_s, u"40000"_s}});
    EXPECT_EQ(failure(u"jdoe"_s), 6);
}

TEST_F(LogIn, AUserWithoutARowFailsAndLeavesConnectionAndMenuOpen) {
    script.answers.insert(selectUser(u"nobody"_s), {Row{std::nullopt, std::nullopt}});
    EXPECT_EQ(failure(u"nobody"_s), 94);
    EXPECT_TRUE(script.open);
    EXPECT_TRUE(session.SessionConnected);
    EXPECT_TRUE(menu.isEnabled(MenuEntry::mnuDownload));
    EXPECT_TRUE(menu.isReachable(MenuEntry::mnuLogout));
    EXPECT_FALSE(script.statements.contains(selectSite));
}

TEST_F(LogIn, ASecondTryAfterThatFailsBecauseTheConnectionIsOpen) {
    script.answers.insert(selectUser(u"nobody"_s), {Row{std::nullopt, std::nullopt}});
    EXPECT_EQ(failure(u"nobody"_s), 94);
    EXPECT_EQ(failure(u"jdoe"_s), 3705);
}

TEST_F(LogIn, AQuoteInTheNameGoesIntoTheStatementAsItIs) {
    EXPECT_EQ(failure(u"o'brien"_s), 1);
    EXPECT_EQ(script.statements, QStringList()) << "one that ends its own quotes is the syntax error itself";
    session.SharedConnection.reset();
    script.open = false;
    EXPECT_EQ(failure(u"o''brien"_s), 3021);
    EXPECT_EQ(script.statements, QStringList{selectUser(u"o''brien"_s)});
}

TEST_F(LogIn, TheEndOfTheProcessClosesTheConnectionWhateverComes) {
    closeConnection(session);
    EXPECT_FALSE(session.SharedConnection) << "there was none, and none is made";
    logInAs(u"jdoe"_s);
    closeConnection(session);
    EXPECT_FALSE(script.open);
    class Stuck final : public ForwardingConnection {
      public:
        using ForwardingConnection::ForwardingConnection;
        void close() override { throw makeError(ErrorNumber::connectionClosed); }
    };
    session.SharedConnection = std::make_unique<Stuck>(std::move(session.SharedConnection));
    EXPECT_NO_THROW(closeConnection(session));
}

TEST_F(LogIn, AWrongLoginStopsBeforeAnythingIsKept) {
    script.failures.insert(u"DSN=Calibration Data"_s, Error{28000, u"Login or password"_s});
    EXPECT_EQ(failure(u"jdoe"_s), 28000);
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_EQ(session.SessionUser, QString());
    EXPECT_FALSE(settings.values.contains(u"Defaults/Username"_s));
    EXPECT_FALSE(menu.isEnabled(MenuEntry::mnuLogout));
    EXPECT_TRUE(script.statements.isEmpty());
}

TEST_F(LogIn, DateCodesSetTheirFormatAndOthersLeaveIt) {
    const struct {
        QStringView code;
        QStringView before;
        QStringView expected;
    } rows[] = {
        {u"0", u"", u"MM/DD/YYYY"},
        {u"1", u"", u"DD/MM/YYYY"},
        {u"2", u"", u"YYYY/MM/DD"},
        {u"3", u"", u""},
        {u"3", u"DD/MM/YYYY", u"DD/MM/YYYY"},
        {u"0.5", u"YYYY/MM/DD", u"YYYY/MM/DD"},
        {u"", u"", u"MM/DD/YYYY"},
        {u"-1", u"", u""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.code.toString().toStdString() + " after " + row.before.toString().toStdString());
        script.open = false;
        session.SharedConnection.reset();
        session.SessionDateFormat = row.before.toString();
        site(row.code.toString(), u"6"_s, u"0"_s, u"0"_s, u"0"_s);
        EXPECT_EQ(failure(u"jdoe"_s), 0);
        EXPECT_EQ(session.SessionDateFormat, row.expected.toString());
    }
}

TEST_F(LogIn, AFlagOfTwoKeepsItsEarlierValue) {
    for (const bool earlier : {false, true}) {
        script.open = false;
        session.SharedConnection.reset();
        session.BCal4225 = session.BCal4224 = session.BCalP = earlier;
        site(u"0"_s, u"6"_s, u"2"_s, u"2"_s, u"2"_s);
        logInAs(u"jdoe"_s);
        EXPECT_EQ(session.BCal4225, earlier);
        EXPECT_EQ(session.BCal4224, earlier);
        EXPECT_EQ(session.BCalP, earlier);
    }
}

TEST_F(LogIn, EachFlagComesFromItsOwnColumn) {
    site(u"0"_s, u"6"_s, u"0"_s, u"1"_s, u"0"_s);
    logInAs(u"jdoe"_s);
    EXPECT_FALSE(session.BCal4225);
    EXPECT_TRUE(session.BCal4224);
    EXPECT_FALSE(session.BCalP);
}

TEST_F(LogIn, NullsOfTheSiteFailInTheOrderOfTheSteps) {
    site(std::nullopt, u"6"_s, u"0"_s, u"0"_s, u"0"_s);
    EXPECT_EQ(failure(u"jdoe"_s), 94);
    EXPECT_EQ(session.SessionDateFormat, QString());

    script.open = false;
    session.SharedConnection.reset();
    site(u"1"_s, std::nullopt, u"1"_s, u"1"_s, std::nullopt);
    EXPECT_EQ(failure(u"jdoe"_s), 94);
    EXPECT_EQ(session.SessionDateFormat, u"DD/MM/YYYY"_s);
    EXPECT_TRUE(session.BCal4225 && session.BCal4224);

    script.open = false;
    session.SharedConnection.reset();
    site(u"1"_s, std::nullopt, u"1"_s, u"1"_s, u"1"_s);
    EXPECT_EQ(failure(u"jdoe"_s), 94);
    EXPECT_TRUE(session.BCalP);
    EXPECT_EQ(session.SessionDbVersion, 0);
}

TEST_F(LogIn, AnEmptySiteTableFailsWithTheConnectionOpen) {
    script.answers.remove(selectSite);
    EXPECT_EQ(failure(u"jdoe"_s), 3021);
    EXPECT_TRUE(script.open);
}

TEST_F(LogIn, AMenuOrSweepThatFailsIsReportedAndTheLoginStands) {
    script.failures.insert(selectEditors, Error{208, u"no such table"_s});
    const auto sweep = u"delete from mt.hvm_kv_task_inuse where entered_date < now(*) - 90;commit"_s;
    script.failures.insert(sweep, Error{209, u"read only"_s});
    ui.expectReport(208, u"ModuleGlobals,SetMenuOptions"_s);
    ui.expectReport(209, u"ModuleGlobals,ClearSystemTables"_s);
    EXPECT_EQ(failure(u"jdoe"_s), 0);
    EXPECT_TRUE(session.SessionConnected);
}

TEST_F(LogIn, AfterALostConnectionALoginMakesItAnew) {
    logInAs(u"jdoe"_s);
    script.lost = true;
    session.SessionConnected = false;
    disconnectSession(session);
    EXPECT_EQ(failure(u"jdoe"_s), 0);
    EXPECT_TRUE(session.SessionConnected);
}

TEST_F(LogIn, DisconnectingClosesAndReleases) {
    logInAs(u"jdoe"_s);
    disconnectSession(session);
    EXPECT_FALSE(script.open);
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_EQ(session.SharedConnection, nullptr);
    // The values of the login stay.
    EXPECT_EQ(session.SessionUser, u"jdoe"_s);
}

TEST_F(LogIn, DisconnectingASessionThatIsNotConnectedDoesNothing) {
    logInAs(u"jdoe"_s);
    session.SessionConnected = false;
    disconnectSession(session);
    EXPECT_TRUE(script.open);
}

} // namespace kelvane::testing
