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

/// A session on its own copy of the demonstration database, logged in as jdoe of owner MT. "MM/DD/YYYY",
/// version 6; the clock shows the true time, which the database has too.
class LoggedInSession {
  public:
    /// Over the real connection, or over what `connections` makes. Both have to outlive the session.
    explicit LoggedInSession(UserInterface& ui, ConnectionFactory connections = openConnections());

    /// Opens the connection anew as a user, whose owner and level then count.
    void logIn(const QString& user = QStringLiteral("jdoe"));
    /// Works on the tables of another owner from now on.
    void useOwner(const QString& user, const QString& owner);
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
