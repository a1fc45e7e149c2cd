#include "admin/account_commands.h"
#include "platform/database/odbc_link.h"
#include "tests/admin/admin_program.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using AccountCommands = AdminOnDatabase;

TEST_F(AccountCommands, TheListTellsOwnerAndLevelAndWhoMayLogIn) {
    const auto outcome = run(u"accounts"_s);
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.errors, QString());
    EXPECT_EQ(outcome.output, demonstrationAccounts);
}

TEST_F(AccountCommands, ANewAccountLogsInWithThePasswordOfTheInput) {
    expectDone(run(u"account"_s, {u"ann"_s, u"--owner=abc"_s, u"--level=3"_s}, "Zwölf Füße 12\n"));
    EXPECT_EQ(listed(u"ann"_s), u"ann ABC 3 yes"_s) << "the workstation compares owners in capitals";
    EXPECT_TRUE(takesLogin(u"ann"_s, u"Zwölf Füße 12"_s));
    EXPECT_FALSE(takesLogin(u"ann"_s, u"kelvane"_s));
}

TEST_F(AccountCommands, AnAccountThatExistsIsChangedWithoutAQuestion) {
    expectDone(run(u"account"_s, {u"JDoe"_s, u"--owner=ABC"_s, u"--level=32767"_s}));
    EXPECT_EQ(listed(u"jdoe"_s), u"jdoe ABC 32767 yes"_s);
    EXPECT_TRUE(takesLogin(u"jdoe"_s, u"kelvane"_s));
}

TEST_F(AccountCommands, ALoginThatWasNoUserBecomesOne) {
    expectDone(run(u"account"_s, {u"noone"_s, u"--owner=MT"_s, u"--level=0"_s}));
    EXPECT_EQ(listed(u"noone"_s), u"noone MT 0 yes"_s);
}

TEST_F(AccountCommands, AUserWithoutLoginIsListedAndGetsOne) {
    expectDone(run(u"remove"_s, {u"jdoe"_s}));
    OdbcLink(u"Driver=SQLite3;Database="_s + database.file(u"mt.db"_s), {}, {})
        .execute(u"insert into userlist values ('jdoe', 'MT', 2)"_s);
    EXPECT_EQ(listed(u"jdoe"_s), u"jdoe MT 2 no"_s);
    expectRefused(run(u"password"_s, {u"jdoe"_s}, "new\n"), 1, u"jdoe has no login"_s);
    expectDone(run(u"account"_s, {u"jdoe"_s, u"--owner=MT"_s, u"--level=1"_s}, "new\n"));
    EXPECT_EQ(listed(u"jdoe"_s), u"jdoe MT 1 yes"_s);
    EXPECT_TRUE(takesLogin(u"jdoe"_s, u"new"_s));
}

TEST_F(AccountCommands, ANewPasswordTakesThePlaceOfTheOld) {
    expectDone(run(u"password"_s, {u"jdoe"_s}, "new password"));
    EXPECT_TRUE(takesLogin(u"jdoe"_s, u"new password"_s)) << "the input needs no line end";
    EXPECT_FALSE(takesLogin(u"jdoe"_s, u"kelvane"_s));
    EXPECT_TRUE(takesLogin(u"bkowalski"_s, u"kelvane"_s)) << "nobody else's is changed";
}

TEST_F(AccountCommands, EqualPasswordsHaveDifferentHashes) {
    expectDone(run(u"password"_s, {u"jdoe"_s}, "same\n"));
    expectDone(run(u"password"_s, {u"bkowalski"_s}, "same\n"));
    EXPECT_EQ(valueOf(u"select count(distinct hash) from accounts where name in ('jdoe', 'bkowalski')"_s),
              u"2"_s);
    EXPECT_EQ(valueOf(u"select count(*) from accounts where hash like '$y$%' and hash not like '%same%'"_s),
              u"10"_s);
}

TEST_F(AccountCommands, ALevelIsSetWithoutTheOwner) {
    expectDone(run(u"level"_s, {u"gpetrov"_s, u"5"_s}));
    EXPECT_EQ(listed(u"gpetrov"_s), u"gpetrov ABC 5 yes"_s);
    expectRefused(run(u"level"_s, {u"noone"_s, u"1"_s}), 1, u"noone has no owner yet"_s);
    expectRefused(run(u"level"_s, {u"nobody"_s, u"1"_s}), 1, u"there is no account nobody"_s);
}

