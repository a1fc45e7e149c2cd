#pragma once

#include <QString>

namespace kelvane {

/// The one error that is thrown inside a routine. It never leaves a routine: the routine's guard
/// (`data/routine.h`) catches and reports it.
struct Error {
    double number = 0;
    QString description;
    /// The five-character SQLSTATE of a database error; empty for others.
    QString sqlState = {};
    /// True when this error means that the database connection is lost.
    bool connectionLost = false;
};

/// The numbered errors of the program itself, with their descriptions.
enum class ErrorNumber : int {
    invalidArgument = 5,
    overflow = 6,
    subscriptOutOfRange = 9,
    divisionByZero = 11,
    typeMismatch = 13,
    fileNotFound = 53,
    pathFileAccess = 75,
    invalidUseOfNull = 94,
    noCurrentRow = 3021,
    databaseReadOnly = 3027,
    connectionOpen = 3705,
    connectionClosed = 3709,
};

/// An `Error` of that number with its fixed description.
Error makeError(ErrorNumber number);
/// Error 70: another workstation keeps the lock `name`.
Error lockHeldElsewhere(const QString& name);
/// The error of a statement that no longer means what its routine meant.
Error syntaxError();

} // namespace kelvane
