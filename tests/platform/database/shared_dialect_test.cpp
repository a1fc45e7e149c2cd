#include "platform/database/shared_dialect.h"

#include "platform/database/dialect.h"
#include "platform/database/permissions.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "tests/platform/database/refusals.h"
#include "tests/platform/database/small_database.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

struct Case {
    const char* rule;
    QString given;
    QString wanted;
};

/// The statements of a batch that is one step.
QString wordsOf(const QString& batch) {
    const auto steps = sharedBatch(batch);
    EXPECT_EQ(steps.size(), 1) << batch.toStdString();
    return steps.value(0).statements.join(u" ; "_s);
}

} // namespace

TEST(SharedDialect, HasItsOwnWordsForWhatTheDatabaseCantGive) {
    const Case cases[] = {
        {"the present moment", u"insert into mt.a values (now(*))"_s,
         u"insert into mt.a values (present_moment())"_s},
        {"days from it are the database's affair", u"delete from mt.a where d < now(*) - 90;commit"_s,
         u"delete from mt.a where d < present_moment() - 90"_s},
        {"today", u"delete from mt.a where d < DATE ( NOW ( * ) ) + 1"_s,
         u"delete from mt.a where d < DATE ( present_moment() ) + 1"_s},
        {"another function of that name", u"delete from mt.a where d < now()"_s,
         u"delete from mt.a where d < now()"_s},
        {"a column of that name", u"delete from mt.a where a.now = 1"_s,
         u"delete from mt.a where a.now = 1"_s},
        {"a pattern, without notice of case", u"delete from mt.a where b like 'x%' and not (c LIKE d)"_s,
         u"delete from mt.a where b ilike 'x%' and not (c ilike d)"_s},
        {"a backslash is nothing special in a pattern", u"delete from mt.a where b like 'x\\%'"_s,
         u"delete from mt.a where b ilike 'x\\%' escape ''"_s},
        {"but where the text says so", u"delete from mt.a where b like 'x\\%' escape '\\'"_s,
         u"delete from mt.a where b ilike 'x\\%' escape '\\'"_s},
        {"a text with the words", u"update mt.a set b = 'now(*) like'"_s,
         u"update mt.a set b = 'now(*) like'"_s},
        {"the database's own functions", u"update mt.a set b = isnull(locate(c,'x'),0)"_s,
         u"update mt.a set b = isnull(locate(c,'x'),0)"_s},
        {"owners", u"delete from std.a where exists (select 1 from abc.b where mt.b.c = 1)"_s,
         u"delete from std.a where exists (select 1 from abc.b where abc.b.c = 1)"_s},
        {"comments", u"delete /* ? */ from mt.a -- all"_s, u"delete   from mt.a"_s},
    };
    for (const auto& testCase : cases)
        EXPECT_EQ(wordsOf(testCase.given), testCase.wanted) << testCase.rule;
}

TEST(SharedQuery, HasTheOrderOfTheKeyWhereItAsksForNone) {
    const Case cases[] = {
        {"of the inventory", u"select i4201,mtag from abc.inventory where i4206 = 'x'"_s,
         u"select i4201,mtag from abc.inventory where i4206 = 'x' order by mtag"_s},
        {"of all of it", u"select i4201 from MT.INVENTORY"_s,
         u"select i4201 from MT.INVENTORY order by mtag"_s},
        {"with a query inside", u"select (select count(*) from mt.b) from mt.inventory"_s,
         u"select (select count(*) from mt.b) from mt.inventory order by mtag"_s},
        {"of the messages", u"select pname from mt.hvm_kv_prompts"_s,
         u"select pname from mt.hvm_kv_prompts order by pname"_s},
        {"each value once", u"select distinct(i4203) from mt.inventory"_s,
         u"select distinct(i4203) from mt.inventory order by 1"_s},
        {"its own order", u"select i4201 from mt.inventory order by i4201 desc"_s,
         u"select i4201 from mt.inventory order by i4201 desc"_s},
        {"a table without such an order", u"select mtag from mt.hvm_kv_task_assets"_s,
         u"select mtag from mt.hvm_kv_task_assets"_s},
        {"one row of all", u"select count(i4201) from mt.inventory"_s,
         u"select count(i4201) from mt.inventory"_s},
        {"one row for each group", u"select i4203 from mt.inventory group by i4203"_s,
         u"select i4203 from mt.inventory group by i4203"_s},
        {"several tables", u"select i4201 from mt.inventory,mt.b"_s,
         u"select i4201 from mt.inventory,mt.b"_s},
        {"a table with another name", u"select i.i4201 from mt.inventory i"_s,
         u"select i.i4201 from mt.inventory i"_s},
        {"a union", u"select i4201 from mt.inventory where 1 = 1 union select 'x'"_s,
         u"select i4201 from mt.inventory where 1 = 1 union select 'x'"_s},
        {"no table", u"select 1"_s, u"select 1"_s},
        {"broken off", u"select i4201 from"_s, u"select i4201 from"_s},
        {"no select", u"values (1)"_s, u"values (1)"_s},
    };
    for (const auto& testCase : cases)
        EXPECT_EQ(sharedQuery(testCase.given, Rows::all), testCase.wanted) << testCase.rule;
}

