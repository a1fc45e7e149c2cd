#include "platform/database/odbc_link.h"
#include "platform/database/odbc_text.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// A driver's bare handles, on a database in memory.
class OdbcTexts : public ::testing::TestWithParam<DriverText> {
  protected:
    void SetUp() override {
        SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &environment);
        SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
        SQLAllocHandle(SQL_HANDLE_DBC, environment, &connection);
        ASSERT_TRUE(SQL_SUCCEEDED(SQLDriverConnectW(connection, nullptr,
                                                    wideText(u"Driver=SQLite3;Database=:memory:"_s), SQL_NTS,
                                                    nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT)));
        SQLAllocHandle(SQL_HANDLE_STMT, connection, &statement);
    }
    void TearDown() override {
        SQLFreeHandle(SQL_HANDLE_STMT, statement);
        SQLDisconnect(connection);
        SQLFreeHandle(SQL_HANDLE_DBC, connection);
        SQLFreeHandle(SQL_HANDLE_ENV, environment);
    }
    /// `expression` as it comes back.
    std::optional<QString> valueOf(const QString& expression) {
        std::optional<QString> value;
        EXPECT_TRUE(SQL_SUCCEEDED(executeText(statement, u"select "_s + expression, GetParam())));
        EXPECT_TRUE(SQL_SUCCEEDED(SQLFetch(statement)));
        EXPECT_TRUE(SQL_SUCCEEDED(readText(statement, 1, GetParam(), value)));
        SQLFreeStmt(statement, SQL_CLOSE);
        return value;
    }

    SQLHENV environment = nullptr;
    SQLHDBC connection = nullptr;
    SQLHSTMT statement = nullptr;
};

} // namespace

TEST_P(OdbcTexts, OfEveryLengthComeBackWhole) {
    for (const int length : {0, 1, 509, 510, 511, 512, 513, 1021, 1022, 1023, 1024, 1025, 70'000}) {
        QString text;
        for (int i = 0; i < length; ++i)
            text += QChar(u'a' + i % 26);
        EXPECT_TRUE(valueOf(u'\'' + text + u'\'') == text) << length;
    }
}

TEST_P(OdbcTexts, MayBeNull) {
    EXPECT_EQ(valueOf(u"null"_s), std::nullopt);
    EXPECT_EQ(valueOf(u"''"_s), u""_s);
}

TEST_P(OdbcTexts, ErrorsComeWithNumberStateAndText) {
    ASSERT_FALSE(SQL_SUCCEEDED(executeText(statement, u"select nonsense"_s, GetParam())));
    const auto error = lastError(SQL_HANDLE_STMT, statement, GetParam());
    EXPECT_EQ(error.number, 1);
    EXPECT_EQ(error.sqlState, u"HY000"_s);
    EXPECT_TRUE(error.description.contains(u"no such column: nonsense"_s)) << error.description.toStdString();
}

TEST_P(OdbcTexts, ADriverThatGivesNoReasonStillGivesAnError) {
    const auto error = lastError(SQL_HANDLE_STMT, nullptr, GetParam());
    EXPECT_EQ(error.sqlState, u"HY000"_s);
    EXPECT_FALSE(error.description.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Kinds, OdbcTexts, ::testing::Values(DriverText::wide, DriverText::utf8),
                         [](const auto& kind) { return kind.param == DriverText::wide ? "wide" : "utf8"; });

TEST(OdbcLinks, ReturnNoMoreThanTheFirstRowWhenOnlyThatIsRequested) {
    OdbcLink link(u"Driver=SQLite3;Database=:memory:"_s, u"jdoe"_s, u"secret"_s);
    const auto count = [&](Rows rows) {
        const auto set = link.select(u"select 1 union all select 2 union all select 3"_s, rows);
        int rowCount = 0;
        while (set->next())
            ++rowCount;
        return rowCount;
    };
    EXPECT_EQ(count(Rows::first), 1);
    EXPECT_EQ(count(Rows::all), 3) << "the next query is not cut";
    EXPECT_EQ(count(Rows::first), 1);
    EXPECT_EQ(link.dbmsName(), u"SQLite"_s);
}

TEST(OdbcLinks, QuoteTheValuesOfAConnectionString) {
    EXPECT_EQ(bracedValue(u"plain"_s), u"{plain}"_s);
    EXPECT_EQ(bracedValue(u""_s), u"{}"_s);
    EXPECT_EQ(bracedValue(u"a;b}c{d"_s), u"{a;b}}c{d}"_s);
}

TEST(OdbcLinks, MarkTheConnectionAsLostByTheGivenTest) {
    OdbcLink link(u"Driver=SQLite3;Database=:memory:"_s, {}, {});
    link.setLossTest([](const Error& error) { return error.description.contains(u"gone"_s); });
    const auto fails = [&](const QString& statement) {
        try {
            link.execute(statement);
        } catch (const Error& error) {
            return error;
        }
        return Error{};
    };
    EXPECT_FALSE(fails(u"select here"_s).connectionLost);
    EXPECT_FALSE(link.isLost());
    EXPECT_TRUE(fails(u"select gone"_s).connectionLost);
    EXPECT_TRUE(link.isLost());
    const auto later = fails(u"select 1"_s);
    EXPECT_EQ(later.number, 3709);
    EXPECT_EQ(later.sqlState, u"08003"_s);
    EXPECT_TRUE(later.connectionLost);
}

} // namespace kelvane::testing
