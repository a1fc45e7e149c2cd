#include "benchmarks/site.h"

#include "platform/database/engine_adapter.h"
#include "platform/database/odbc_connection.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::bench {

namespace {

const QString user = u"jdoe"_s;

/// Takes what an adapter sends to its engine and answers nothing.
class TextCatcher final : public DriverLink {
  public:
    struct Text {
        QString statement;
        Rows rows;
    };
    qint64 execute(const QString& statement) override {
        texts.append({statement, Rows::all});
        return 0;
    }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override {
        texts.append({statement, rows});
        return nullptr;
    }
    QList<Text> texts;
};

bool isQuery(const QString& statement) {
    return statement.startsWith("select"_L1);
}

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
    const auto connection = database.connect(user, u"kelvane"_s);
    const QStringList tables{u"inventory"_s, u"hvm_kv_tag_config"_s, u"hvm_kv_proc_prompts"_s};
    for (const auto& table : tables)
        testing::executeAnything(
            *connection, u"create temp table copied_%1 as select * from mt.%1 where mtag = (select mtag from "
                         "mt.inventory where i4201 = '%2')"_s.arg(table, like));
    for (const auto& name : names) {
        connection->execute(u"update copied_inventory set i4201 = '%1', i4206 = '%1'"_s.arg(name));
        for (const auto& table : tables) {
            connection->execute(u"update copied_%1 set mtag = '%2'"_s.arg(table, name));
            connection->execute(u"insert into mt.%1 select * from copied_%1"_s.arg(table));
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

Replay::Replay(const testing::EmbeddedDatabase& database) : plain_(database.connectionString()) {
    for (const auto& owner : {u"mt"_s, u"std"_s, u"abc"_s, u"sys"_s}) {
        plain_.run(u"attach '%1' as %2"_s.arg(database.file(owner + u".db"_s), owner), 0);
        plain_.run(u"pragma %1.synchronous = full"_s.arg(owner), 0);
    }
}

double Replay::run(const WatchedConnection::Log& log) {
    const auto adapter = engineAdapterFor(u"SQLite"_s);
    TextCatcher catcher;
    for (qsizetype i = 0; i < log.statements.size(); ++i) {
        if (isQuery(log.statements[i]))
            adapter->select(catcher, log.statements[i], log.rows[i]);
        else
            adapter->execute(catcher, log.statements[i]);
    }
    Seconds time{};
    {
        const Timed timed(time);
        for (const auto& text : std::as_const(catcher.texts))
            plain_.run(text.statement, text.rows == Rows::first ? 1 : std::numeric_limits<int>::max());
    }
    return time.count();
}

} // namespace kelvane::bench
