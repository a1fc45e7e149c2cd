#include "platform/odbc_connection.h"

#include "platform/odbc_link.h"

#ifdef Q_OS_WIN
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

class OdbcConnection final : public Connection {
  public:
    void open(const QString& connectionString, const QString& user, const QString& password) override {
        if (link_ && !link_->isLost())
            throw makeError(ErrorNumber::connectionOpen);
        close();
        auto link = std::make_unique<OdbcLink>(connectionString, user, password);
        auto adapter = engineAdapterFor(link->dbmsName());
        adapter->opened(*link, user, password);
        link->lostWhen([&meaning = *adapter](const Error& error) { return meaning.meansLost(error); });
        adapter_ = std::move(adapter);
        link_ = std::move(link);
    }
    void close() override {
        link_.reset();
        adapter_.reset();
    }
    bool isOpen() const override { return link_ != nullptr; }
    bool isLost() const override { return link_ && link_->isLost(); }
    qint64 execute(const QString& statement) override {
        qint64 rows = -1;
        change([&](OdbcLink& open) { rows = adapter_->execute(open, statement); });
        return rows;
    }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override {
        auto& open = link();
        return adapter_->select(open, statement, rows);
    }
    void beginTransaction() override {
        change([this](OdbcLink& open) { adapter_->beginTransaction(open); });
    }
    void commitTransaction() override {
        change([this](OdbcLink& open) { adapter_->commitTransaction(open); });
    }
    void rollBackTransaction() override {
        change([this](OdbcLink& open) { adapter_->rollBackTransaction(open); });
    }

  private:
    /// Runs what changes the database; an error that leaves the connection unusable gives it up.
    template <class Step>
    void change(Step step) {
        auto& open = link();
        try {
            step(open);
        } catch (const Error& error) {
            if (error.connectionLost)
                open.giveUp();
            throw;
        }
    }
    OdbcLink& link() const {
        if (!link_)
            throw makeError(ErrorNumber::connectionClosed);
        return *link_;
    }

    std::unique_ptr<EngineAdapter> adapter_;
    std::unique_ptr<OdbcLink> link_;
};

} // namespace

ConnectionFactory odbcConnections() {
    return [] { return std::make_unique<OdbcConnection>(); };
}

QStringList odbcDataSources() {
    QStringList names;
    SQLHENV environment = nullptr;
    if (SQLAllocEnv(&environment) != SQL_SUCCESS)
        return names;
    // The narrow function: the wide one takes each byte of a name for a character of its own.
    std::array<char, 32> name;
    std::array<char, 255> description;
    SQLUSMALLINT direction = SQL_FETCH_FIRST;
    while (true) {
        name.fill(' ');
        description.fill(' ');
        SQLSMALLINT nameLength = 0;
        SQLSMALLINT descriptionLength = 0;
        const auto outcome = SQLDataSources(environment, direction, reinterpret_cast<SQLCHAR*>(name.data()),
                                            static_cast<SQLSMALLINT>(name.size()), &nameLength,
                                            reinterpret_cast<SQLCHAR*>(description.data()),
                                            static_cast<SQLSMALLINT>(description.size()), &descriptionLength);
        if (outcome != SQL_SUCCESS && outcome != SQL_SUCCESS_WITH_INFO)
            break;
        const auto length = std::clamp<qsizetype>(nameLength, 0, name.size() - 1);
        names << QString::fromLocal8Bit(name.data(), length);
        direction = SQL_FETCH_NEXT;
    }
    SQLFreeEnv(environment);
    return names;
}

} // namespace kelvane
