#include "benchmarks/bench_database.h"

#include "platform/database/engine_adapter.h"
#include "testkit/open_connections.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace kelvane::bench {

namespace {

const QString user = u"jdoe"_s;
const QString password = u"kelvane"_s;
const QString administrator = u"kelvane_admin"_s;

/// Takes what an adapter sends to its engine and answers nothing.
class TextCatcher final : public DriverLink {
  public:
    qint64 execute(const QString& statement) override {
        texts.append({statement, Rows::all});
        return 0;
    }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override {
        texts.append({statement, rows});
        return nullptr;
    }
    QList<BenchDatabase::EngineText> texts;
};

} // namespace

BenchDatabase::BenchDatabase(const QString& source) {
    if (testing::usesSharedEngine())
        shared_ = source.isEmpty() ? std::make_unique<testing::SharedDatabase>()
                                   : std::make_unique<testing::SharedDatabase>(source);
    else
        embedded_ =
            std::make_unique<testing::EmbeddedDatabase>(source.isEmpty() ? testing::demoDatabase() : source);
}

BenchDatabase::~BenchDatabase() {
    if (administration_)
        testing::executeAnything(administration_->owner(), u"drop database kelvane_template_"_s + source_);
}

std::unique_ptr<Connection> BenchDatabase::connect() const {
    return shared_ ? shared_->connect(user, password) : embedded_->connect(user, password);
}

std::unique_ptr<Connection> BenchDatabase::connectAsOwner() const {
    return shared_ ? shared_->connect(administrator, {}) : connect();
}

QString BenchDatabase::plainConnectionString() const {
    if (!isShared())
        return connectionString();
    return connectionString() + u";UID="_s + user + u";PWD="_s + password +
           settingsOfDriver(u"PostgreSQL Unicode"_s);
}

std::unique_ptr<PlainOdbc> BenchDatabase::connectPlainly() const {
    auto plain = std::make_unique<PlainOdbc>(plainConnectionString());
    if (isShared()) {
        plain->run(u"set search_path to dialect,pg_catalog,pg_temp"_s, 0);
        return plain;
    }
    for (const auto& owner : {u"mt"_s, u"std"_s, u"abc"_s, u"sys"_s}) {
        plain->run(u"attach '%1' as %2"_s.arg(embedded_->file(owner + u".db"_s), owner), 0);
        plain->run(u"pragma %1.synchronous = full"_s.arg(owner), 0);
    }
    return plain;
}

QList<BenchDatabase::EngineText> BenchDatabase::engineTexts(const QString& statement, Rows rows) const {
    const auto adapter = engineAdapterFor(isShared() ? u"PostgreSQL"_s : u"SQLite"_s);
    TextCatcher catcher;
    if (statement.startsWith("select"_L1))
        adapter->select(catcher, statement, rows);
    else
        adapter->execute(catcher, statement);
    return catcher.texts;
}

QString BenchDatabase::presentMoment() const {
    return isShared() ? u"present_moment()"_s : u"datetime('now','localtime')"_s;
}

QString BenchDatabase::source() {
    if (!isShared())
        return embedded_->path();
    if (source_.isEmpty()) {
        const auto names =
            testing::queryRows(*connectAsOwner(), u"select current_database() from mt.dbconfig"_s);
        administration_ = std::make_unique<testing::SharedDatabase>();
        source_ = u"bench_%1"_s.arg(QCoreApplication::applicationPid());
        testing::executeAnything(
            administration_->owner(),
            u"create database kelvane_template_%1 template %2"_s.arg(source_, names.value(0)));
    }
    return source_;
}

} // namespace kelvane::bench
