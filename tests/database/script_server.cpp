#include "tests/database/script_server.h"

#include "tests/database/databases.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <optional>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// The one server of the program.
struct Server {
    QTemporaryDir folder;
    QString socket;
    /// Why there is none.
    QString refusal;
    bool hasDemo = false;
    int databases = 0;
};

Server* server = nullptr;

QString serverScript() {
    return sourceFile(u"database/postgresql/server.sh"_s);
}

void start() {
    server = new Server;
    const auto outcome = runScript(serverScript(), {u"start"_s, server->folder.path(), u"--fast"_s});
    (outcome.code == 0 ? server->socket : server->refusal) = outcome.output.trimmed();
}

class StopsServer : public ::testing::Environment {
  public:
    void TearDown() override {
        if (!server)
            return;
        EXPECT_EQ(runScript(serverScript(), {u"stop"_s, server->folder.path(), u"--immediate"_s}).output,
                  QString());
        delete server;
        server = nullptr;
    }
};

const auto* const stopsServer = ::testing::AddGlobalTestEnvironment(new StopsServer);

QStringList psqlArguments(const QString& address) {
    return {u"-X"_s, u"-q"_s, u"-w"_s, u"-A"_s, u"-t"_s, u"-d"_s, address};
}

ScriptEnvironment environmentOf(const Login& login) {
    ScriptEnvironment environment;
    environment.variables.insert(u"PGOPTIONS"_s,
                                 u"-c client_min_messages=warning -c search_path=dialect,pg_catalog"_s);
    if (!login.name.isEmpty())
        environment.variables.insert(u"PGPASSWORD"_s, login.password);
    return environment;
}

} // namespace

void ScriptServer::SetUp() {
    if (!server)
        start();
    if (!server->refusal.isEmpty())
        GTEST_SKIP() << "no PostgreSQL server can be started here: " << server->refusal.toStdString();
}

void ScriptServer::TearDown() {
    for (const auto& name : names_)
        answer(u"postgres"_s, u"drop database if exists %1 with (force)"_s.arg(name));
}

QString ScriptServer::serverFolder() {
    return server->folder.path();
}

QString ScriptServer::address(const QString& database, const QString& login) {
    const auto encoded = [](const QString& text) {
        return QString::fromLatin1(text.toUtf8().toPercentEncoding());
    };
    return u"postgresql://%1@/%2?host=%3"_s.arg(encoded(login), encoded(database), encoded(server->socket));
}

Outcome ScriptServer::run(const QString& script, const QStringList& arguments) {
    return runScript(sourceFile(u"database/postgresql/"_s + script), arguments);
}

Outcome ScriptServer::psql(const QString& database, const QString& statements, const Login& login) {
    const auto place = login.name.isEmpty() ? address(database) : address(database, login.name);
    return runProgram(u"psql"_s, psqlArguments(place) << u"-v"_s << u"ON_ERROR_STOP=1"_s, statements + u'\n',
                      environmentOf(login));
}

QString ScriptServer::answer(const QString& database, const QString& statements, const Login& login) {
    const auto outcome = psql(database, statements, login);
    EXPECT_EQ(outcome.code, 0) << statements.toStdString() << "\n" << outcome.output.toStdString();
    return outcome.output.trimmed();
}

QStringList ScriptServer::states(const QString& database, const QStringList& statements, const Login& login) {
    QString input = u"\\o /dev/null\n\\set VERBOSITY sqlstate\n"_s;
    for (const auto& statement : statements)
        input += u"begin;\n%1;\n\\echo state :SQLSTATE\nrollback;\n"_s.arg(statement);
    const auto place = login.name.isEmpty() ? address(database) : address(database, login.name);
    const auto outcome = runProgram(u"psql"_s, psqlArguments(place), input, environmentOf(login));
    QStringList found;
    for (const auto& line : outcome.output.split(u'\n')) {
        if (line.startsWith(u"state "_s))
            found << line.mid(6);
    }
    EXPECT_EQ(found.size(), statements.size()) << outcome.output.toStdString();
    return found;
}

QString ScriptServer::demo() {
    if (!server->hasDemo) {
        const auto outcome = run(u"make.sh"_s, {address(u"demo"_s), u"--demo"_s});
        EXPECT_EQ(outcome.code, 0) << outcome.output.toStdString();
        server->hasDemo = true;
    }
    const auto name = newName();
    answer(u"postgres"_s, u"create database %1 template demo"_s.arg(name));
    answer(name, u"select kelvane.grant_again()"_s);
    return name;
}

QString ScriptServer::newName() {
    names_ << u"test_%1"_s.arg(++server->databases);
    return names_.last();
}

void DemonstrationOnServer::SetUp() {
    ScriptServer::SetUp();
    if (!IsSkipped())
        database = demo();
}

} // namespace kelvane::testing
