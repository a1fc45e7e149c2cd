#include "platform/database/sql.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane {

TEST(Sql, JoinsItsOwnWordsAndValuesExactly) {
    const auto statement = Sql(u"select c from ") + sqlName(u"ABC"_s) + u".t where a = " + sqlText(u"x y"_s) +
                           u" and n < " + sqlNumber(u"-1.5E+20"_s) + u" and b in (" +
                           sqlCondition(u"select 'a;)' from t where (c)"_s) + u")";
    EXPECT_TRUE(statement.isIntact());
    EXPECT_EQ(
        statement.text(),
        u"select c from ABC.t where a = 'x y' and n < -1.5E+20 and b in (select 'a;)' from t where (c))");
}

TEST(Sql, KeepsATextWhoseQuotesComeInPairs) {
    for (const auto& value : std::initializer_list<QStringView>{u"", u"plain", u"O''Brien", u"''", u"a''''b",
                                                                u"two\r\nlines", u"-- ; )"})
        EXPECT_TRUE(sqlText(value.toString()).isIntact()) << value.toString().toStdString();
}

TEST(Sql, IsNotIntactWhenATextEndsItsOwnQuotes) {
    for (const auto& value : std::initializer_list<QStringView>{u"O'Brien", u"'", u"'''", u"x' or '1'='1",
                                                                u"x'; delete from t --", u"a''b'c"})
        EXPECT_FALSE(sqlText(value.toString()).isIntact()) << value.toString().toStdString();
    EXPECT_FALSE(sqlText(u"a"_s + QChar() + u'b').isIntact());
}

TEST(Sql, TakesANameOnlyWhereItIsOne) {
    for (const auto& name : std::initializer_list<QStringView>{u"MT", u"c2301", u"_x", u"A#1", u"Prüfung"})
        EXPECT_TRUE(sqlName(name.toString()).isIntact()) << name.toString().toStdString();
    for (const auto& name :
         std::initializer_list<QStringView>{u"", u"a b", u"a.b", u"a;b", u"\"a\"", u"a--", u"a)", u"a'"})
        EXPECT_FALSE(sqlName(name.toString()).isIntact()) << name.toString().toStdString();
}

TEST(Sql, TakesANumberOnlyWhereItIsOne) {
    for (const auto& number :
         std::initializer_list<QStringView>{u"0", u"-1", u"+1.5", u".5", u"5.", u"1e3", u"1.5E-20"})
        EXPECT_TRUE(sqlNumber(number.toString()).isIntact()) << number.toString().toStdString();
    for (const auto& number :
         std::initializer_list<QStringView>{u"", u"1,5", u"1 2", u"1;", u"x", u"NULL", u"1e", u"--1", u"1\n"})
        EXPECT_FALSE(sqlNumber(number.toString()).isIntact()) << number.toString().toStdString();
}

TEST(Sql, IsNotIntactWhenAConditionLeavesItsParentheses) {
    for (const auto& condition : std::initializer_list<QStringView>{
             u"'A','B'", u"", u"select i4201 from mt.inventory where (i4203 = 'x')"})
        EXPECT_TRUE(sqlCondition(condition.toString()).isIntact()) << condition.toString().toStdString();
    for (const auto& condition :
         std::initializer_list<QStringView>{u"'A'); delete from t; select (1", u"'A') or (1=1", u"(", u")",
                                            u"'A", u"'A' -- x", u"'A' /* x", u"1;2"})
        EXPECT_FALSE(sqlCondition(condition.toString()).isIntact()) << condition.toString().toStdString();
}

TEST(Sql, IsNotIntactWhenEnginesCouldReadAConditionDifferently) {
    for (const auto& condition : std::initializer_list<QStringView>{
             u"select a from t // '\n); delete from t; commit //'",
             u"select a from t % '\n); delete from t %'",
             u"select a from t where b = E'\\'' ); drop table x; --'",
             u"select a from t where b = '\\' , ') ; x --'", u"('{}'::jsonb)['] … = ']) ; drop table x; --'",
             u"`'`) ; x '`", u"$$'$$) ; x '"})
        EXPECT_FALSE(sqlCondition(condition.toString()).isIntact()) << condition.toString().toStdString();
    for (const auto& condition : std::initializer_list<QStringView>{
             u"select a from t where b like '50%\n' and c % 2 = 0", u"select [a b] from t where c / 2 > 1",
             u"select a from t where b like 'x\\_%' escape '\\'"})
        EXPECT_EQ(sqlCondition(condition.toString()).isIntact(), !condition.contains(u'\n'))
            << condition.toString().toStdString();
}

TEST(Sql, OneValueThatIsNotIntactSpoilsTheWhole) {
    const auto statement = Sql(u"insert into t values (") + sqlText(u"a'b"_s) + u"," + sqlText(u"c"_s) + u")";
    EXPECT_FALSE(statement.isIntact());
}

} // namespace kelvane
