#pragma once

#include "admin/accounts.h"
#include "admin/server_connection.h"

namespace kelvane::admin {

/// The accounts of a server's database: logins are roles of the server, whose rights follow owner and level.
/// Case counts in their names. Passwords leave this program as verifiers alone.
class ServerAccounts final : public Accounts {
  public:
    /// Throws `Failure` when the server does not take the connection.
    explicit ServerAccounts(const DatabaseAddress& address) : server_(address) {}

    bool set(const QString& name, const QString& owner, int level, const Password* password) override;
    void setPassword(const QString& name, const Password& password) override;
    void remove(const QString& name) override;

  protected:
    QList<Account> read() override;
    Qt::CaseSensitivity caseOfLogins() const override { return Qt::CaseSensitive; }

  private:
    ServerConnection server_;
};

} // namespace kelvane::admin
