#include "platform/odbc_link.h"

#include "resources/strings.h"

#ifdef Q_OS_WIN
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace kelvane {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "the driver manager must speak UTF-16");

namespace {

/// ADO's own limit for a login; a server that is gone must not hold the one thread for minutes.
constexpr SQLULEN loginSeconds = 15;

SQLWCHAR* wide(const QString& text) {
    return const_cast<SQLWCHAR*>(reinterpret_cast<const SQLWCHAR*>(text.utf16()));
}

QString fromWide(const SQLWCHAR* text, SQLLEN length) {
    return QString(reinterpret_cast<const QChar*>(text), length);
}

SQLINTEGER lengthOf(const QString& text) {
    return static_cast<SQLINTEGER>(text.size());
}

SQLPOINTER attribute(SQLULEN value) {
    return reinterpret_cast<SQLPOINTER>(value);
}

/// The first message that is more than a remark; a remark when there is nothing else.
Error lastError(SQLSMALLINT kind, SQLHANDLE handle) {
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, 2048> message{};
    Error found{0, text(1082), u"HY000"_s};
    for (SQLSMALLINT record = 1;; ++record) {
        SQLINTEGER native = 0;
        SQLSMALLINT length = 0;
        if (!SQL_SUCCEEDED(SQLGetDiagRecW(kind, handle, record, state.data(), &native, message.data(),
                                          static_cast<SQLSMALLINT>(message.size()), &length)))
            return found;
        const Error error{static_cast<double>(native),
                          fromWide(message.data(), std::min<SQLLEN>(length, message.size() - 1)),
                          fromWide(state.data(), 5)};
        const bool remark = error.sqlState.startsWith("01"_L1);
        if (record == 1 || !remark)
            found = error;
        if (!remark)
            return found;
    }
}

} // namespace

class OdbcRows;

/// The handles of one connection. Record sets share it, so that it stays until the last of them is gone; the
/// connection itself ends with `close`.
class OdbcSession : public std::enable_shared_from_this<OdbcSession> {
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

    void connect(const QString& connectionString);
    void close();
    QString dbmsName() const;

    /// Runs a text and hands out the statement that holds its rows.
    SQLHSTMT run(const QString& statement, Rows rows);
    void giveBack(SQLHSTMT statement, Rows rows);
    void add(OdbcRows* rows) { open_.push_back(rows); }
    void remove(OdbcRows* rows) { std::erase(open_, rows); }

    /// The error of the last call on `statement`; marks the connection as lost when it means that.
    Error failure(SQLHSTMT statement);

    std::function<bool(const Error&)> meansLost;
    bool lost = false;

  private:
    SQLHSTMT takeStatement();
    bool driverCallsItDead() const;

    SQLHENV environment_ = nullptr;
    SQLHDBC connection_ = nullptr;
    bool connected_ = false;
    /// One statement is kept for the next text: making one costs as much as a small query.
    SQLHSTMT idle_ = nullptr;
    std::vector<OdbcRows*> open_;
};

class OdbcRows final : public RecordSet {
  public:
    OdbcRows(std::shared_ptr<OdbcSession> session, SQLHSTMT statement, Rows rows)
        : session_(std::move(session)), statement_(statement), rows_(rows) {
        session_->add(this);
        SQLNumResultCols(statement_, &columns_);
    }
    ~OdbcRows() override {
        end();
        session_->remove(this);
    }
    OdbcRows(const OdbcRows&) = delete;
    OdbcRows& operator=(const OdbcRows&) = delete;

    bool next() override;
    std::optional<QString> value(int column) override;
    /// Gives the statement back: the connection is about to close, or nobody reads on.
    void end();

  private:
    std::optional<QString> read(SQLUSMALLINT column);
    /// Appends up to `room` further characters of a long text; true when there are more.
    bool readMore(SQLUSMALLINT column, QString& value, qsizetype room);

    std::shared_ptr<OdbcSession> session_;
    SQLHSTMT statement_;
    Rows rows_;
    SQLSMALLINT columns_ = 0;
    bool onRow_ = false;
    bool behindLast_ = false;
    /// A driver hands out a value once; whoever asks for the same column again gets the same.
    int lastColumn_ = -1;
    std::optional<QString> lastValue_;
};

void OdbcSession::connect(const QString& connectionString) {
    if (connection_ == nullptr)
        throw lastError(SQL_HANDLE_ENV, environment_);
    SQLSetConnectAttrW(connection_, SQL_ATTR_LOGIN_TIMEOUT, attribute(loginSeconds), 0);
    if (!SQL_SUCCEEDED(SQLDriverConnectW(connection_, nullptr, wide(connectionString),
                                         static_cast<SQLSMALLINT>(connectionString.size()), nullptr, 0,
                                         nullptr, SQL_DRIVER_NOPROMPT)))
        throw lastError(SQL_HANDLE_DBC, connection_);
    connected_ = true;
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
        return {};
    return fromWide(name.data(), std::min<SQLLEN>(bytes / 2, name.size() - 1));
}

