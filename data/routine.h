#pragma once

#include "data/session.h"
#include "platform/database/sql.h"
#include "platform/error_report.h"

#include <utility>

namespace kelvane {

/// The guard of a routine: it knows the routine's name and the statement in hand, runs the body, and reports
/// what the body throws. The caller then goes on with the routine's default result, or with what it has
/// filled so far.
///
///     QString result;
///     Routine routine(session, u"ModuleGlobals,CheckAsset"_s);
///     routine.run([&] { ... routine.select(...) ...; result = ...; });
///     return result;
class Routine {
  public:
    /// `name` is the object, a comma and the routine, as the report shows it.
    Routine(Session& session, QString name) : session_(session), name_(std::move(name)) {}
    Routine(const Routine&) = delete;
    Routine& operator=(const Routine&) = delete;

    /// Runs `body`. True when it came to its end, false when an error was reported. An error report that
    /// can't be written is the only thing that leaves here, as error 75.
    template <class Body>
    bool run(Body&& body) {
        try {
            std::forward<Body>(body)();
            return true;
        } catch (const Error& error) {
            report(error);
            return false;
        }
    }

    // A statement that a value has made another one of is never sent, and is the syntax error that it would
    // have been (`platform/database/sql.h`).

    /// Runs a query through the shared connection; the statement is what a report would show.
    std::unique_ptr<RecordSet> select(const Sql& statement, Rows rows = Rows::all);
    /// The first column of the first row: no row and null both give nothing.
    std::optional<QString> selectValue(const Sql& statement);
    /// True when the query has a row.
    bool hasRow(const Sql& statement);
    /// Runs a writing statement through the shared connection; gives the number of rows that it has changed,
    /// -1 where the engine does not tell.
    qint64 execute(const Sql& statement);

  private:
    void report(const Error& error);
    /// Keeps the statement for a report; gives its text when it may be sent.
    const QString& take(const Sql& statement);

    Session& session_;
    QString name_;
    QString statement_;
};

/// All statements of a block or none, on the engines that can (`Connection::beginTransaction`). Without
/// `commit` the end of the block rolls back.
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

/// Sees whether a report came during a block: what was prepared in it may then be incomplete.
class ReportWatch {
  public:
    explicit ReportWatch(const Session& session) : session_(session), before_(session.reportCount) {}
    bool sawReport() const { return session_.reportCount != before_; }

  private:
    const Session& session_;
    int before_;
};

/// The hourglass for the time of a block; the normal pointer comes back on every way out.
class BusyPointer {
  public:
    explicit BusyPointer(UserInterface& ui) : ui_(ui) { ui_.setBusyPointer(); }
    ~BusyPointer() { ui_.setNormalPointer(); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

  private:
    UserInterface& ui_;
};

/// The progress window for the time of a block; it goes away on every way out.
class ProgressWindow {
  public:
    ProgressWindow(UserInterface& ui, const QString& caption) : ui_(ui) { ui_.showProgress(caption); }
    ~ProgressWindow() { ui_.hideProgress(); }
    ProgressWindow(const ProgressWindow&) = delete;
    ProgressWindow& operator=(const ProgressWindow&) = delete;
    /// Percentage, 0 to 100.
    void reach(int percent) { ui_.setProgressValue(percent); }

  private:
    UserInterface& ui_;
};

/// The value of a column that must not be null: error 94 otherwise.
QString notNull(const std::optional<QString>& value);

/// The date, the time or both that a column holds, as servers write them: the year first, a fraction of a
/// second, which is passed over, behind the time. Error 13 when the text is none of them.
Moment storedMoment(QStringView text);

} // namespace kelvane
