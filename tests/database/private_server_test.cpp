#include "tests/database/databases.h"
#include "tests/database/script_server.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// Servers of its own, beside the one that all tests share.
class PrivateServer : public ScriptServer {
  protected:
    Outcome server(const QString& command, const QStringList& options = {}) {
        return run(u"server.sh"_s, QStringList{command, place} + options);
    }
    void TearDown() override {
        if (!IsSkipped())
            server(u"stop"_s, {u"--immediate"_s});
        ScriptServer::TearDown();
    }
    static QString ask(const QString& socket, const QString& query,
                       const QString& user = u"kelvane_admin"_s) {
        return runProgram(u"psql"_s,
                          {u"-X"_s, u"-q"_s, u"-w"_s, u"-A"_s, u"-t"_s, u"-h"_s, socket, u"-U"_s, user,
                           u"postgres"_s},
                          query)
            .output.trimmed();
    }

    QTemporaryDir folder;
    QString place = folder.filePath(u"it's a \"server\", $1"_s);
};

} // namespace

TEST_F(PrivateServer, StartPrintsTheFolderOfTheSocketAndASecondStartChangesNothing) {
    const auto started = server(u"start"_s, {u"--fast"_s});
    ASSERT_EQ(started.code, 0) << started.output.toStdString();
    const auto socket = started.output.trimmed();
    EXPECT_TRUE(QFileInfo::exists(socket + u"/.s.PGSQL.5432"_s));
    const auto began = ask(socket, u"select pg_postmaster_start_time()"_s);
    EXPECT_EQ(server(u"start"_s).output, started.output);
    EXPECT_EQ(server(u"socket"_s).output, started.output);
    EXPECT_EQ(ask(socket, u"select pg_postmaster_start_time()"_s), began);
}

TEST_F(PrivateServer, HasNoNetworkPortAndLetsNobodyElseInWithoutAPassword) {
    const auto socket = server(u"start"_s, {u"--fast"_s}).output.trimmed();
    EXPECT_EQ(ask(socket, u"select current_setting('listen_addresses') || current_setting('port')"_s),
              u"5432"_s);
    EXPECT_EQ(ask(socket, u"select string_agg(auth_method, ' ') from pg_hba_file_rules"_s),
              u"peer scram-sha-256"_s);
    ask(socket, u"create role somebody login password 'x'"_s);
    EXPECT_TRUE(ask(socket, u"select 1"_s, u"somebody"_s).contains(u"no password supplied"_s));
    EXPECT_EQ(ask(socket, u"select current_setting('fsync')"_s), u"off"_s);
}

TEST_F(PrivateServer, KeepsWhatWasCommittedThroughAStopAndAPowerFailure) {
    auto socket = server(u"start"_s).output.trimmed();
    EXPECT_EQ(ask(socket, u"select current_setting('fsync')"_s), u"on"_s);
    ask(socket, u"create table kept (x int); insert into kept values (1)"_s);
    EXPECT_EQ(server(u"stop"_s, {u"--immediate"_s}).output, QString());
    EXPECT_NE(server(u"socket"_s).code, 0);
    EXPECT_FALSE(QFileInfo::exists(socket + u"/.s.PGSQL.5432"_s));
    socket = server(u"start"_s).output.trimmed();
    EXPECT_EQ(ask(socket, u"select count(*) from kept"_s), u"1"_s);
    EXPECT_EQ(server(u"stop"_s).output, QString());
    EXPECT_EQ(server(u"stop"_s).output, QString()) << "a server that doesn't run";
}

TEST_F(PrivateServer, StartsBesideProcessNumbersThatWereLeftBehind) {
    ASSERT_EQ(server(u"start"_s, {u"--fast"_s}).code, 0);
    ASSERT_EQ(server(u"stop"_s, {u"--immediate"_s}).code, 0);
    QFile left(place + u"/data/postmaster.pid"_s);
    ASSERT_TRUE(left.open(QIODevice::WriteOnly));
    left.write("1\n");
    left.close();
    QFile::setPermissions(left.fileName(), QFileDevice::ReadOwner | QFileDevice::ReadOther);
    EXPECT_EQ(server(u"stop"_s).output, QString()) << "process 1 is no server of ours";
}

TEST_F(PrivateServer, WhatMakesNoSenseIsRefused) {
    for (const auto& arguments : {QStringList{},
                                  {u"start"_s},
                                  {u"restart"_s, place},
                                  {u"start"_s, place, u"--slow"_s},
                                  {u"stop"_s, place, u"--fast"_s}}) {
        const auto outcome = run(u"server.sh"_s, arguments);
        EXPECT_NE(outcome.code, 0);
        EXPECT_TRUE(outcome.output.startsWith(u"server.sh: usage"_s)) << outcome.output.toStdString();
    }
    EXPECT_FALSE(QFileInfo::exists(place));
}

} // namespace kelvane::testing
