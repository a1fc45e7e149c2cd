#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#ifdef Q_OS_WIN
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>

namespace kelvane::bench {

/// Plain ODBC, with which every figure of the database is compared.
class PlainOdbc {
  public:
    /// Ends the program when the data source can't be opened.
    explicit PlainOdbc(const QString& connectionString);
    ~PlainOdbc();
    PlainOdbc(const PlainOdbc&) = delete;
    PlainOdbc& operator=(const PlainOdbc&) = delete;

    /// Runs a text, walks what it gives and reads each value as text. Ends the program on an error. Gives the
    /// number of rows read.
    int run(const QString& statement, int maxRows);

    /// The same with the fewest calls that do it: one statement handle for all texts, and texts as bytes.
    /// Reads the first column of every row.
    int runLean(const QByteArray& statement);
    /// The same, reading every column; gives the first one of all rows.
    QStringList read(const QByteArray& statement);

  private:
    SQLSMALLINT execute(const QByteArray& statement);

    SQLHENV environment_ = nullptr;
    SQLHDBC connection_ = nullptr;
    SQLHSTMT kept_ = nullptr;
};

} // namespace kelvane::bench
