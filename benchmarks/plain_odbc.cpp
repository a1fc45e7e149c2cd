#include "benchmarks/plain_odbc.h"

#include <array>
#include <cstdio>
#include <cstdlib>

namespace kelvane::bench {

namespace {

SQLWCHAR* wide(const QString& text) {
    return const_cast<SQLWCHAR*>(reinterpret_cast<const SQLWCHAR*>(text.utf16()));
}

void require(SQLRETURN outcome, const QString& what) {
    if (SQL_SUCCEEDED(outcome) || outcome == SQL_NO_DATA)
        return;
    std::fprintf(stderr, "plain ODBC failed: %s\n", qPrintable(what));
    std::exit(1);
}

} // namespace

PlainOdbc::PlainOdbc(const QString& connectionString) {
    SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &environment_);
    SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
    require(SQLDriverConnectW(connection_, nullptr, wide(connectionString), SQL_NTS, nullptr, 0, nullptr,
                              SQL_DRIVER_NOPROMPT),
            connectionString);
}

PlainOdbc::~PlainOdbc() {
    if (kept_)
        SQLFreeHandle(SQL_HANDLE_STMT, kept_);
    SQLDisconnect(connection_);
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
}

int PlainOdbc::run(const QString& statement, int maxRows) {
    SQLHSTMT handle = nullptr;
    require(SQLAllocHandle(SQL_HANDLE_STMT, connection_, &handle), statement);
    require(SQLExecDirectW(handle, wide(statement), static_cast<SQLINTEGER>(statement.size())), statement);
    SQLSMALLINT columns = 0;
    SQLNumResultCols(handle, &columns);
    int rows = 0;
    std::array<SQLWCHAR, 512> value;
    while (columns > 0 && rows < maxRows && SQL_SUCCEEDED(SQLFetch(handle))) {
        ++rows;
        for (SQLUSMALLINT column = 1; column <= columns; ++column) {
            SQLLEN length = 0;
            SQLGetData(handle, column, SQL_C_WCHAR, value.data(), sizeof(value), &length);
        }
    }
    SQLFreeHandle(SQL_HANDLE_STMT, handle);
    return rows;
}

SQLSMALLINT PlainOdbc::execute(const QByteArray& statement) {
    if (!kept_)
        require(SQLAllocHandle(SQL_HANDLE_STMT, connection_, &kept_), QString::fromUtf8(statement));
    auto* text = reinterpret_cast<SQLCHAR*>(const_cast<char*>(statement.constData()));
    require(SQLExecDirect(kept_, text, static_cast<SQLINTEGER>(statement.size())),
            QString::fromUtf8(statement));
    SQLSMALLINT columns = 0;
    SQLNumResultCols(kept_, &columns);
    return columns;
}

int PlainOdbc::runLean(const QByteArray& statement) {
    const auto columns = execute(statement);
    int rows = 0;
    std::array<char, 512> value;
    while (columns > 0 && SQL_SUCCEEDED(SQLFetch(kept_))) {
        ++rows;
        SQLLEN length = 0;
        SQLGetData(kept_, 1, SQL_C_CHAR, value.data(), sizeof(value), &length);
    }
    SQLFreeStmt(kept_, SQL_CLOSE);
    return rows;
}

QStringList PlainOdbc::read(const QByteArray& statement) {
    const auto columns = execute(statement);
    QStringList first;
    std::array<char, 512> value;
    while (columns > 0 && SQL_SUCCEEDED(SQLFetch(kept_))) {
        for (SQLSMALLINT column = 1; column <= columns; ++column) {
            SQLLEN length = 0;
            SQLGetData(kept_, static_cast<SQLUSMALLINT>(column), SQL_C_CHAR, value.data(), sizeof(value),
                       &length);
            if (column == 1)
                first << QString::fromUtf8(value.data(), length == SQL_NULL_DATA ? 0 : length);
        }
    }
    SQLFreeStmt(kept_, SQL_CLOSE);
    return first;
}

} // namespace kelvane::bench