TEST_F(AccountCommands, ARemovedAccountIsNeitherLoginNorUser) {
    expectDone(run(u"remove"_s, {u"jdoe"_s}));
    EXPECT_EQ(listed(u"jdoe"_s), QString());
    EXPECT_EQ(valueOf(u"select count(*) from mt.userlist where mtuser = 'jdoe'"_s), u"0"_s);
    EXPECT_FALSE(takesLogin(u"jdoe"_s, u"kelvane"_s));
    expectRefused(run(u"remove"_s, {u"jdoe"_s}), 1, u"there is no account jdoe"_s);
}

TEST_F(AccountCommands, TheOwnerOfTheDatabaseKeepsOwnerAndLevel) {
    expectRefused(run(u"account"_s, {u"mt"_s, u"--owner=ABC"_s, u"--level=6"_s}), 2, u"owns the database"_s);
    expectRefused(run(u"level"_s, {u"MT"_s, u"5"_s}), 2, u"owns the database"_s);
    expectDone(run(u"remove"_s, {u"MT"_s}));
    EXPECT_FALSE(takesLogin(u"MT"_s, u"kelvane"_s));
    expectDone(run(u"account"_s, {u"MT"_s, u"--owner=MT"_s, u"--level=6"_s}, "again\n"));
    EXPECT_EQ(listed(u"MT"_s), u"MT MT 6 yes"_s);
    EXPECT_TRUE(takesLogin(u"MT"_s, u"again"_s));
}

TEST_F(AccountCommands, LevelsAreWholeNumbersFrom0To32767) {
    for (const auto& level :
         {u"32768"_s, u"99999999999"_s, u"1.5"_s, u"three"_s, u""_s, u" 1"_s, u"+1"_s, u"0x1"_s}) {
        expectRefused(run(u"level"_s, {u"jdoe"_s, level}), 2, u"a level is a whole number from 0 to 32767"_s);
        expectRefused(run(u"account"_s, {u"jdoe"_s, u"--owner=MT"_s, u"--level="_s + level}), 2,
                      u"a level is a whole number"_s);
    }
    expectRefused(run(u"level"_s, {u"jdoe"_s, u"-1"_s}), 2, u"unknown option -1"_s);
    expectRefused(run(u"level"_s, {u"--"_s, u"jdoe"_s, u"-1"_s}), 2, u"a level is a whole number"_s);
    EXPECT_EQ(listed(u"jdoe"_s), u"jdoe MT 1 yes"_s);
}

TEST_F(AccountCommands, AnOwnerWithoutTablesIsRefused) {
    expectRefused(run(u"account"_s, {u"ann"_s, u"--owner=XYZ"_s, u"--level=1"_s}, "secret\n"), 1,
                  u"there is no owner XYZ; those of %1 are ABC, MT, STD"_s.arg(database.path()));
    for (const auto& owner : {u"M T"_s, u"mt;"_s, u"1"_s, u""_s, u"kelvane'"_s})
        expectRefused(run(u"account"_s, {u"ann"_s, u"--owner="_s + owner, u"--level=1"_s}, "secret\n"), 2,
                      u"an owner is a name of letters"_s);
    expectRefused(run(u"account"_s, {u"ann"_s, u"--owner=sys"_s, u"--level=1"_s}, "secret\n"), 1,
                  u"there is no owner SYS"_s);
    EXPECT_EQ(listed(u"ann"_s), QString());
}

