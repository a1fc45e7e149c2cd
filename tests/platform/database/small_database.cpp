#include "tests/platform/database/small_database.h"

#include "platform/database/odbc_link.h"

#include <crypt.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// A hash of the lowest cost, so that a hundred logins take no time.
QString hashCheaply(const QString& password) {
    crypt_data work{};
    return QString::fromLatin1(crypt_r(password.toUtf8().constData(), "$y$j75$saltsaltsalt", &work));
}

} // namespace

void makeFile(const QString& path, const QStringList& statements) {
    OdbcLink link(u"Driver=SQLite3;JournalMode=WAL;Database="_s + path, {}, {});
    for (const auto& statement : statements)
        link.execute(statement);
}

SmallDatabase::SmallDatabase(const QHash<QString, QString>& settings)
    : EmbeddedDatabase(QString(), settings) {
    const auto account = u"insert into accounts values ('%1','%2')"_s;
    makeFile(file(u"kelvane.db"_s),
             {u"create table accounts (name text primary key collate nocase, hash text)"_s,
              account.arg(u"jdoe"_s, hashCheaply(u"kelvane"_s)),
              account.arg(u"Jürgen"_s, hashCheaply(u"pässwörd"_s)),
              account.arg(u"o''hara"_s, hashCheaply(u"it's"_s)), account.arg(u"damaged"_s, u"not a hash"_s),
              account.arg(u"braces"_s, hashCheaply(u"{a}b}};c"_s)),
              u"insert into accounts values ('none',null)"_s});
    const auto inventory =
        u"create table inventory (mtag text primary key, i4201 text unique, i4209 text) strict"_s;
    const auto calibration =
        u"create table calibration (ctag integer primary key, mtag text, c2303 text, c2334 text, c2339 integer) strict"_s;
    for (const auto& owner : {u"abc"_s, u"mt"_s, u"std"_s})
        makeFile(file(owner + u".db"_s), {inventory, calibration});
    makeFile(file(u"mt.db"_s),
             {u"create table readings (id integer primary key, note text, value real) strict"_s,
              u"create table unique_notes (note text unique) strict"_s});
}

std::unique_ptr<Connection> SmallDatabase::connect() const {
    return EmbeddedDatabase::connect(u"jdoe"_s, u"kelvane"_s);
}

QStringList firstColumn(Connection& connection, const QString& query) {
    return queryRows(connection, query);
}

} // namespace kelvane::testing
