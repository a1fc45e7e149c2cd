#include "admin/server_accounts.h"
#include "tests/admin/admin_server.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

QProcessEnvironment withPassword(const QString& password) {
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"PGPASSWORD"_s, password);
    return environment;
}

} // namespace

using ServerAdmin = AdminOnServer;

TEST_F(ServerAdmin, TheListTellsOwnerAndLevelAndWhoMayLogIn) {
    const auto outcome = run(u"accounts"_s);
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.errors, QString());
    EXPECT_EQ(outcome.output, demonstrationAccounts);
}

TEST_F(ServerAdmin, AnAccountIsMadeChangedAndRemoved) {
    for (const auto& name : {u"ann"_s, u"O'Brien \"ü\""_s, u"Łukasz 🔧"_s, u"%1') --"_s}) {
        SCOPED_TRACE(name.toStdString());
        expectDone(run(u"account"_s, {name, u"--owner=abc"_s, u"--level=3"_s}, "Zwölf Füße\n"));
        EXPECT_EQ(listed(name), name + u" ABC 3 yes"_s);
        expectDone(run(u"level"_s, {name, u"32767"_s}));
        expectDone(run(u"account"_s, {name, u"--owner=MT"_s, u"--level=1"_s}));
        EXPECT_EQ(listed(name), name + u" MT 1 yes"_s);
        EXPECT_TRUE(takesLogin(name, u"Zwölf Füße"_s));
        expectDone(run(u"password"_s, {name}, "other\n"));
        EXPECT_TRUE(takesLogin(name, u"other"_s));
        EXPECT_FALSE(takesLogin(name, u"Zwölf Füße"_s));
        expectDone(run(u"remove"_s, {name}));
        EXPECT_EQ(listed(name), QString());
        EXPECT_FALSE(takesLogin(name, u"other"_s));
    }
}

TEST_F(ServerAdmin, ALoginThatTheServerHadBeforeKeepsItsPasswordUntilItIsSet) {
    psql(u"postgres"_s, u"create role reporter login password 'its own'"_s);
    const auto outcome = run(u"account"_s, {u"reporter"_s, u"--owner=MT"_s, u"--level=1"_s}, "new\n");
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.output,
              u"The server had the login reporter before, which keeps its password; the command "
              "password sets another.\n"_s);
    EXPECT_EQ(listed(u"reporter"_s), u"reporter MT 1 yes"_s);
    EXPECT_TRUE(takesLogin(u"reporter"_s, u"its own"_s));
    EXPECT_FALSE(takesLogin(u"reporter"_s, u"new"_s));
    expectDone(run(u"password"_s, {u"reporter"_s}, "new\n"));
    EXPECT_TRUE(takesLogin(u"reporter"_s, u"new"_s));
    expectDone(run(u"remove"_s, {u"reporter"_s}));
    psql(u"postgres"_s, u"drop role reporter"_s);
}

TEST_F(ServerAdmin, ThePasswordReachesTheServerAsAVerifierAlone) {
    psql(u"postgres"_s, u"alter system set log_statement = 'all'"_s);
    psql(u"postgres"_s, u"select pg_reload_conf()"_s);
    expectDone(run(u"account"_s, {u"ann"_s, u"--owner=MT"_s, u"--level=3"_s}, "streng geheim\n"));
    expectDone(run(u"password"_s, {u"ann"_s}, "streng geheim\n"));
    EXPECT_EQ(psql(u"postgres"_s, u"select left(rolpassword, 14) from pg_authid where rolname = 'ann'"_s),
              u"SCRAM-SHA-256$"_s);
    psql(u"postgres"_s, u"alter system reset log_statement"_s);
    psql(u"postgres"_s, u"select pg_reload_conf()"_s);
    const auto log = server().log();
    EXPECT_TRUE(log.contains("kelvane.set_password")) << "the log has the statements";
    EXPECT_FALSE(log.contains("geheim"));
    expectDone(run(u"remove"_s, {u"ann"_s}));
}

