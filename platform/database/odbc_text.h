#pragma once

#include "platform/error.h"

#ifdef Q_OS_WIN
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>

#include <optional>

namespace kelvane {

/// The encoding of texts to and from a driver.
enum class DriverText {
    /// In UTF-16, by the wide functions.
    wide,
    /// In UTF-8, by the narrow functions: for a driver that has no wide ones. The driver manager's own
    /// conversion depends on the process's locale and cuts what it can't convert to its low byte, which may
    /// be a quote.
    utf8,
};

/// Connects by the parts of a connection string, without a prompt. Error 5 for one that is too long.
SQLRETURN connectText(SQLHDBC connection, const QString& dataSource, const QString& login);

/// What the driver of an open connection takes: `wide`, unless such a text does not come back from it whole.
/// Throws when the driver doesn't answer.
DriverText driverTextOf(SQLHDBC connection);

SQLRETURN executeText(SQLHSTMT statement, const QString& sql, DriverText kind);

/// Reads a column of the present row, counted from 1, whatever its length. `value` is nothing for a null.
SQLRETURN readText(SQLHSTMT statement, SQLUSMALLINT column, DriverText kind, std::optional<QString>& value);

/// The error of the last call on a handle: the first message that is more than a remark, or a remark when
/// there is nothing else.
Error lastError(SQLSMALLINT handleType, SQLHANDLE handle, DriverText kind);

/// A text as the wide functions take it. They don't write to it.
SQLWCHAR* wideText(const QString& text);

} // namespace kelvane
