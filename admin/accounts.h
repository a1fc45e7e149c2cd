#pragma once

#include "admin/database_address.h"
#include "platform/password.h"

#include <QList>

#include <memory>
#include <optional>

namespace kelvane::admin {

/// The login that owns the database. Its owner and level are fixed, whatever the list of users says of it.
inline const QString databaseOwner = QStringLiteral("MT");
constexpr int databaseOwnerLevel = 6;
bool isDatabaseOwner(const QString& name);

/// A name that is a login, a user of the system, or both.
struct Account {
    QString name;
    /// Owner and level are empty for a login that is no user.
    QString owner;
    QString level;
    bool hasLogin = false;
    bool isUser = false;

    /// A login that is no user is refused behind the password, a user without login before it.
    bool mayLogIn() const { return hasLogin && isUser; }
};

/// The accounts of a database. An operation that throws `Failure` has changed nothing. On a server each takes
/// effect as a whole or not at all. In a folder logins and users are two files, and a crash while they are
/// committed can leave one of them without the change.
class Accounts {
  public:
    virtual ~Accounts() = default;
    /// Sorted by name.
    QList<Account> list();
    /// The account of a name, as the engine compares names.
    std::optional<Account> find(const QString& name);

    /// Sets owner and level. With a password the login is made. False when the server has one of this name,
    /// which keeps its own password.
    virtual bool set(const QString& name, const QString& owner, int level, const Password* password) = 0;
    /// Of a login that exists.
    virtual void setPassword(const QString& name, const Password& password) = 0;
    /// Removes login and user.
    virtual void remove(const QString& name) = 0;

  protected:
    /// As they are stored, in any order.
    virtual QList<Account> read() = 0;
    virtual Qt::CaseSensitivity caseOfLogins() const = 0;
};

/// Opens the accounts of a database.
std::unique_ptr<Accounts> openAccounts(const DatabaseAddress& address);

} // namespace kelvane::admin
