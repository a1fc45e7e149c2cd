#pragma once

#include "tests/support/embedded_database.h"
#include "tests/support/fixtures.h"

namespace kelvane::testing {

/// A session on its own copy of the demonstration database, logged in as jdoe of owner MT, with the real
/// clock (the database has it too) and a scripted operator.
class DatabaseSession : public ::testing::Test {
  protected:
    DatabaseSession();
    /// Works on the tables of another owner from now on.
    void become(const QString& user, const QString& owner);
    /// Runs a writing statement, past the routines.
    void execute(const QString& statement);
    /// The first column of a query, sorted; "(null)" for a null.
    QStringList values(const QString& query);
    /// The moment so many days ago, as the database writes it.
    QString daysAgo(int days) const;

    OwnFolder folder;
    SystemClock clock;
    MemorySettings settings;
    ScriptedUserInterface ui;
    EmbeddedDatabase database;
    Session session;
};

} // namespace kelvane::testing