SQLHSTMT OdbcSession::takeStatement() {
    if (idle_ != nullptr)
        return std::exchange(idle_, nullptr);
    SQLHSTMT statement = nullptr;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement)))
        throw lastError(SQL_HANDLE_DBC, connection_);
    return statement;
}

SQLHSTMT OdbcSession::run(const QString& statement, Rows rows) {
    if (lost) {
        auto error = makeError(ErrorNumber::connectionClosed);
        error.sqlState = u"08003"_s;
        error.connectionLost = true;
        throw error;
    }
    // A driver may take the text up to this character for the whole statement, and so do something else.
    if (statement.contains(QChar::Null))
        throw Error{static_cast<double>(ErrorNumber::invalidArgument), text(1081)};
    const auto handle = takeStatement();
    if (rows == Rows::first)
        SQLSetStmtAttrW(handle, SQL_ATTR_MAX_ROWS, attribute(1), 0);
    const auto outcome = SQLExecDirectW(handle, wide(statement), lengthOf(statement));
    if (SQL_SUCCEEDED(outcome) || outcome == SQL_NO_DATA)
        return handle;
    if (outcome == SQL_NEED_DATA)
        SQLCancel(handle);
    const auto error = failure(handle);
    giveBack(handle, rows);
    throw error;
}

void OdbcSession::giveBack(SQLHSTMT statement, Rows rows) {
    if (idle_ == nullptr && rows == Rows::all && !lost) {
        SQLFreeStmt(statement, SQL_CLOSE);
        idle_ = statement;
    } else {
        SQLFreeHandle(SQL_HANDLE_STMT, statement);
    }
}

bool OdbcSession::driverCallsItDead() const {
    SQLUINTEGER dead = SQL_CD_FALSE;
    return SQL_SUCCEEDED(SQLGetConnectAttrW(connection_, SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr)) &&
           dead == SQL_CD_TRUE;
}

Error OdbcSession::failure(SQLHSTMT statement) {
    auto error = lastError(SQL_HANDLE_STMT, statement);
    error.connectionLost =
        error.sqlState.startsWith("08"_L1) || (meansLost && meansLost(error)) || driverCallsItDead();
    lost = lost || error.connectionLost;
    return error;
}

void OdbcRows::end() {
    if (statement_ != nullptr)
        session_->giveBack(std::exchange(statement_, nullptr), rows_);
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
        lastValue_ = read(static_cast<SQLUSMALLINT>(column + 1));
        lastColumn_ = column;
    }
    return lastValue_;
}

std::optional<QString> OdbcRows::read(SQLUSMALLINT column) {
    std::array<SQLWCHAR, 512> start;
    SQLLEN bytes = 0;
    const auto outcome = SQLGetData(statement_, column, SQL_C_WCHAR, start.data(), sizeof(start), &bytes);
    if (!SQL_SUCCEEDED(outcome))
        throw session_->failure(statement_);
    if (bytes == SQL_NULL_DATA)
        return {};
    if (bytes != SQL_NO_TOTAL && bytes < static_cast<SQLLEN>(sizeof(start)))
        return fromWide(start.data(), bytes / 2);

    auto value = fromWide(start.data(), start.size() - 1);
    auto missing = bytes == SQL_NO_TOTAL ? value.size() : bytes / 2 - value.size();
    while (readMore(column, value, missing))
        missing = value.size();
    return value;
}

bool OdbcRows::readMore(SQLUSMALLINT column, QString& value, qsizetype room) {
    const auto have = value.size();
    value.resize(have + room + 1);
    SQLLEN bytes = 0;
    const auto outcome =
        SQLGetData(statement_, column, SQL_C_WCHAR, value.data() + have, 2 * (room + 1), &bytes);
    if (outcome == SQL_NO_DATA) {
        value.truncate(have);
        return false;
    }
    if (!SQL_SUCCEEDED(outcome))
        throw session_->failure(statement_);
    const bool more = bytes == SQL_NO_TOTAL || bytes / 2 > room;
    value.truncate(have + (more ? room : bytes / 2));
    return more;
}

QString bracedValue(const QString& value) {
    return u'{' + QString(value).replace(u"}"_s, u"}}"_s) + u'}';
}

OdbcLink::OdbcLink(const QString& connectionString, const QString& user, const QString& password)
    : session_(std::make_shared<OdbcSession>()) {
    try {
        session_->connect(connectionString + u";UID="_s + bracedValue(user) + u";PWD="_s +
                          bracedValue(password));
    } catch (Error& error) {
        error.description = text(1080).arg(connectionString, error.description);
        throw;
    }
}

OdbcLink::~OdbcLink() {
    session_->close();
}

QString OdbcLink::dbmsName() const {
    return session_->dbmsName();
}

void OdbcLink::lostWhen(std::function<bool(const Error&)> meansLost) {
    session_->meansLost = std::move(meansLost);
}

bool OdbcLink::isLost() const {
    return session_->lost;
}

void OdbcLink::execute(const QString& statement) {
    session_->giveBack(session_->run(statement, Rows::all), Rows::all);
}

std::unique_ptr<RecordSet> OdbcLink::select(const QString& statement, Rows rows) {
    return std::make_unique<OdbcRows>(session_, session_->run(statement, rows), rows);
}

} // namespace kelvane
