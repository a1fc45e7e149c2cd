#include "admin/server_accounts.h"

using namespace Qt::StringLiterals;

namespace kelvane::admin {

namespace {

/// Login and user of a name are one row; either may be missing. Logins belong to the whole server.
constexpr auto accountsQuery =
    "select coalesce(login, mtuser::text), i4240, mtlevel, login is not null, mtuser is not null "
    "from (select rolname::text as login from pg_roles "
    "where rolcanlogin and 'kelvane_login' = any (kelvane.groups_of(rolname::text))) as logins "
    "full join mt.userlist on mtuser::text = login";
constexpr auto setPasswordQuery = "select kelvane.set_password($1, $2)";

} // namespace

QList<Account> ServerAccounts::read() {
    QList<Account> accounts;
    for (const auto& row : server_.run(accountsQuery)) {
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

bool ServerAccounts::set(const QString& name, const QString& owner, int level, const Password* password) {
    server_.run("begin");
    const bool isNew = server_.run("select kelvane.set_account($1, $2, $3)",
                                   {name, owner, QString::number(level)})[0][0] == u"t";
    if (isNew && password != nullptr)
        server_.run(setPasswordQuery, {name, server_.verifierOf(*password, name)});
    server_.run("commit");
    return isNew;
}

void ServerAccounts::setPassword(const QString& name, const Password& password) {
    server_.run(setPasswordQuery, {name, server_.verifierOf(password, name)});
}

void ServerAccounts::remove(const QString& name) {
    server_.run("select kelvane.remove_account($1)", {name});
}

} // namespace kelvane::admin
