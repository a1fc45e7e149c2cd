#pragma once

#include "tests/database/databases.h"

namespace kelvane::testing {

/// A session on a copy of the demonstration database, over the real connection, with a scripted operator (who
/// fails the test on any error report). "MM/DD/YYYY", version 6; the clock shows the true day.
class DemoSession : public ::testing::Test {
  protected:
    DemoSession();
    /// Opens the connection as a user, whose owner and level then count.
    void logIn(const QString& user = QStringLiteral("jdoe"));

    QStringList rows(const QString& query, int columns = 1) {
        return rowsOf(*session.SharedConnection, query, columns);
    }
    QString value(const QString& query) { return valueOf(*session.SharedConnection, query); }
    /// All instruments of the session's owner that have parameters.
    QStringList configuredAssets();

    OwnFolder folder;
    SetClock clock;
    MemorySettings settings;
    ScriptedUserInterface ui;
    DemoDatabase database;
    Session session;
};

} // namespace kelvane::testing