TEST_F(AccountCommands, PasswordsThatNoLoginCouldUseAreRefused) {
    const struct {
        QByteArray input;
        QString refusal;
    } rows[] = {
        {"\n", u"an empty password is refused"_s},
        {"", u"no password was given on the standard input"_s},
        {" secret\n", u"can't begin or end with a blank"_s},
        {"secret \n", u"can't begin or end with a blank"_s},
        {"   \n", u"can't begin or end with a blank"_s},
        {"secret\r\n", u"without control characters"_s},
        {QByteArray("sec\0ret\n", 8), u"without control characters"_s},
        {"secr\xff\n", u"characters in UTF-8"_s},
        {QByteArray(512, 's') + '\n', u"at most 511 bytes"_s},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.input.toStdString());
        for (const auto& outcome :
             {run(u"password"_s, {u"jdoe"_s}, row.input),
              run(u"account"_s, {u"ann"_s, u"--owner=MT"_s, u"--level=1"_s}, row.input)}) {
            expectRefused(outcome, 1, row.refusal);
            EXPECT_FALSE(outcome.errors.contains(u"secr"_s)) << outcome.errors.toStdString();
        }
    }
    EXPECT_TRUE(takesLogin(u"jdoe"_s, u"kelvane"_s));
    EXPECT_EQ(listed(u"ann"_s), QString());
    const QByteArray longest(511, 's');
    expectDone(run(u"password"_s, {u"jdoe"_s}, longest + '\n'));
    EXPECT_TRUE(takesLogin(u"jdoe"_s, QString::fromLatin1(longest)));
}

TEST_F(AccountCommands, OnlyOneLineOfTheInputIsThePassword) {
    expectDone(run(u"password"_s, {u"jdoe"_s}, "first\nsecond\n"));
    EXPECT_TRUE(takesLogin(u"jdoe"_s, u"first"_s));
}

TEST_F(AccountCommands, AWorkstationMayBeLoggedIn) {
    const auto workstation = database.connect();
    workstation->beginTransaction();
    expectRefused(run(u"password"_s, {u"jdoe"_s}, "new\n"), 1,
                  u"is being written by others; nothing was changed"_s);
    workstation->rollBackTransaction();
    expectDone(run(u"password"_s, {u"jdoe"_s}, "new\n"));
    workstation->execute(u"insert into mt.hvm_kv_prompts values ('NEW','stored');commit"_s);
}

TEST_F(AccountCommands, AFailureBetweenTheTwoFilesLeavesNeither) {
    OdbcLink(u"Driver=SQLite3;Database="_s + database.file(u"mt.db"_s), {}, {})
        .execute(
            u"create trigger no_more before delete on userlist begin select raise(abort, 'kept'); end"_s);
    expectRefused(run(u"remove"_s, {u"jdoe"_s}), 1, u"kept"_s);
    EXPECT_TRUE(takesLogin(u"jdoe"_s, u"kelvane"_s));
}

TEST_F(AccountCommands, WithoutTheRightToReadOrWriteNothingIsDone) {
    const auto accounts = database.file(u"kelvane.db"_s);
    ASSERT_TRUE(QFile::setPermissions(accounts, QFile::ReadOwner));
    expectRefused(runAdminWithoutPrivileges({u"password"_s, database.path(), u"jdoe"_s}, "new\n"), 1,
                  accounts + u" can't be read and written by you"_s);
    ASSERT_TRUE(QFile::setPermissions(accounts, QFile::WriteOwner));
    expectRefused(runAdminWithoutPrivileges({u"accounts"_s, database.path()}), 1,
                  accounts + u" can't be read and written by you"_s);
    ASSERT_TRUE(QFile::setPermissions(accounts, QFile::ReadOwner | QFile::WriteOwner));
    ASSERT_TRUE(QFile::setPermissions(database.path(), {}));
    expectRefused(runAdminWithoutPrivileges({u"accounts"_s, database.path()}), 1,
                  database.path() + u" can't be opened by you"_s);
    ASSERT_TRUE(
        QFile::setPermissions(database.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    EXPECT_TRUE(takesLogin(u"jdoe"_s, u"kelvane"_s));
}

TEST_F(AccountCommands, WithoutADatabaseTheFolderIsNamed) {
    const QTemporaryDir empty;
    for (const auto& arguments :
         {QStringList{u"accounts"_s, empty.path()}, QStringList{u"accounts"_s, empty.filePath(u"gone"_s)},
          QStringList{u"password"_s, empty.path(), u"jdoe"_s},
          QStringList{u"remove"_s, empty.path(), u"jdoe"_s}}) {
        expectRefused(runAdmin(arguments), 1, u"holds no database: kelvane.db is missing"_s);
    }
    EXPECT_TRUE(QDir(empty.path()).isEmpty()) << "nothing was made by looking";
    QFile file(empty.filePath(u"kelvane.db"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(5000, 'x'));
    file.close();
    expectRefused(runAdmin({u"accounts"_s, empty.path()}), 1, empty.path());
}

} // namespace kelvane::testing
