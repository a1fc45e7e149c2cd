#pragma once

#include "testkit/fixtures.h"
#include "testkit/test_database.h"

namespace kelvane::testing {

/// The true time, until a test sets it.
class SessionClock final : public Clock {
  public:
    QDateTime now() const override { return set_.isValid() ? set_ : SystemClock().now(); }
    void set(const QDateTime& moment) { set_ = moment; }

  private:
    QDateTime set_;
};

/// Users of the demonstration database, all of owner MT but the last, and what they may do. A server holds
/// them to it.
namespace users {
inline const QString technician = QStringLiteral("jdoe");
/// Edits procedures, too.
inline const QString editor = QStringLiteral("cnguyen");
/// Configures the records, and nothing else.
inline const QString configurer = QStringLiteral("efischer");
/// An editor of owner ABC.
inline const QString editorOfAbc = QStringLiteral("gpetrov");
} // namespace users

/// A session on its own copy of the demonstration database, logged in as one of its users. "MM/DD/YYYY",
/// version 6; the clock shows the true time, which the database has too.
class LoggedInSession {
  public:
    /// Over the real connection, or over what `connections` makes. Both have to outlive the session.
    explicit LoggedInSession(UserInterface& ui, const QString& user = users::technician,
                             ConnectionFactory connections = openConnections());

    /// Opens the connection anew as a user, whose owner and level then count.
    void logIn(const QString& user = users::technician);
    /// Runs a writing statement, past the routines.
    void execute(const QString& statement);
    /// The rows of a query, columns joined with "|".
    QStringList rows(const QString& query, int columns = 1);
    /// The one value of a query.
    QString value(const QString& query);
    /// The first column of a query, sorted; "(null)" for a null.
    QStringList values(const QString& query);
    /// The moment so many days ago, as the database writes it.
    QString daysAgo(int days) const;

    OwnFolder folder;
    SessionClock clock;
    MemorySettings settings;
    TestDatabase database;
    Session session;
};

} // namespace kelvane::testing
