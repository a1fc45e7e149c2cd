#include "platform/odbc_connection.h"
#include "tests/connection/small_database.h"
#include "tests/support/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(DataSources, AreListedByName) {
    const EmbeddedDatabase one{QString()};
    const EmbeddedDatabase other{QString()};
    const auto names = odbcDataSources();
    EXPECT_EQ(names.count(one.dsn()), 1) << names.join(u", "_s).toStdString();
    EXPECT_EQ(names.count(other.dsn()), 1);
    for (const auto& name : names)
        EXPECT_FALSE(name.isEmpty() || name.contains(QChar::Null)) << name.toStdString();
}

} // namespace kelvane::testing
