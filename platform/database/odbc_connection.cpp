#include "platform/database/odbc_connection.h"

#include "platform/database/odbc_driver.h"
#include "platform/database/odbc_link.h"

#ifdef Q_OS_WIN
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace kelvane {

OdbcConnection::OdbcConnection(WhileWaiting whileWaiting) : whileWaiting_(std::move(whileWaiting)) {}

OdbcConnection::~OdbcConnection() = default;

void OdbcConnection::open(const QString& connectionString, const QString& user, const QString& password) {
    if (link_ && !link_->isLost())
        throw makeError(ErrorNumber::connectionOpen);
    close();
    // Where the driver can't be told beforehand, its settings come with a second connection.
    const auto known = settingsOfDriver(driverOf(connectionString));
    auto link = std::make_unique<OdbcLink>(connectionString, user, password, known);
    auto adapter = engineAdapterFor(link->dbmsName(), whileWaiting_);
    if (const auto settings = adapter->driverSettings(); settings != known) {
        link.reset();
        link = std::make_unique<OdbcLink>(connectionString, user, password, settings);
    }
    adapter->prepareSession(*link, user, password);
    link->setLossTest([&meaning = *adapter](const Error& error) { return meaning.isConnectionLoss(error); });
    adapter_ = std::move(adapter);
    link_ = std::move(link);
}

void OdbcConnection::close() {
    link_.reset();
    adapter_.reset();
}

bool OdbcConnection::isOpen() const {
    return link_ != nullptr;
}

bool OdbcConnection::isLost() const {
    return link_ && link_->isLost();
}

qint64 OdbcConnection::execute(const QString& statement) {
    qint64 rows = -1;
    run([&](OdbcLink& open) { rows = adapter_->execute(open, statement); });
    return rows;
}

std::unique_ptr<RecordSet> OdbcConnection::select(const QString& statement, Rows rows) {
    std::unique_ptr<RecordSet> found;
    run([&](OdbcLink& open) { found = adapter_->select(open, statement, rows); });
    return found;
}

void OdbcConnection::beginTransaction() {
    run([this](OdbcLink& open) { adapter_->beginTransaction(open); });
}

void OdbcConnection::commitTransaction() {
    run([this](OdbcLink& open) { adapter_->commitTransaction(open); });
}

void OdbcConnection::rollBackTransaction() {
    run([this](OdbcLink& open) { adapter_->rollBackTransaction(open); });
}

void OdbcConnection::lock(const QString& name) {
    run([&](OdbcLink& open) { adapter_->lock(open, name); });
}

void OdbcConnection::unlock(const QString& name) {
    run([&](OdbcLink& open) { adapter_->unlock(open, name); });
}

void OdbcConnection::refuseWriting() {
    run([this](OdbcLink& open) { adapter_->refuseWriting(open); });
}

/// An error that leaves the connection unusable gives it up.
template <class Step>
void OdbcConnection::run(Step step) {
    auto& open = link();
    try {
        step(open);
    } catch (const Error& error) {
        if (error.connectionLost)
            open.giveUp();
        throw;
    }
}

OdbcLink& OdbcConnection::link() const {
    if (!link_)
        throw makeError(ErrorNumber::connectionClosed);
    return *link_;
}

ConnectionFactory odbcConnections(WhileWaiting whileWaiting) {
    return
        [whileWaiting = std::move(whileWaiting)] { return std::make_unique<OdbcConnection>(whileWaiting); };
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
