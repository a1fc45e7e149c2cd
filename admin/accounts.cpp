#include "admin/accounts.h"

#include "admin/embedded_accounts.h"
#include "admin/server_accounts.h"

#include <algorithm>

namespace kelvane::admin {

bool isDatabaseOwner(const QString& name) {
    return name.compare(databaseOwner, Qt::CaseInsensitive) == 0;
}

QList<Account> Accounts::list() {
    auto accounts = read();
    for (auto& account : accounts) {
        if (!isDatabaseOwner(account.name))
            continue;
        account.owner = databaseOwner;
        account.level = QString::number(databaseOwnerLevel);
        account.isUser = true;
    }
    std::ranges::sort(accounts, [](const Account& left, const Account& right) {
        const int order = left.name.compare(right.name, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : left.name < right.name;
    });
    return accounts;
}

std::optional<Account> Accounts::find(const QString& name) {
    const auto accounts = list();
    const auto found = std::ranges::find_if(
        accounts, [&](const Account& account) { return account.name.compare(name, caseOfLogins()) == 0; });
    return found == accounts.end() ? std::nullopt : std::optional(*found);
}

std::unique_ptr<Accounts> openAccounts(const DatabaseAddress& address) {
    if (address.isServer)
        return std::make_unique<ServerAccounts>(address);
    return std::make_unique<EmbeddedAccounts>(address.text);
}

} // namespace kelvane::admin
