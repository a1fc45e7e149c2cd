#pragma once

#include "tests/admin/admin_program.h"

#include <QTemporaryDir>

namespace kelvane::testing {

/// A private server without databases, which stops with this.
class AdminServer {
  public:
    AdminServer();
    AdminServer(const AdminServer&) = delete;
    AdminServer& operator=(const AdminServer&) = delete;
    ~AdminServer();

    /// Why there is none; empty when it runs.
    QString trouble() const { return trouble_; }
    /// The address of a database, as its administrator or as another user.
    QString address(const QString& database, const QString& user = QStringLiteral("kelvane_admin")) const;
    QString socket() const { return socket_; }
    /// What a statement of its administrator answers.
    QString psql(const QString& database, const QString& statement) const;
    /// What its log holds.
    QByteArray log() const;

  private:
    QTemporaryDir folder_;
    QString socket_;
    QString trouble_;
};

/// The administrator's commands on a server of this suite's own, which has a database "demo" with the
/// demonstration data, in a database of this test's own, a copy of that. Without a server the test is
/// skipped.
class AdminOnServer : public ::testing::Test {
  protected:
    static void SetUpTestSuite();
    static void TearDownTestSuite();
    void SetUp() override;
    void TearDown() override;

    AdminOutcome run(const QString& command, const QStringList& arguments = {},
                     const QByteArray& input = {}) {
        return runAdmin(QStringList{command, address()} + arguments, input);
    }
    static const AdminServer& server();
    QString address() const { return server().address(database_); }
    QString listed(const QString& name) { return lineOfAccount(run(QStringLiteral("accounts")), name); }
    /// What a statement of the administrator answers.
    static QString psql(const QString& database, const QString& statement);
    /// True when the workstation takes the login through the data source that the program has written.
    bool takesLogin(const QString& user, const QString& password);

  private:
    QString database_;
    int sources_ = 0;
};

} // namespace kelvane::testing
