#include "platform/database/odbc_driver.h"

#include "testkit/embedded_database.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(DriverOf, AConnectionStringThatNamesTheDriver) {
    EXPECT_TRUE(driverOf(u"Driver=SQLite3;Database=/x"_s).startsWith(u"SQLite3 libsqlite3odbc"_s));
    EXPECT_TRUE(driverOf(u"DRIVER = {SQLite3};UID=a"_s).startsWith(u"SQLite3"_s));
    EXPECT_EQ(driverOf(u"Driver=/nowhere/libdriver.so"_s), u"/nowhere/libdriver.so"_s);
}

TEST(DriverOf, ADataSourceHasTheOneOfItsSection) {
    const EmbeddedDatabase database{QString()};
    EXPECT_TRUE(driverOf(database.connectionString()).startsWith(u"SQLite3 "_s));
    EXPECT_TRUE(driverOf(u"Database=x;dsn="_s + database.dsn()).startsWith(u"SQLite3 "_s));
}

TEST(DriverOf, WhatIsUnknownIsEmpty) {
    for (const auto& text : {u""_s, u"DSN=nobody has this"_s, u"DSN="_s, u"UID=Driver"_s, u"nonsense"_s})
        EXPECT_EQ(driverOf(text), QString()) << text.toStdString();
}

} // namespace kelvane::testing
