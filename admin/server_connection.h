#pragma once

#include "admin/database_address.h"
#include "admin/password.h"

#include <QStringList>

struct pg_conn;

namespace kelvane::admin {

/// A connection of the administrator to a server. Its password, where the server wants one, comes from what
/// the server's own programs read (~/.pgpass), or from the terminal.
class ServerConnection {
  public:
    /// Throws `Failure` that says what is wrong: no answer, a refused login, no such database.
    explicit ServerConnection(const DatabaseAddress& address);
    ~ServerConnection();
    ServerConnection(const ServerConnection&) = delete;
    ServerConnection& operator=(const ServerConnection&) = delete;

    /// Carries out one statement with values for $1, $2 ..., and gives its rows; a null is a null text.
    /// Statements that stand between "begin" and "commit" take effect together.
    QList<QStringList> run(const char* statement, const QStringList& values = {});

    /// What the server keeps instead of a password: it proves the password, and can't be turned back.
    QString verifierOf(const Password& password, const QString& user) const;

  private:
    void connect(const Password* password);

    DatabaseAddress address_;
    pg_conn* connection_ = nullptr;
};

} // namespace kelvane::admin
