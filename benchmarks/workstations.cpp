#include "benchmarks/workstations.h"

#include "benchmarks/require.h"
#include "platform/database/odbc_connection.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace kelvane::bench {

namespace {

constexpr int rounds = 3;
constexpr qint64 roundMilliseconds = 2000;
/// One statement of so many writes.
constexpr int statementsForEachWrite = 10;

const QString query = u"select i4201,i4202,i4203 from mt.inventory where mtag = '4711'"_s;

/// A row for the statement of this number; `moment` is the present one in the engine's words.
QString insertion(int number, const QString& moment) {
    return u"insert into mt.hvm_kv_task_inuse (serial_number,entered_date,mtag,tech) values ('%1',%2,'%3','jdoe')"_s
        .arg(QString::number(QCoreApplication::applicationPid()), moment, QString::number(number));
}

/// Carries out the statement of a number.
std::function<void(int)> workOf(const QString& way, const QString& connectionString) {
    if (way == u"ours") {
        const std::shared_ptr<Connection> connection = odbcConnections()();
        connection->open(connectionString, u"jdoe"_s, u"kelvane"_s);
        return [connection](int number) {
            if (number % statementsForEachWrite == 0)
                connection->execute(insertion(number, u"now(*)"_s) + u";commit"_s);
            else
                connection->select(query, Rows::first)->next();
        };
    }
    const auto plain = std::make_shared<PlainOdbc>(connectionString);
    plain->run(u"set search_path to dialect,pg_catalog,pg_temp"_s, 0);
    return [plain](int number) {
        if (number % statementsForEachWrite == 0)
            plain->run(insertion(number, u"present_moment()"_s), 0);
        else
            plain->run(query, 1);
    };
}

/// Statements a second of all workstations together.
double speedOf(const BenchDatabase& database, const QString& way, int workstations) {
    const auto connection = way == u"ours" ? database.connectionString() : database.plainConnectionString();
    std::vector<std::unique_ptr<QProcess>> processes;
    for (int number = 0; number < workstations; ++number) {
        auto& process = *processes.emplace_back(std::make_unique<QProcess>());
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(QCoreApplication::applicationFilePath(), {u"workstation"_s, way});
        process.write(connection.toUtf8() + '\n'); // it holds a password: no argument
    }
    for (const auto& process : processes)
        require(process->waitForReadyRead() && process->readLine() == "ready\n", u"no workstation"_s);
    for (const auto& process : processes)
        process->write("go\n");
    double statements = 0;
    for (const auto& process : processes) {
        require(process->waitForFinished() && process->exitCode() == 0, u"a workstation has failed"_s);
        statements += process->readAllStandardOutput().toDouble();
    }
    return statements / (static_cast<double>(roundMilliseconds) / 1000);
}

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

} // namespace

void compareWorkstations(const BenchDatabase& database) {
    for (const int workstations : {1, 2, 4, 8}) {
        std::vector<double> ours;
        std::vector<double> plain;
        for (int round = 0; round < rounds; ++round) {
            ours.push_back(speedOf(database, u"ours"_s, workstations));
            plain.push_back(speedOf(database, u"plain"_s, workstations));
        }
        std::printf("%d workstations: %6.0f statements a second, plain ODBC %6.0f, ratio %.2f\n",
                    workstations, median(ours), median(plain), median(plain) / median(ours));
    }
}

int runWorkstation(const QString& way, const QString& connectionString) {
    const auto work = workOf(way, connectionString);
    std::puts("ready");
    std::fflush(stdout);
    require(std::getchar() == 'g', u"no start"_s);
    QElapsedTimer timer;
    timer.start();
    int statements = 0;
    while (timer.elapsed() < roundMilliseconds)
        work(++statements);
    std::printf("%d\n", statements);
    return 0;
}

} // namespace kelvane::bench
