#include "admin/embedded_accounts.h"

#include "admin/failure.h"
#include "platform/database/accounts.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace kelvane::admin {

namespace {

/// The memory's own database comes first: a path in a connection string could hold what it cuts it at. The
/// time-out, in milliseconds, counts four times over.
const QString driver = u"Driver=SQLite3;Database=:memory:;BigInt=1;SyncPragma=FULL;Timeout=1500"_s;

constexpr int busy = 5;
constexpr int readOnly = 8;

QString quote(const QString& text) {
    return u'\'' + QString(text).replace(u"'"_s, u"''"_s) + u'\'';
}

/// Account and user of a name are one row; either may be missing.
const QString accountsQuery =
    u"select coalesce(a.name, u.mtuser), u.i4240, u.mtlevel, a.name is not null, u.mtuser is not null "
    "from kelvane.accounts as a full join mt.userlist as u on u.mtuser = a.name"_s;

QString setHash(const QString& name, const Password& password) {
    const auto hash = newHash(password.utf8());
    if (hash.isEmpty())
        throw Failure{u"this system can't make a hash of the password"_s};
    return u"insert into kelvane.accounts (name, hash) values (%1, %2) "
           "on conflict (name) do update set hash = excluded.hash"_s.arg(quote(name),
                                                                         quote(QString::fromLatin1(hash)));
}

QString setUser(const QString& name, const QString& owner, int level) {
    return u"insert into mt.userlist (mtuser, i4240, mtlevel) values (%1, %2, %3) "
           "on conflict (mtuser) do update set i4240 = excluded.i4240, mtlevel = excluded.mtlevel"_s.arg(
               quote(name), quote(owner), QString::number(level));
}

QString removeUser(const QString& name) {
    return u"delete from mt.userlist where mtuser = "_s + quote(name);
}

} // namespace

/// Runs a step; what the driver reports is said in words.
template <class Step>
auto EmbeddedAccounts::attempt(Step step) const {
    try {
        return step();
    } catch (const Error& error) {
        const auto code = static_cast<int>(error.number) & 0xff;
        if (code == busy)
            throw Failure{u"%1 is being written by others; nothing was changed, try again"_s.arg(folder_)};
        if (code == readOnly)
            throw Failure{u"%1 can't be written; nothing was changed"_s.arg(folder_)};
        throw Failure{u"%1: %2"_s.arg(folder_, error.description)};
    }
}

EmbeddedAccounts::EmbeddedAccounts(const QString& folder) : folder_(folder), link_(driver, {}, {}) {
    for (const auto& schema : {u"kelvane"_s, u"mt"_s})
        attach(schema);
}

void EmbeddedAccounts::attach(const QString& schema) {
    const QFileInfo folder(folder_);
    if (folder.isDir() && !folder.isExecutable())
        throw Failure{u"%1 can't be opened by you"_s.arg(folder_)};
    const QFileInfo file(QDir(folder_).filePath(schema + u".db"_s));
    if (!file.exists())
        throw Failure{u"%1 holds no database: %2 is missing"_s.arg(folder_, file.fileName())};
    // The engine writes beside the files also when it only reads.
    if (!file.isReadable() || !file.isWritable())
        throw Failure{u"%1 can't be read and written by you"_s.arg(file.filePath())};
    // As an address the file is never made when it has just gone.
    const auto address = QString::fromLatin1(QUrl::fromLocalFile(file.filePath()).toEncoded());
    attempt([&] {
        link_.execute(u"attach %1 as %2"_s.arg(quote(address + u"?mode=rw"_s), schema));
        // The first query alone shows whether it is a database.
        const auto table = schema == u"mt" ? u"userlist"_s : u"accounts"_s;
        link_.select(u"select 1 from %1.%2 limit 0"_s.arg(schema, table), Rows::all);
    });
}

QList<Account> EmbeddedAccounts::read() {
    return attempt([&] {
        QList<Account> accounts;
        for (const auto rows = link_.select(accountsQuery, Rows::all); rows->next();) {
            Account account;
            account.name = rows->value(0).value_or(QString());
            account.owner = rows->value(1).value_or(QString());
            account.level = rows->value(2).value_or(QString());
            account.hasLogin = rows->value(3) == u"1";
            account.isUser = rows->value(4) == u"1";
            accounts << account;
        }
        return accounts;
    });
}

/// Every statement of a user with another owner would fail.
void EmbeddedAccounts::requireOwner(const QString& owner) const {
    auto files = QDir(folder_).entryList({u"*.db"_s}, QDir::Files, QDir::Name);
    QStringList owners;
    for (const auto& file : std::as_const(files)) {
        const auto name = file.chopped(3).toUpper();
        if (name != u"KELVANE" && name != u"SYS")
            owners << name;
    }
    if (!owners.contains(owner.toUpper()))
        throw Failure{
            u"there is no owner %1; those of %2 are %3"_s.arg(owner, folder_, owners.join(u", "_s))};
}

bool EmbeddedAccounts::set(const QString& name, const QString& owner, int level, const Password* password) {
    requireOwner(owner);
    QStringList statements{isDatabaseOwner(name) ? removeUser(name) : setUser(name, owner, level)};
    if (password != nullptr)
        statements << setHash(name, *password);
    executeTogether(statements);
    return true;
}

void EmbeddedAccounts::setPassword(const QString& name, const Password& password) {
    executeTogether({setHash(name, password)});
}

void EmbeddedAccounts::remove(const QString& name) {
    executeTogether({u"delete from kelvane.accounts where name = "_s + quote(name), removeUser(name)});
}

void EmbeddedAccounts::executeTogether(const QStringList& statements) {
    attempt([&] {
        link_.execute(u"begin immediate"_s);
        for (const auto& statement : statements)
            link_.execute(statement); // what fails is rolled back when the connection ends
        link_.execute(u"commit"_s);
    });
}

} // namespace kelvane::admin
