#pragma once

#include "data/guard.h"
#include "data/session.h"
#include "platform/database/sql.h"
#include "platform/error_report.h"

#include <utility>

namespace kelvane {

/// The guard of a routine that works with the database: a report of it shows the current statement, too.
///
///     QString result;
///     Routine routine(session, u"ModuleGlobals,CheckAsset"_s);
///     routine.run([&] { ... routine.select(...) ...; result = ...; });
///     return result;
class Routine : public Guard {
  public:
    using Guard::Guard;

    // A statement that a value has made another one of is never sent, and is the syntax error that it would
    // have been (`platform/database/sql.h`).

    /// Runs a query through the shared connection; the statement is what a report would show.
    std::unique_ptr<RecordSet> select(const Sql& statement, Rows rows = Rows::all);
    /// The first column of the first row: no row and null both give nothing.
    std::optional<QString> selectValue(const Sql& statement);
    /// True when the query has a row.
    bool hasRow(const Sql& statement);
    /// Runs a writing statement through the shared connection; gives the number of rows that it has changed,
    /// -1 where the engine does not report it.
    qint64 execute(const Sql& statement);

  private:
    /// Keeps the statement for a report; gives its text when it may be sent.
    const QString& take(const Sql& statement);
};

/// Carries out all statements of a block or none, on engines with transactions
/// (`Connection::beginTransaction`). Without `commit` the end of the block rolls back.
class Transaction {
  public:
    explicit Transaction(Session& session);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void commit();

  private:
    Connection& connection_;
    bool open_ = true;
};

/// The value of a column that must not be null: error 94 otherwise.
QString notNull(const std::optional<QString>& value);

/// The date, the time or both that a column holds, as servers write them: the year first, an optional
/// fraction of a second, which is ignored, behind the time. Error 13 when the text is none of them.
Moment storedMoment(QStringView text);

} // namespace kelvane
