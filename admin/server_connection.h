#pragma once

#include "admin/database_address.h"
#include "platform/password.h"

#include <QStringList>

#include <memory>

struct pg_conn;

namespace kelvane::admin {

/// A connection of the administrator to a server. Its password, where the server wants one, comes from what
/// the server's own programs read (~/.pgpass), or from the terminal.
class ServerConnection {
  public:
    /// Throws `Failure` that says what is wrong: no answer, a refused login, no such database.
    explicit ServerConnection(const DatabaseAddress& address);

    /// Carries out one statement with values for $1, $2 ..., and gives its rows; a null is a null text.
    /// Statements that stand between "begin" and "commit" take effect together.
    QList<QStringList> run(const char* statement, const QStringList& values = {});

    /// What the server keeps instead of a password: it proves the password, and can't be turned back.
    QString verifierOf(const Password& password, const QString& user) const;

  private:
    struct Finish {
        void operator()(pg_conn* connection) const;
    };
    void connect(const Password* password);
    bool isOpen() const;

    DatabaseAddress address_;
    std::unique_ptr<pg_conn, Finish> connection_;
};

} // namespace kelvane::admin
