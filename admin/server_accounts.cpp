#include "admin/server_accounts.h"

#include "admin/failure.h"

using namespace Qt::StringLiterals;

namespace kelvane::admin {

namespace {

/// The server would cut a longer name, to that of somebody else perhaps.
constexpr qsizetype maxNameBytes = 63;

constexpr auto setPasswordQuery = "select kelvane.set_password($1, $2)";

} // namespace

QList<Account> ServerAccounts::read() {
    QList<Account> accounts;
    const auto rows = server_.run("select name, owner, level, has_login, is_user from kelvane.accounts");
    for (const auto& row : rows) {
        Account account;
        account.name = row[0];
        account.owner = row[1];
        account.level = row[2];
        account.hasLogin = row[3] == u"t";
        account.isUser = row[4] == u"t";
        accounts << account;
    }
    return accounts;
}

void ServerAccounts::set(const QString& name, const QString& owner, int level, const Password* password) {
    if (name.toUtf8().size() > maxNameBytes)
        throw Failure{u"a login of the server has at most %1 bytes: %2"_s.arg(maxNameBytes).arg(name)};
    server_.run("begin");
    server_.run("select kelvane.set_account($1, $2, $3)", {name, owner, QString::number(level)});
    if (password != nullptr)
        server_.run(setPasswordQuery, {name, server_.verifierOf(*password, name)});
    server_.run("commit");
}

void ServerAccounts::setPassword(const QString& name, const Password& password) {
    server_.run(setPasswordQuery, {name, server_.verifierOf(password, name)});
}

void ServerAccounts::remove(const QString& name) {
    server_.run("select kelvane.remove_account($1)", {name});
}

} // namespace kelvane::admin
