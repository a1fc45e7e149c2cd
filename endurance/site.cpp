#include "endurance/site.h"

#include "endurance/marks.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QThread>

using namespace Qt::StringLiterals;

namespace kelvane::endure {

namespace {

/// What the administrator's program says, which stands beside this one.
QString writeDataSource(const QString& work, const QString& address) {
    const auto section =
        runCommand(QCoreApplication::applicationDirPath() + u"/kelvane-admin"_s, {u"data-source"_s, address});
    const QString path = work + u"/odbc.ini"_s;
    QFile file(path);
    if (!section.isGood || !file.open(QIODevice::WriteOnly))
        return path + u": "_s + file.errorString() + section.errors;
    file.write(section.output.toUtf8());
    qputenv("ODBCINI", QFile::encodeName(path));
    return {};
}

/// Files that the stations share.
class EmbeddedSite final : public Site {
  public:
    explicit EmbeddedSite(const StressOptions& options) : from_(options.database), work_(options.work) {}

    QString prepare() override {
        QDir().mkpath(folder());
        const QDir from(from_);
        for (const auto& name : from.entryList({u"*.db"_s}, QDir::Files)) {
            if (!QFile::copy(from.filePath(name), folder() + u'/' + name))
                return u"%1 can't be copied"_s.arg(from.filePath(name));
        }
        const auto inserts =
            runCommand(u"sqlite3"_s, {u":memory:"_s, u"attach '%1/mt.db' as mt;"_s.arg(folder()) +
                                                         calibratorInserts().join(u';')});
        if (!inserts.isGood)
            return inserts.errors;
        return writeDataSource(work_, folder());
    }

    QString disturb(std::mt19937_64&) override { return {}; }
    bool endsConnections() const override { return false; }

    QStringList faultsOfFiles() override {
        QStringList faults;
        const QDir files(folder());
        for (const auto& name : files.entryList({u"*.db"_s}, QDir::Files)) {
            const auto check = runCommand(
                u"sqlite3"_s, {files.filePath(name), u"pragma quick_check; pragma foreign_key_check"_s});
            if (check.output.trimmed() != u"ok")
                faults << name + u": "_s + check.output + check.errors;
        }
        return faults;
    }

    void keep(const QString&) override {}

  private:
    QString folder() const { return work_ + u"/database"_s; }

    QString from_;
    QString work_;
};

/// A server that the stations share.
class SharedSite final : public Site {
  public:
    explicit SharedSite(const StressOptions& options) : options_(options) {}

    QString prepare() override {
        const auto inserts = ask(calibratorInserts().join(u';'));
        if (!inserts.isGood)
            return inserts.errors;
        return writeDataSource(options_.work, options_.database);
    }

    QString disturb(std::mt19937_64& generator) override {
        constexpr quint64 connectionsForAStop = 12;
        if (options_.server.isEmpty() || generator() % connectionsForAStop != 0) {
            ask(u"select pg_terminate_backend(pid) from pg_stat_activity where datname = current_database() "
                u"and "
                "pid <> pg_backend_pid() order by random() limit 1"_s);
            return u"connection ended"_s;
        }
        const auto script = options_.scripts + u"/server.sh"_s;
        runCommand(script, {u"stop"_s, options_.server, u"--immediate"_s});
        QThread::msleep(200 + generator() % 1500);
        const auto start = runCommand(script, {u"start"_s, options_.server});
        return start.isGood ? u"server stopped and started"_s : u"server does not start: "_s + start.errors;
    }
    bool endsConnections() const override { return true; }

    QStringList faultsOfFiles() override {
        const auto check =
            ask(u"create extension if not exists amcheck with schema public; "
                "select count(public.bt_index_check(c.oid, i.indisunique)) from pg_index i "
                "join pg_class c on c.oid = i.indexrelid join pg_am a on a.oid = c.relam "
                "join pg_namespace n on n.oid = c.relnamespace "
                "where a.amname = 'btree' and n.nspname !~ '^pg_' and c.relpersistence = 'p'"_s);
        return check.isGood ? QStringList() : QStringList{check.errors};
    }

    void keep(const QString& folder) override {
        runCommand(u"pg_dump"_s, {u"-Fc"_s, u"-f"_s, folder + u"/database.dump"_s, options_.database});
    }

  private:
    CommandResult ask(const QString& statements) const {
        return runCommand(
            u"psql"_s, {u"-XqAt"_s, u"-v"_s, u"ON_ERROR_STOP=1"_s, options_.database, u"-c"_s, statements});
    }

    StressOptions options_;
};

} // namespace

std::unique_ptr<Site> siteOf(const StressOptions& options) {
    if (options.engine == u"shared")
        return std::make_unique<SharedSite>(options);
    return std::make_unique<EmbeddedSite>(options);
}

CommandResult runCommand(const QString& program, const QStringList& arguments, int milliseconds) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(milliseconds)) {
        process.kill();
        process.waitForFinished();
        return {false, {}, u"%1: %2"_s.arg(program, process.errorString())};
    }
    const bool isGood = process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    return {isGood, QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

} // namespace kelvane::endure
