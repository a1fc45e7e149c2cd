#include "benchmarks/site.h"

#include "platform/database/odbc_connection.h"
#include "testkit/open_connections.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::bench {

namespace {

const QString user = u"jdoe"_s;

} // namespace

Site::Site(const QString& databaseFrom)
    : settings(folder.filePath(u"settings.ini"_s)),
      database(databaseFrom),
      session({ui, clock, settings},
              [this] { return std::make_unique<WatchedConnection>(odbcConnections()(), log); }) {
    session.SessionOwner = u"MT"_s;
    session.SessionUser = user;
    session.SessionDateFormat = u"MM/DD/YYYY"_s;
    session.SessionDbVersion = 6;
    session.SessionConnected = true;
    session.ResultTemplateLine =
        u"TN$ FN$         FVA$         FRE$         TT$       DE$       ET$  CO$         TR$"_s;
    sharedConnection(session).open(database.connectionString(), user, u"kelvane"_s);
}

void Site::copyInstrument(const QString& like, const QStringList& names) {
    const auto connection = database.connectAsOwner();
    const auto execute = [&](const QString& statement) { testing::executeAnything(*connection, statement); };
    const QStringList tables{u"inventory"_s, u"hvm_kv_tag_config"_s, u"hvm_kv_proc_prompts"_s};
    for (const auto& table : tables)
        execute(u"create temp table copied_%1 as select * from mt.%1 where mtag = (select mtag from "
                "mt.inventory where i4201 = '%2')"_s.arg(table, like));
    for (const auto& name : names) {
        execute(u"update copied_inventory set i4201 = '%1', i4206 = '%1'"_s.arg(name));
        for (const auto& table : tables) {
            execute(u"update copied_%1 set mtag = '%2'"_s.arg(table, name));
            execute(u"insert into mt.%1 select * from copied_%1"_s.arg(table));
        }
    }
}

QString Site::makePackage(const QStringList& names) {
    auto& connection = sharedConnection(session);
    const auto tag = u"BENCH%1"_s.arg(names.size());
    connection.execute(
        u"insert into mt.hvm_kv_task_packages (taskname,tptype,mtuser,created_on,tptag) values "
        "('%1','WSHT','%2',now(*),'%1');commit"_s.arg(tag, user));
    for (const auto& name : names)
        connection.execute(
            u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('%1','%2');commit"_s.arg(tag, name));
    return tag;
}

void Site::requireNoErrors() const {
    require(ui.reportedErrors.isEmpty(), ui.reportedErrors.join(u'\n'));
}

Replay::Replay(const BenchDatabase& database) : database_(database), plain_(database.connectPlainly()) {}

double Replay::run(const WatchedConnection::Log& log) {
    QList<BenchDatabase::EngineText> texts;
    for (qsizetype i = 0; i < log.statements.size(); ++i)
        texts << database_.engineTexts(log.statements[i], log.rows[i]);
    Seconds time{};
    {
        const Timed timed(time);
        for (const auto& text : std::as_const(texts))
            plain_->run(text.statement, text.rows == Rows::first ? 1 : std::numeric_limits<int>::max());
    }
    return time.count();
}

} // namespace kelvane::bench
