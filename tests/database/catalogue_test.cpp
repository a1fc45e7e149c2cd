#include "tests/database/databases.h"

#include <QSet>

#include <map>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class Catalogue : public ::testing::Test {
  protected:
    QString domainOf(const QString& column) {
        return valueOf(*connection,
                       u"select domain_name from sys.sysdomain where domain_id = (select max(domain_id) from "
                       "sys.syscolumn where column_name = '"_s +
                           column + u"')"_s);
    }
    DemoDatabase database;
    std::unique_ptr<Connection> connection = database.connect();
};

} // namespace

TEST_F(Catalogue, KnowsTheDomainsOfTheServer) {
    EXPECT_EQ(queryRows(*connection, u"select domain_name from sys.sysdomain order by domain_name"_s),
              (QStringList{u"BINARY"_s, u"CHAR"_s, u"DATE"_s, u"DOUBLE"_s, u"FLOAT"_s, u"INTEGER"_s,
                           u"LONG BINARY"_s, u"LONG VARCHAR"_s, u"NUMERIC"_s, u"SMALLINT"_s, u"TIME"_s,
                           u"TIMESTAMP"_s, u"TINYINT"_s, u"VARCHAR"_s}));
}

TEST_F(Catalogue, HasARowForEveryRealColumnAndForNoOther) {
    QSet<QString> real;
    for (const auto& column : allColumns(*connection))
        real.insert(column.name.toLower());
    ASSERT_GT(real.size(), 100);
    const auto listed = queryRows(*connection, u"select lower(column_name) from sys.syscolumn"_s);
    const QSet<QString> known(listed.begin(), listed.end());
    EXPECT_EQ(known.size(), listed.size());
    EXPECT_EQ((known - real).values().join(u' '), QString());
    EXPECT_EQ((real - known).values().join(u' '), QString());
}

TEST_F(Catalogue, DomainsAgreeWithTheStoredTypes) {
    const std::map<QString, QString> stored{{u"SMALLINT"_s, u"INTEGER"_s}, {u"INTEGER"_s, u"INTEGER"_s},
                                            {u"FLOAT"_s, u"REAL"_s},       {u"DOUBLE"_s, u"REAL"_s},
                                            {u"DATE"_s, u"TEXT"_s},        {u"TIME"_s, u"TEXT"_s},
                                            {u"TIMESTAMP"_s, u"TEXT"_s},   {u"CHAR"_s, u"TEXT"_s},
                                            {u"VARCHAR"_s, u"TEXT"_s},     {u"LONG VARCHAR"_s, u"TEXT"_s}};
    for (const auto& column : allColumns(*connection))
        EXPECT_EQ(stored.at(domainOf(column.name)), column.type.toUpper())
            << column.qualifiedTable().toStdString() << " " << column.name.toStdString();
}

TEST_F(Catalogue, AnswersInAnyLetterCase) {
    for (const auto& name :
         {u"c2301"_s, u"C2301"_s, u"I4230"_s, u"i4230"_s, u"HOLIDAY"_s, u"L2802"_s, u"R3201"_s})
        EXPECT_EQ(domainOf(name), u"DATE"_s) << name.toStdString();
    for (const auto& name : {u"c2303"_s, u"C2303"_s})
        EXPECT_EQ(domainOf(name), u"DATE"_s) << name.toStdString();
    for (const auto& name : {u"c2333"_s, u"C2334"_s})
        EXPECT_EQ(domainOf(name), u"TIME"_s) << name.toStdString();
    for (const auto& name : {u"Created_On"_s, u"ENTERED_DATE"_s})
        EXPECT_EQ(domainOf(name), u"TIMESTAMP"_s) << name.toStdString();
    EXPECT_EQ(domainOf(u"C2302"_s), u"SMALLINT"_s);
    EXPECT_EQ(domainOf(u"C2312"_s), u"FLOAT"_s);
    EXPECT_EQ(domainOf(u"C2326"_s), u"LONG VARCHAR"_s);
    EXPECT_EQ(domainOf(u"C2339"_s), u"CHAR"_s);
}

TEST_F(Catalogue, SaysNothingOfAColumnThatDoesNotExist) {
    for (const auto& name : {u"C2340"_s, u"C9999"_s, u""_s, u"c2301 "_s})
        EXPECT_EQ(queryRows(*connection,
                            u"select domain_id from sys.syscolumn where column_name = '"_s + name + u"'"_s),
                  QStringList())
            << name.toStdString();
}

} // namespace kelvane::testing
