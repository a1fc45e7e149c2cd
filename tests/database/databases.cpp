#include "tests/database/databases.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

QString makeDatabase(const QString& name) {
    return QStringLiteral(KELVANE_DATABASES "/") + name;
}

QString sourceFile(const QString& path) {
    return QStringLiteral(KELVANE_SOURCES "/") + path;
}

QString valueOf(Connection& connection, const QString& query) {
    const auto rows = queryRows(connection, query);
    EXPECT_EQ(rows.size(), 1) << query.toStdString();
    return rows.value(0);
}

std::optional<Error> refusalOf(Connection& connection, const QString& statement) {
    try {
        connection.execute(statement);
    } catch (const Error& error) {
        return error;
    }
    return {};
}

QList<Column> allColumns(Connection& connection) {
    const auto rows =
        queryRows(connection,
                  u"select t.schema, t.name, c.name, c.type from pragma_table_list as t, "
                  u"pragma_table_info(t.name, t.schema) as c "
                  "where t.schema in ('mt', 'std', 'abc') and t.type = 'table' and t.name not like 'sqlite%' "
                  "order by t.schema, t.name, c.cid"_s,
                  4);
    QList<Column> columns;
    for (const auto& row : rows) {
        const auto parts = row.split(u'|');
        columns << Column{parts[0], parts[1], parts[2], parts[3]};
    }
    return columns;
}

} // namespace kelvane::testing