TEST_F(ServerAdmin, WhatCantBeDoneIsRefusedWhole) {
    expectRefused(run(u"account"_s, {u"ann"_s, u"--owner=XYZ"_s, u"--level=1"_s}, "secret\n"), 1,
                  u"there is no owner"_s);
    expectRefused(run(u"account"_s, {u"JDOE"_s, u"--owner=MT"_s, u"--level=1"_s}, "secret\n"), 1,
                  u"differs in case only"_s);
    expectRefused(run(u"account"_s, {u"postgres"_s, u"--owner=MT"_s, u"--level=1"_s}, "secret\n"), 1,
                  u"is reserved"_s);
    expectRefused(run(u"account"_s, {u"n"_s.repeated(64), u"--owner=MT"_s, u"--level=1"_s}, "secret\n"), 1,
                  u"1 to 63 bytes"_s);
    expectRefused(run(u"account"_s, {u"ann"_s, u"--owner=MT"_s, u"--level=1"_s}, "\n"), 1,
                  u"an empty password is refused"_s);
    expectRefused(run(u"account"_s, {u"MT"_s, u"--owner=ABC"_s, u"--level=6"_s}), 2, u"owns the database"_s);
    expectRefused(run(u"level"_s, {u"noone"_s, u"1"_s}), 1, u"noone has no owner yet"_s);
    expectRefused(run(u"level"_s, {u"nobody"_s, u"1"_s}), 1, u"there is no account nobody"_s);
    expectRefused(run(u"remove"_s, {u"nobody"_s}), 1, u"there is no account nobody"_s);
    EXPECT_EQ(listed(u"ann"_s), QString());
    EXPECT_EQ(psql(u"postgres"_s, u"select count(*) from pg_roles where rolname = 'ann'"_s), u"0"_s);
}

TEST_F(ServerAdmin, ATechnicianManagesNoAccounts) {
    const auto technician = server().address(u"demo"_s, u"jdoe"_s);
    const auto outcome = runAdmin({u"accounts"_s, technician}, {}, withPassword(u"kelvane"_s));
    expectRefused(outcome, 1, u"this login has no right to do that"_s);
    expectRefused(runAdmin({u"level"_s, technician, u"jdoe"_s, u"6"_s}, {}, withPassword(u"kelvane"_s)), 1,
                  u"no right"_s);
    EXPECT_EQ(listed(u"jdoe"_s), u"jdoe MT 1 yes"_s);
}

TEST_F(ServerAdmin, ConnectionsThatFailSayWhy) {
    const auto other = server().address(u"demo"_s, u"jdoe"_s);
    expectRefused(runAdmin({u"accounts"_s, other}), 1,
                  u"asks for the password of jdoe; put it into ~/.pgpass"_s);
    const auto refused = runAdmin({u"accounts"_s, other}, {}, withPassword(u"falsch"_s));
    expectRefused(refused, 1, u"refuses the connection"_s);
    EXPECT_FALSE(refused.errors.contains(u"falsch"_s));
    expectRefused(runAdmin({u"accounts"_s, server().address(u"gone"_s)}), 1, u"does not exist"_s);
    expectRefused(runAdmin({u"accounts"_s, server().address(u"postgres"_s)}), 1,
                  u"the database is none of the workstations; make it first"_s);
    const QTemporaryDir empty;
    expectRefused(runAdmin({u"accounts"_s, u"postgresql://kelvane_admin@/demo?host="_s + empty.path()}), 1,
                  u"the server at %1 does not answer"_s.arg(empty.path()));
}

TEST_F(ServerAdmin, TheScriptsOfTheServerAreRun) {
    expectDone(run(u"upgrade"_s)); // the server does not copy who may connect
    const auto whole = run(u"check"_s);
    EXPECT_EQ(whole.code, 0);
    EXPECT_TRUE(whole.output.endsWith(u", and whole.\n"_s)) << whole.output.toStdString();
    const QTemporaryDir folder;
    const auto copy = folder.filePath(u"it's a copy"_s);
    expectDone(run(u"backup"_s, {copy}));
    expectDone(run(u"remove"_s, {u"jdoe"_s}));
    const auto restored = runAdmin({u"restore"_s, copy, address()});
    EXPECT_EQ(restored.code, 0) << restored.errors.toStdString();
    EXPECT_TRUE(restored.output.contains(u"before"_s)) << restored.output.toStdString();
    EXPECT_EQ(listed(u"jdoe"_s), u"jdoe MT 1 yes"_s);
    expectDone(run(u"password"_s, {u"jdoe"_s}, "kelvane\n"));
    expectDone(run(u"upgrade"_s, {u"--owner=lab"_s}));
    expectDone(run(u"account"_s, {u"jdoe"_s, u"--owner=lab"_s, u"--level=1"_s}));
    EXPECT_EQ(listed(u"jdoe"_s), u"jdoe LAB 1 yes"_s);
}

} // namespace kelvane::testing
