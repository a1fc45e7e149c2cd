#include "platform/database/odbc_link.h"

#include "platform/database/odbc_text.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <array>
#include <bit>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// A server that is gone must not hold the one thread for minutes.
constexpr SQLULEN loginSeconds = 15;

SQLPOINTER attribute(SQLULEN value) {
    return std::bit_cast<SQLPOINTER>(value);
}

} // namespace

class OdbcRows;

/// The handles of one connection. Record sets share it, so that it stays until the last of them is gone; the
/// connection itself ends with `close`.
class OdbcSession {
  public:
    OdbcSession() {
        SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &environment_);
        SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, attribute(SQL_OV_ODBC3), 0);
        if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_)))
            connection_ = nullptr;
    }
    ~OdbcSession() { close(); }
    OdbcSession(const OdbcSession&) = delete;
    OdbcSession& operator=(const OdbcSession&) = delete;

    void connect(const QString& dataSource, const QString& login);
    void close();
    QString dbmsName() const;

    /// Runs a text and returns the statement that holds its rows.
    SQLHSTMT run(const QString& statement, Rows rows);
    /// The number of columns of what ran; 0 when it gives no rows.
    SQLSMALLINT columnsOf(SQLHSTMT statement, Rows rows);
    void release(SQLHSTMT statement, Rows rows);
    void add(OdbcRows* rows) { open_.push_back(rows); }
    void remove(OdbcRows* rows) { std::erase(open_, rows); }

    /// The error of the last call on `statement`; marks the connection as lost when it means that.
    Error failure(SQLHSTMT statement);

    std::function<bool(const Error&)> isConnectionLoss;
    bool lost = false;
    DriverText textKind = DriverText::wide;

  private:
    SQLHSTMT takeStatement();
    bool isReportedDead() const;

    SQLHENV environment_ = nullptr;
    SQLHDBC connection_ = nullptr;
    bool connected_ = false;
    /// One statement is kept for the next text: making one costs as much as a small query.
    SQLHSTMT idle_ = nullptr;
    std::vector<OdbcRows*> open_;
};

class OdbcRows final : public RecordSet {
  public:
    OdbcRows(std::shared_ptr<OdbcSession> session, SQLHSTMT statement, SQLSMALLINT columns, Rows rows)
        : session_(std::move(session)), statement_(statement), columns_(columns), rows_(rows) {
        session_->add(this);
    }
    ~OdbcRows() override {
        end();
        session_->remove(this);
    }
    OdbcRows(const OdbcRows&) = delete;
    OdbcRows& operator=(const OdbcRows&) = delete;

    bool next() override;
    std::optional<QString> value(int column) override;
    /// Gives the statement back: the connection is about to close, or its rows are no longer read.
    void end();

  private:
    std::shared_ptr<OdbcSession> session_;
    SQLHSTMT statement_;
    SQLSMALLINT columns_;
    Rows rows_;
    bool onRow_ = false;
    bool behindLast_ = false;
    /// A driver returns a value once; a second request for the same column returns the same.
    int lastColumn_ = -1;
    std::optional<QString> lastValue_;
};

void OdbcSession::connect(const QString& dataSource, const QString& login) {
    if (connection_ == nullptr)
        throw lastError(SQL_HANDLE_ENV, environment_, textKind);
    SQLSetConnectAttrW(connection_, SQL_ATTR_LOGIN_TIMEOUT, attribute(loginSeconds), 0);
    if (!SQL_SUCCEEDED(connectText(connection_, dataSource, login)))
        throw lastError(SQL_HANDLE_DBC, connection_, textKind);
    connected_ = true;
    textKind = driverTextOf(connection_);
}

void OdbcSession::close() {
    // Statements go first: a driver may refuse to disconnect, or crash, with one still open.
    while (!open_.empty()) {
        open_.back()->end();
        open_.pop_back();
    }
    if (idle_ != nullptr)
        SQLFreeHandle(SQL_HANDLE_STMT, std::exchange(idle_, nullptr));
    if (std::exchange(connected_, false))
        SQLDisconnect(connection_);
    if (connection_ != nullptr)
        SQLFreeHandle(SQL_HANDLE_DBC, std::exchange(connection_, nullptr));
    if (environment_ != nullptr)
        SQLFreeHandle(SQL_HANDLE_ENV, std::exchange(environment_, nullptr));
}

QString OdbcSession::dbmsName() const {
    std::array<SQLWCHAR, 128> name{};
    SQLSMALLINT bytes = 0;
    if (!SQL_SUCCEEDED(SQLGetInfoW(connection_, SQL_DBMS_NAME, name.data(), sizeof(name), &bytes)))
        throw lastError(SQL_HANDLE_DBC, connection_, textKind);
    return QString(reinterpret_cast<const QChar*>(name.data()));
}

SQLHSTMT OdbcSession::takeStatement() {
    if (idle_ != nullptr)
        return std::exchange(idle_, nullptr);
    SQLHSTMT statement = nullptr;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement)))
        throw lastError(SQL_HANDLE_DBC, connection_, textKind);
    return statement;
}

