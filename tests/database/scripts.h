#pragma once

#include <QProcessEnvironment>
#include <QStringList>

namespace kelvane::testing {

/// The files of a database, sorted.
inline const QStringList databaseFiles{QStringLiteral("abc.db"), QStringLiteral("kelvane.db"),
                                       QStringLiteral("mt.db"), QStringLiteral("std.db"),
                                       QStringLiteral("sys.db")};

/// How a program has ended, and what it has written to its output and for its errors.
struct Outcome {
    int code = -1;
    QString output;
};

/// Where and as whom a script runs.
struct ScriptEnvironment {
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    QString workingFolder;
    /// Run by a user who may write only what everybody may.
    bool withoutPrivileges = false;
};

/// Runs a script by its path, to its end.
Outcome runScript(const QString& script, const QStringList& arguments,
                  const ScriptEnvironment& environment = {});

/// Runs a program with `input` as what it reads, to its end.
Outcome runProgram(const QString& program, const QStringList& arguments, const QString& input,
                   const ScriptEnvironment& environment = {});

/// Runs the sqlite3 program on a file, up to a statement that fails.
Outcome runSqlite(const QString& file, const QString& statement);
/// What it answers. A statement that fails is a failure of the test.
QString sqlite(const QString& file, const QString& statement);

/// What it answers for each file of a database, behind the file's name.
QString sqliteForEach(const QString& database, const QString& statement);

/// All definitions and rows of a database, as text.
QString contentOf(const QString& database);

/// The definitions of a database without blanks and comments, one a line, sorted; without those of the
/// engine and of the history of upgrades.
QStringList definitionsIn(const QString& database);

/// The rows of a database, in those columns that `columnsFrom` has too.
QString rowsIn(const QString& database, const QString& columnsFrom);

} // namespace kelvane::testing
