#pragma once

#include "tests/database/scripts.h"

#include <gtest/gtest.h>

namespace kelvane::testing {

/// Who a session is, and what the server is asked for it.
struct Login {
    QString name;
    QString password = QStringLiteral("kelvane");
};

/// Databases made by the scripts of database/postgresql/ on a private server, which the first test starts and
/// the end of the program stops. Where no server can be started the tests are skipped.
class ScriptServer : public ::testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// The folder that holds the server.
    static QString serverFolder();
    /// The address of a database, as its administrator; of a login when one is given.
    static QString address(const QString& database, const QString& login = QStringLiteral("kelvane_admin"));
    /// Runs a script of database/postgresql/.
    static Outcome run(const QString& script, const QStringList& arguments);

    /// Runs psql on a database, up to a statement that fails.
    static Outcome psql(const QString& database, const QString& statements, const Login& login = {});
    /// What it answers, without blanks at its ends. A statement that fails is a failure of the test.
    static QString answer(const QString& database, const QString& statements, const Login& login = {});
    /// The SQLSTATE of each statement, each of which is undone.
    static QStringList states(const QString& database, const QStringList& statements, const Login& login);

    /// A new copy of the demonstration database; gives its name.
    QString demo();
    /// A name that no database has; what is made under it goes with the test.
    QString newName();

  private:
    QStringList names_;
};

/// The same with a copy of the demonstration database.
class DemonstrationOnServer : public ScriptServer {
  protected:
    void SetUp() override;

    QString database;
};

} // namespace kelvane::testing