TEST(SharedQuery, FindsNothingThatIsEqualToAnEmptyText) {
    const Case cases[] = {
        {"a column", u"select a from mt.b where c = '' and d = 'x'"_s,
         u"select a from mt.b where c::text = '' and d = 'x'"_s},
        {"a column of an owner's table", u"select a from mt.b where mt.b.c=''"_s,
         u"select a from mt.b where mt.b.c::text=''"_s},
        {"a text that begins with quotes", u"select a from mt.b where c = '''x'"_s,
         u"select a from mt.b where c = '''x'"_s},
        {"broken off", u"select a from mt.b where c ="_s, u"select a from mt.b where c ="_s},
    };
    for (const auto& testCase : cases)
        EXPECT_EQ(sharedQuery(testCase.given, Rows::all), testCase.wanted) << testCase.rule;
    EXPECT_EQ(wordsOf(u"update mt.b set c = '' where d = ''"_s), u"update mt.b set c = '' where d = ''"_s);
}

TEST(SharedQuery, OfTheFirstRowGetsALimitBehindItsOrder) {
    EXPECT_EQ(sharedQuery(u"select mtag from mt.inventory where i4201 = 'a'"_s, Rows::first),
              u"select mtag from mt.inventory where i4201 = 'a' order by mtag limit 1"_s);
    EXPECT_EQ(sharedQuery(u"select a from mt.b"_s, Rows::first), u"select a from mt.b limit 1"_s);
}

TEST(SharedPermissions, RefuseWhatNoRoutineHasAReasonToSend) {
    const Refusal refusals[] = {
        {u"set role postgres"_s, TextId::statementNotAllowed, u"set"_s},
        {u"COPY mt.a to program 'x'"_s, TextId::statementNotAllowed, u"COPY"_s},
        {u"do 'x'"_s, TextId::statementNotAllowed, u"do"_s},
        {u"truncate mt.a"_s, TextId::statementNotAllowed, u"truncate"_s},
        {u"grant all on mt.a to public"_s, TextId::statementNotAllowed, u"grant"_s},
        {u"table pg_authid"_s, TextId::statementNotAllowed, u"table"_s},
        {u"select pg_sleep(100)"_s, TextId::loadExtensionNotAllowed, u"pg_sleep"_s},
        {u"select query_to_xml('delete from mt.a',true,true,'')"_s, TextId::loadExtensionNotAllowed,
         u"query_to_xml"_s},
        {u"select pg_catalog.set_config('a','b',false)"_s, TextId::tableNotAllowed, u"pg_catalog"_s},
        {u"select rolpassword from pg_authid"_s, TextId::tableNotAllowed, u"pg_authid"_s},
        {u"select 1 from pg_catalog.pg_roles"_s, TextId::tableNotAllowed, u"pg_catalog.pg_roles"_s},
        {u"select 1 from information_schema.tables"_s, TextId::tableNotAllowed,
         u"information_schema.tables"_s},
        {u"select 1 from kelvane.upgrades"_s, TextId::tableNotAllowed, u"kelvane.upgrades"_s},
        {u"select kelvane.set_account('x','MT',6)"_s, TextId::tableNotAllowed, u"kelvane"_s},
    };
    expectRefusals(
        refusals, [](const QString& batch) { sharedBatch(batch); },
        [](const QString& query) { sharedQuery(query, Rows::all); });
}

} // namespace kelvane::testing
