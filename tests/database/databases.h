#pragma once

#include "testkit/embedded_database.h"
#include "testkit/fixtures.h"

#include <QStringList>

namespace kelvane::testing {

/// The folder of a database that the build has made: "demo" or "empty".
QString makeDatabase(const QString& name);
/// A file of the source tree, by its path from the root.
QString sourceFile(const QString& path);

/// A copy of the demonstration database.
class DemoDatabase : public EmbeddedDatabase {
  public:
    DemoDatabase() : EmbeddedDatabase(demoDatabase()) {}
};

/// The one value of a query.
QString valueOf(Connection& connection, const QString& query);

/// What `statement` is refused with; nothing when it is carried out.
std::optional<Error> refusalOf(Connection& connection, const QString& statement);

/// A column of the real tables.
struct Column {
    QString schema;
    QString table;
    QString name;
    QString type;
    QString qualifiedTable() const { return schema + u'.' + table; }
};
/// Every column of every table of the owners.
QList<Column> allColumns(Connection& connection);

} // namespace kelvane::testing
