#include "procedures/task_package.h"

#include "platform/database/sql.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class TaskPackageTest : public RecordedSession {
  protected:
    /// What stands between the letter and the user in the insert of such a package.
    QString valuesOf(Definition definition, const QString& value) {
        const auto statement =
            packageInsert(session, {.name = u"P"_s, .definition = definition, .value = value}, u"TAG"_s)
                .text();
        const auto begin = statement.indexOf(u"'PDEF',"_s) + 7;
        return statement.mid(begin, statement.indexOf(u",'jdoe'"_s) - begin);
    }
};

TEST_F(TaskPackageTest, EachDefinitionHasItsLetterColumnAndQuery) {
    session.SessionOwner = u"ABC"_s;
    const struct {
        Definition definition;
        QString letter;
        QString column;
        QString choices;
    } kinds[] = {
        {Definition::assetList, u"A"_s, u""_s, {}},
        {Definition::sql, u"S"_s, u"task_sql"_s, {}},
        {Definition::segregate, u"G"_s, u"segregate"_s, u"select distinct(i4240) from mt.segregate"_s},
        {Definition::description, u"D"_s, u"description"_s, u"select distinct(i4204) from ABC.inventory"_s},
        {Definition::model, u"M"_s, u"model"_s, u"select distinct(i4203) from ABC.inventory"_s},
    };
    ASSERT_EQ(std::size(kinds), definitionKinds().size());
    for (const auto& expected : kinds) {
        const auto& kind = kindOf(expected.definition);
        EXPECT_EQ(kind.definition, expected.definition);
        EXPECT_EQ(kind.letter, expected.letter);
        EXPECT_EQ(kind.column, expected.column);
        EXPECT_EQ(kind.choices ? kind.choices(session).text() : QString(), expected.choices);
        EXPECT_EQ(hasValues(expected.definition), !expected.choices.isEmpty());
    }
}

TEST_F(TaskPackageTest, TheDescriptionOptionReportsUnderTheNameOfTheModelOption) {
    EXPECT_EQ(kindOf(Definition::segregate).click, u"OptionSegregate-Click"_s);
    EXPECT_EQ(kindOf(Definition::description).click, u"OptionModel-Click"_s);
    EXPECT_EQ(kindOf(Definition::model).click, u"OptionModel-Click"_s);
}

TEST_F(TaskPackageTest, TheValueGoesIntoTheColumnOfItsDefinition) {
    EXPECT_EQ(valuesOf(Definition::assetList, {}), u"'A',NULL,NULL,NULL,NULL"_s);
    EXPECT_EQ(valuesOf(Definition::sql, u"v"_s), u"'S','v',NULL,NULL,NULL"_s);
    EXPECT_EQ(valuesOf(Definition::segregate, u"v"_s), u"'G',NULL,'v',NULL,NULL"_s);
    EXPECT_EQ(valuesOf(Definition::model, u"v"_s), u"'M',NULL,NULL,'v',NULL"_s);
    EXPECT_EQ(valuesOf(Definition::description, u"v"_s), u"'D',NULL,NULL,NULL,'v'"_s);
}

TEST_F(TaskPackageTest, TheInsertIsExact) {
    EXPECT_EQ(
        packageInsert(session,
                      {.name = u"O'B"_s,
                       .definition = Definition::sql,
                       .value = u"select i4201 from MT.inventory where i4204 = 'X'"_s,
                       .notes = u"It's\r\nso"_s},
                      u"TAG30"_s)
            .text(),
        u"insert into mt.hvm_kv_task_packages (taskname,tptag,tptype,tp_definition,task_sql,segregate,"
        "model,description,mtuser,created_on,notes) values ('O''B','TAG30','PDEF','S','select i4201 from "
        "MT.inventory where i4204 = ''X''',NULL,NULL,NULL,'jdoe',now(*),'It''s\r\nso');commit"_s);
    EXPECT_TRUE(packageInsert(session, {.name = u"P"_s}, u"T"_s).text().endsWith(u",now(*),NULL);commit"_s));
}

TEST_F(TaskPackageTest, ADeletionTakesTheListThroughTheOldTagFirst) {
    QStringList texts;
    for (const auto& statement : packageDeletes(u"O'B"_s))
        texts << statement.text();
    EXPECT_EQ(texts, (QStringList{u"delete from mt.hvm_kv_task_assets where tptag = (select tptag from "
                                  "mt.hvm_kv_task_packages where taskname = 'O''B');commit"_s,
                                  u"delete from mt.hvm_kv_task_packages where taskname = 'O''B';commit"_s}));
}

TEST_F(TaskPackageTest, AnInstrumentOfTheListGoesInAsItStands) {
    EXPECT_EQ(
        assetInsert(session, u"TAG"_s, u"a''1"_s).text(),
        u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('TAG',(select mtag from MT.inventory where "
        "i4201 = 'a''1'));commit"_s);
}

} // namespace kelvane::testing