SQLHSTMT OdbcSession::run(const QString& statement, Rows rows) {
    if (lost) {
        auto error = makeError(ErrorNumber::connectionClosed);
        error.sqlState = u"08003"_s;
        error.connectionLost = true;
        throw error;
    }
    // A driver takes the text up to a character of code 0 for the whole statement, and so does something
    // else. Half of a surrogate pair is no character.
    if (statement.contains(QChar::Null) || !statement.isValidUtf16())
        throw Error{static_cast<double>(ErrorNumber::invalidArgument),
                    text(TextId::statementCharacterInvalid)};
    const auto handle = takeStatement();
    if (rows == Rows::first)
        SQLSetStmtAttrW(handle, SQL_ATTR_MAX_ROWS, attribute(1), 0);
    const auto outcome = executeText(handle, statement, textKind);
    if (SQL_SUCCEEDED(outcome) || outcome == SQL_NO_DATA)
        return handle;
    if (outcome == SQL_NEED_DATA)
        SQLCancel(handle);
    const auto error = failure(handle);
    release(handle, rows);
    throw error;
}

SQLSMALLINT OdbcSession::columnsOf(SQLHSTMT statement, Rows rows) {
    SQLSMALLINT columns = 0;
    if (SQL_SUCCEEDED(SQLNumResultCols(statement, &columns)))
        return columns;
    const auto error = failure(statement);
    release(statement, rows);
    throw error;
}

void OdbcSession::release(SQLHSTMT statement, Rows rows) {
    const bool reusable = idle_ == nullptr && rows == Rows::all && !lost;
    if (reusable && SQL_SUCCEEDED(SQLFreeStmt(statement, SQL_CLOSE)))
        idle_ = statement;
    else
        SQLFreeHandle(SQL_HANDLE_STMT, statement);
}

bool OdbcSession::isReportedDead() const {
    SQLUINTEGER dead = SQL_CD_FALSE;
    return SQL_SUCCEEDED(SQLGetConnectAttrW(connection_, SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr)) &&
           dead == SQL_CD_TRUE;
}

Error OdbcSession::failure(SQLHSTMT statement) {
    auto error = lastError(SQL_HANDLE_STMT, statement, textKind);
    error.connectionLost = error.sqlState.startsWith("08"_L1) ||
                           (isConnectionLoss && isConnectionLoss(error)) || isReportedDead();
    lost = lost || error.connectionLost;
    return error;
}

void OdbcRows::end() {
    if (statement_ != nullptr)
        session_->release(std::exchange(statement_, nullptr), rows_);
    onRow_ = false;
}

bool OdbcRows::next() {
    if (statement_ == nullptr)
        throw makeError(ErrorNumber::connectionClosed);
    onRow_ = false;
    lastColumn_ = -1;
    if (columns_ == 0 || behindLast_)
        return false;
    const auto outcome = SQLFetch(statement_);
    if (!SQL_SUCCEEDED(outcome) && outcome != SQL_NO_DATA)
        throw session_->failure(statement_);
    onRow_ = outcome != SQL_NO_DATA;
    behindLast_ = !onRow_;
    return onRow_;
}

std::optional<QString> OdbcRows::value(int column) {
    if (statement_ == nullptr)
        throw makeError(ErrorNumber::connectionClosed);
    if (!onRow_)
        throw makeError(ErrorNumber::noCurrentRow);
    if (column < 0 || column >= columns_)
        throw makeError(ErrorNumber::subscriptOutOfRange);
    if (column != lastColumn_) {
        lastColumn_ = -1;
        const auto place = static_cast<SQLUSMALLINT>(column + 1);
        if (!SQL_SUCCEEDED(readText(statement_, place, session_->textKind, lastValue_)))
            throw session_->failure(statement_);
        lastColumn_ = column;
    }
    return lastValue_;
}

QString bracedValue(const QString& value) {
    return u'{' + QString(value).replace(u"}"_s, u"}}"_s) + u'}';
}

QString userValue(const QString& user) {
    const bool bare = !user.isEmpty() && !user.contains(u';') && !user.contains(u'{') &&
                      !user.contains(u'}') && !user.front().isSpace() && !user.back().isSpace();
    return bare ? user : bracedValue(user);
}

OdbcLink::OdbcLink(const QString& connectionString, const QString& user, const QString& password,
                   const QString& settings)
    : session_(std::make_shared<OdbcSession>()) {
    try {
        session_->connect(connectionString,
                          u";UID="_s + userValue(user) + u";PWD="_s + bracedValue(password) + settings);
    } catch (Error& error) {
        error.description = text(TextId::dataSourceCannotBeOpened).arg(connectionString, error.description);
        throw;
    }
}

OdbcLink::~OdbcLink() {
    session_->close();
}

QString OdbcLink::dbmsName() const {
    return session_->dbmsName();
}

void OdbcLink::setLossTest(std::function<bool(const Error&)> isConnectionLoss) {
    session_->isConnectionLoss = std::move(isConnectionLoss);
}

bool OdbcLink::isLost() const {
    return session_->lost;
}

void OdbcLink::giveUp() {
    session_->lost = true;
}

qint64 OdbcLink::execute(const QString& statement) {
    const auto handle = session_->run(statement, Rows::all);
    SQLLEN rows = -1;
    if (!SQL_SUCCEEDED(SQLRowCount(handle, &rows)))
        rows = -1;
    session_->release(handle, Rows::all);
    return rows;
}

std::unique_ptr<RecordSet> OdbcLink::select(const QString& statement, Rows rows) {
    const auto handle = session_->run(statement, rows);
    return std::make_unique<OdbcRows>(session_, handle, session_->columnsOf(handle, rows), rows);
}

} // namespace kelvane
