#include "admin/account_commands.h"

#include "admin/accounts.h"
#include "admin/failure.h"
#include "admin/password_questions.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::admin {

namespace {

std::unique_ptr<Accounts> accountsOf(const Invocation& invocation) {
    return openAccounts(databaseAddress(invocation.arguments[0]));
}

/// The login drops blanks at the ends of what is typed.
QString nameOf(const Invocation& invocation) {
    static const QRegularExpression control(u"[\\x00-\\x1f\\x7f]"_s);
    const auto& name = invocation.arguments[1];
    if (name.isEmpty())
        throw usageFailure(u"the name of the account is empty"_s);
    if (name.startsWith(u' ') || name.endsWith(u' ') || name.contains(control))
        throw usageFailure(u"the name of an account has no blank at its ends and no control character"_s);
    return name;
}

QString ownerOf(const Invocation& invocation) {
    static const QRegularExpression plain(u"^[A-Za-z_][A-Za-z0-9_]*$"_s);
    const auto owner = invocation.options.value(u"owner"_s);
    if (!owner.contains(plain))
        throw usageFailure(u"an owner is a name of letters, digits and _: "_s + owner);
    return owner.toUpper(); // the workstation compares it with "MT"
}

int levelOf(const QString& text) {
    static const QRegularExpression digits(u"^[0-9]+$"_s);
    bool isNumber = false;
    const int level = text.toInt(&isNumber);
    if (!isNumber || !text.contains(digits) || level > std::numeric_limits<qint16>::max())
        throw usageFailure(u"a level is a whole number from 0 to 32767: "_s + text);
    return level;
}

/// The owner of the database works without an entry, and whatever an entry says.
void requireFixed(const QString& name, const QString& owner, int level) {
    if (isDatabaseOwner(name) &&
        (owner.compare(databaseOwner, Qt::CaseInsensitive) != 0 || level != databaseOwnerLevel))
        throw usageFailure(u"%1 owns the database: its owner is MT and its level 6"_s.arg(name));
}

Account require(Accounts& accounts, const QString& name) {
    const auto account = accounts.find(name);
    if (!account)
        throw Failure{u"there is no account %1"_s.arg(name)};
    return *account;
}

Account requireLogin(Accounts& accounts, const QString& name) {
    const auto account = require(accounts, name);
    if (!account.hasLogin)
        throw Failure{u"%1 has no login; make it with the command account"_s.arg(name)};
    return account;
}

QStringList cellsOf(const Account& account) {
    return {account.name, account.owner, account.level, account.mayLogIn() ? u"yes"_s : u"no"_s};
}

/// A control character of a name would end the line, or reach the terminal.
QString printable(QString text) {
    static const QRegularExpression control(u"[\\x00-\\x1f\\x7f]"_s);
    return text.replace(control, u"?"_s);
}

} // namespace

QString listAccounts(const Invocation& invocation) {
    QList<QStringList> rows{{u"name"_s, u"owner"_s, u"level"_s, u"may log in"_s}};
    for (const auto& account : accountsOf(invocation)->list())
        rows << cellsOf(account);
    std::array<qsizetype, 3> widths{};
    for (auto& row : rows) {
        for (std::size_t column = 0; column < widths.size(); ++column) {
            auto& cell = row[static_cast<qsizetype>(column)];
            cell = printable(cell);
            widths[column] = std::max(widths[column], cell.size());
        }
    }
    QString lines;
    for (const auto& row : std::as_const(rows)) {
        for (std::size_t column = 0; column < widths.size(); ++column)
            lines += row[static_cast<qsizetype>(column)].leftJustified(widths[column] + 2);
        lines += row.last() + u'\n';
    }
    return lines;
}

QString setAccount(const Invocation& invocation) {
    const auto name = nameOf(invocation);
    const auto owner = ownerOf(invocation);
    const int level = levelOf(invocation.options.value(u"level"_s));
    requireFixed(name, owner, level);
    const auto accounts = accountsOf(invocation);
    const auto present = accounts->find(name);
    if (present && present->hasLogin) {
        accounts->set(present->name, owner, level, nullptr);
    } else {
        const auto password = newPassword(name);
        if (!accounts->set(name, owner, level, &password))
            return u"The server had the login %1 before, which keeps its password; the command password sets "
                   "another.\n"_s.arg(name);
    }
    return {};
}

QString setLevel(const Invocation& invocation) {
    const auto name = nameOf(invocation);
    const int level = levelOf(invocation.arguments[2]);
    const auto accounts = accountsOf(invocation);
    const auto account = require(*accounts, name);
    if (!account.isUser)
        throw Failure{u"%1 has no owner yet; use the command account"_s.arg(name)};
    requireFixed(account.name, account.owner, level);
    accounts->set(account.name, account.owner, level, nullptr);
    return {};
}

QString setPassword(const Invocation& invocation) {
    const auto name = nameOf(invocation);
    const auto accounts = accountsOf(invocation);
    const auto account = requireLogin(*accounts, name);
    accounts->setPassword(account.name, newPassword(name));
    return {};
}

QString removeAccount(const Invocation& invocation) {
    const auto name = nameOf(invocation);
    const auto accounts = accountsOf(invocation);
    accounts->remove(require(*accounts, name).name);
    return {};
}

} // namespace kelvane::admin
