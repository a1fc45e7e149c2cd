#pragma once

#include "data/session.h"

#include <optional>
#include <type_traits>
#include <utility>

namespace kelvane {

/// The guard of a routine: it knows the routine's name, runs the body, and reports what the body throws. The
/// caller then goes on with the routine's default result, or with what it has filled so far. A routine that
/// works with the database is a `Routine` (`data/routine.h`).
///
/// An error report that can't be written is the only thing that leaves here, as error 75.
class Guard {
  public:
    /// `name` is the object, a comma and the routine, as the report shows it.
    Guard(Session& session, QString name) : session_(session), name_(std::move(name)) {}
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;

    /// Runs `body`. Gives the error that was reported; nothing when the body came to its end.
    template <class Body>
    std::optional<Error> failureOf(Body&& body) {
        try {
            std::forward<Body>(body)();
            return {};
        } catch (const Error& error) {
            report(error);
            return error;
        }
    }
    /// Runs `body`. True when it came to its end, false when an error was reported.
    template <class Body>
    bool run(Body&& body) {
        return !failureOf(std::forward<Body>(body));
    }
    /// Runs `body`. Gives what it returns; nothing when an error was reported.
    template <class Body>
    std::optional<std::invoke_result_t<Body>> resultOf(Body&& body) {
        std::optional<std::invoke_result_t<Body>> result;
        run([&] { result = std::forward<Body>(body)(); });
        return result;
    }

  protected:
    Session& session() { return session_; }
    /// Keeps what a report shows as the statement.
    void keepStatement(const QString& statement) { statement_ = statement; }

  private:
    void report(const Error& error);

    Session& session_;
    QString name_;
    QString statement_;
};

/// Notices error reports during a block: what was prepared in it may then be incomplete. What other screens
/// report while a question of the block is open does not count.
class ReportWatch {
  public:
    explicit ReportWatch(const Session& session) : session_(session), before_(session.reportCount) {}
    bool sawReport() const { return session_.reportCount != before_; }

  private:
    const Session& session_;
    int before_;
};

} // namespace kelvane
