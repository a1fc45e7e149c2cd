#include "testkit/engines.h"

#include "platform/database/odbc_link.h"
#include "testkit/overheard_connection.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// A driver that takes every text.
class AnsweringLink final : public DriverLink {
  public:
    explicit AnsweringLink(const Row& answer) : answer_(answer) {}
    qint64 execute(const QString&) override { return -1; }
    std::unique_ptr<RecordSet> select(const QString&, Rows) override {
        return std::make_unique<OneRow>(answer_);
    }

  private:
    class OneRow final : public RecordSet {
      public:
        explicit OneRow(Row row) : row_(std::move(row)) {}
        bool next() override { return !std::exchange(read_, true) && !row_.isEmpty(); }
        std::optional<QString> value(int column) override { return row_.at(column); }

      private:
        Row row_;
        bool read_ = false;
    };
    const Row& answer_;
};

class AdaptedConnection final : public Connection {
  public:
    AdaptedConnection(const QString& dbmsName, const Row& answer)
        : adapter_(engineAdapterFor(dbmsName)), link_(answer) {}
    void open(const QString&, const QString&, const QString&) override {}
    void close() override {}
    bool isOpen() const override { return true; }
    bool isLost() const override { return false; }
    qint64 execute(const QString& statement) override { return adapter_->execute(link_, statement); }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override {
        return adapter_->select(link_, statement, rows);
    }
    void beginTransaction() override { adapter_->beginTransaction(link_); }
    void commitTransaction() override { adapter_->commitTransaction(link_); }
    void rollBackTransaction() override { adapter_->rollBackTransaction(link_); }
    void lock(const QString& name) override { adapter_->lock(link_, name); }
    void unlock(const QString& name) override { adapter_->unlock(link_, name); }
    void refuseWriting() override { adapter_->refuseWriting(link_); }

  private:
    std::unique_ptr<EngineAdapter> adapter_;
    AnsweringLink link_;
};

} // namespace

void EngineSession::useEngine(Engine engine) {
    engine_ = engine;
    auto connection = hasDatabase()
                          ? std::move(session.SharedConnection)
                          : std::make_unique<AdaptedConnection>(u"Adaptive Server Anywhere"_s, answer);
    session.SharedConnection = std::make_unique<OverheardConnection>(
        std::move(connection), [this](const QString& statement) { sent << statement; });
    if (database.isShared())
        return;
    const auto& files = database.embedded();
    for (const auto& file : QDir(files.path()).entryList({u"*.db"_s}, QDir::Files, QDir::Name))
        files_.push_back(std::make_unique<OdbcLink>(u"Driver=SQLite3;Database="_s + files.file(file),
                                                    QString(), QString()));
}

QStringList EngineSession::versions() {
    return database.isShared() ? tableVersions() : fileVersions();
}

/// How often each file has changed.
QStringList EngineSession::fileVersions() {
    QStringList found;
    for (const auto& file : files_) {
        const auto rows = file->select(u"pragma data_version"_s, Rows::all);
        rows->next();
        found << rows->value(0).value_or(QString());
    }
    return found;
}

/// The number of rows of each table, and the last transaction that wrote one of them.
QStringList EngineSession::tableVersions() {
    if (versionsQuery_.isEmpty())
        versionsQuery_ =
            rows(u"select string_agg('select count(*), max(xmin::text::bigint) from ' || "
                 "oid::regclass, ' union all ' order by oid) from pg_class where relkind = 'r' and "
                 "relnamespace::regnamespace::text in ('mt', 'std', 'abc')"_s)
                .value(0);
    return rows(versionsQuery_, 2);
}

void EngineSession::expectRefusal(const QString& value, const QStringList& routines,
                                  const std::function<void()>& action) {
    SCOPED_TRACE(value.toStdString());
    const auto before = versions();
    folder.write(u"errors.log"_s, {});
    sent.clear();
    for (const auto& routine : routines)
        ui.expectReport(static_cast<int>(syntaxError().number), routine);
    action();
    EXPECT_TRUE(ui.hasMetAll());
    for (const auto& statement : std::as_const(sent))
        EXPECT_FALSE(statement.contains(value)) << statement.toStdString();
    const auto log = folder.read(u"errors.log"_s);
    EXPECT_EQ(log.count(syntaxError().description), routines.size()) << log.toStdString();
    EXPECT_TRUE(log.contains(value)) << "the report shows the statement: " << log.toStdString();
    EXPECT_EQ(versions(), before) << "the database has changed";
}

QStringList breakingTexts() {
    return {u"x'; delete from mt.hvm_kv_task_packages; select '1"_s,
            u"x'; delete from mt.hvm_kv_task_packages; commit --"_s,
            u"x' or '1'='1"_s,
            u"x' union select hash from accounts --"_s,
            u"x' or 1=1 /*"_s,
            u"O'Brien"_s,
            u"x'''y"_s};
}

} // namespace kelvane::testing
