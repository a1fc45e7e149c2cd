#pragma once

#include "admin/accounts.h"
#include "platform/database/odbc_link.h"

namespace kelvane::admin {

/// The accounts of the embedded engine: names and hashes of passwords in "kelvane.db", users in "mt.db".
/// Case does not count in their names. Workstations may be logged in meanwhile.
class EmbeddedAccounts final : public Accounts {
  public:
    /// Throws `Failure` for a folder that holds no database.
    explicit EmbeddedAccounts(const QString& folder);

    bool set(const QString& name, const QString& owner, int level, const Password* password) override;
    void setPassword(const QString& name, const Password& password) override;
    void remove(const QString& name) override;

  protected:
    QList<Account> read() override;
    Qt::CaseSensitivity caseOfLogins() const override { return Qt::CaseInsensitive; }

  private:
    void attach(const QString& schema);
    void requireOwner(const QString& owner) const;
    void executeTogether(const QStringList& statements);
    template <class Step>
    auto attempt(Step step) const;

    QString folder_;
    OdbcLink link_;
};

} // namespace kelvane::admin
