#include "benchmarks/torque_site.h"

#include "benchmarks/plain_odbc.h"
#include "data/start_up.h"
#include "platform/engine_adapter.h"
#include "platform/odbc_connection.h"
#include "resources/strings.h"

#include <QDir>
#include <QFile>

#include <cstdio>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::bench {

namespace {

constexpr int mostTools = 47;

QString toolName(int number) {
    return u"TWB-%1"_s.arg(number, 2, 10, QChar(u'0'));
}

void require(bool holds, const QString& what) {
    if (holds)
        return;
    std::fprintf(stderr, "bench_torque: %s\n", qPrintable(what));
    std::exit(1);
}

/// Takes what an adapter sends to its engine and answers nothing.
class TextCatcher final : public DriverLink {
  public:
    struct Text {
        QString statement;
        Rows rows;
    };
    void execute(const QString& statement) override { texts.append({statement, Rows::all}); }
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

TorqueSite::TorqueSite(const Programs& programs, const QStringList& line)
    : calibrator(text(351)),
      settings(folder.filePath(u"settings.ini"_s)),
      database(programs.database),
      session({ui, clock, settings},
              [this] { return std::make_unique<WatchedConnection>(odbcConnections()(), log); }),
      port(settings),
      programs_(programs) {
    const auto link = folder.filePath(u"COM1"_s);
    settings.setValue(u"Ports"_s, u"COM1"_s, link);
    simulator_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    simulator_.start(programs_.simulator, QStringList{u"--memory"_s, folder.filePath(u"memory.json"_s),
                                                      u"--serial"_s, u"48213"_s, u"--link"_s, link} +
                                              line);
    require(simulator_.waitForStarted() && simulator_.waitForReadyRead(), u"the simulator did not start"_s);

    session.SessionOwner = u"MT"_s;
    session.SessionUser = u"jdoe"_s;
    session.SessionDateFormat = u"MM/DD/YYYY"_s;
    session.SessionDbVersion = 6;
    session.SessionConnected = true;
    session.ResultTemplateLine =
        u"TN$ FN$         FVA$         FRE$         TT$       DE$       ET$  CO$         TR$"_s;
    sharedConnection(session).open(database.connectionString(), u"jdoe"_s, u"kelvane"_s);
    makeTools();
}

TorqueSite::~TorqueSite() {
    simulator_.terminate();
    simulator_.waitForFinished();
}

void TorqueSite::makeTools() {
    auto& connection = sharedConnection(session);
    connection.execute(u"create temp table tool as select * from mt.inventory where i4201 = 'TW-101'"_s);
    connection.execute(
        u"create temp table parameters as select * from mt.hvm_kv_tag_config where mtag = (select mtag from tool)"_s);
    for (int number = 1; number <= mostTools; ++number) {
        const auto name = toolName(number);
        connection.execute(u"update tool set mtag = '%1', i4201 = '%1', i4206 = '%1'"_s.arg(name));
        connection.execute(u"insert into mt.inventory select * from tool"_s);
        connection.execute(u"update parameters set mtag = '%1'"_s.arg(name));
        connection.execute(u"insert into mt.hvm_kv_tag_config select * from parameters"_s);
    }
}

QString TorqueSite::makePackage(int tools) {
    auto& connection = sharedConnection(session);
    const auto tag = u"BENCH%1"_s.arg(tools);
    connection.execute(u"delete from mt.hvm_kv_task_standards_inuse"_s);
    connection.execute(
        u"insert into mt.hvm_kv_task_packages (taskname,tptype,mtuser,created_on,tptag) values "
        "('%1','WSHT','jdoe',now(*),'%1');commit"_s.arg(tag));
    for (int number = 1; number <= tools; ++number) {
        const auto name = toolName(number);
        connection.execute(
            u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('%1','%2');commit"_s.arg(tag, name));
        connection.execute(u"insert into mt.hvm_kv_task_standards_inuse (standard_mtag,entered_date,mtag) "
                           u"values ((select mtag "
                           "from MT.inventory where i4201 = 'TT-0300F'),now(*),'%1');commit"_s.arg(name));
    }
    return tag;
}

void TorqueSite::carryOut(int tools) {
    const auto plan = folder.filePath(u"plan.txt"_s);
    QFile file(plan);
    require(file.open(QIODevice::WriteOnly), u"no plan"_s);
    for (int number = 1; number <= tools; ++number)
        file.write(QStringLiteral("%1; 50, 150, 250; 0.5, -1, 1.5; bench\n").arg(toolName(number)).toUtf8());
    file.close();
    // Each road needs a moment of its own, or its records would be there already.
    const auto moment = QTime(8, 0).addSecs(60 * tools).toString(u"HH:mm:ss"_s);
    QProcess technician;
    technician.start(programs_.technician, {u"--memory"_s, folder.filePath(u"memory.json"_s), u"carry-out"_s,
                                            u"--plan"_s, plan, u"--time"_s, moment});
    require(technician.waitForFinished() && technician.exitCode() == 0,
            QString::fromLocal8Bit(technician.readAllStandardError()));
}

double TorqueSite::replayPlainly(const QStringList& statements, const QList<Rows>& rows) {
    const auto adapter = engineAdapterFor(u"SQLite"_s);
    TextCatcher catcher;
    for (qsizetype i = 0; i < statements.size(); ++i) {
        if (isQuery(statements[i]))
            adapter->select(catcher, statements[i], rows[i]);
        else
            adapter->execute(catcher, statements[i]);
    }
    PlainOdbc plain(database.connectionString());
    for (const auto& owner : {u"mt"_s, u"std"_s, u"abc"_s, u"sys"_s}) {
        plain.run(u"attach '%1' as %2"_s.arg(database.file(owner + u".db"_s), owner), 0);
        plain.run(u"pragma %1.synchronous = full"_s.arg(owner), 0);
    }
    Seconds time{};
    {
        const Timed timed(time);
        for (const auto& one : std::as_const(catcher.texts))
            plain.run(one.statement, one.rows == Rows::first ? 1 : std::numeric_limits<int>::max());
    }
    return time.count();
}

} // namespace kelvane::bench
