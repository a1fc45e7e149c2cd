#include "platform/database/embedded_dialect.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "tests/platform/database/small_database.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// A batch's steps in one line: statements joined by " ; ", a committed step in brackets.
QString stepsOf(const QString& batch) {
    QStringList steps;
    for (const auto& step : embeddedBatch(batch)) {
        const auto inner = step.statements.join(u" ; "_s);
        steps << (step.committed ? u'[' + inner + u']' : inner);
    }
    return steps.join(u" then "_s);
}

} // namespace

TEST(EmbeddedBatch, IsCutIntoSteps) {
    struct Case {
        const char* rule;
        QString given;
        QString wanted;
    };
    const Case cases[] = {
        {"one statement", u"delete from t"_s, u"delete from t"_s},
        {"one statement and commit", u"delete from t;commit"_s, u"[delete from t]"_s},
        {"commit in other letter case, with blanks", u"delete from t ; COMMIT ; "_s, u"[delete from t]"_s},
        {"two and commit", u"delete from t;delete from k;commit"_s, u"[delete from t ; delete from k]"_s},
        {"two without commit", u"delete from t;delete from k"_s, u"delete from t ; delete from k"_s},
        {"commit in the middle", u"a;commit;b"_s, u"[a] then b"_s},
        {"two commits", u"a;b;commit;c;commit"_s, u"[a ; b] then [c]"_s},
        {"commit alone", u"commit"_s, u"[]"_s},
        {"a table of that name is no commit", u"delete from commit"_s, u"delete from commit"_s},
        {"empty statements", u";;a;;"_s, u"a"_s},
        {"semicolon and commit in a text", u"insert into t values ('a;commit');commit"_s,
         u"[insert into t values ('a;commit')]"_s},
        {"comments", u"/* why */ delete /* ? */ from t -- all; of it\n;commit -- done"_s,
         u"[delete   from t]"_s},
        {"a comment within a function", u"delete from t where a < now(/* then */ *) - 30;commit"_s,
         u"[delete from t where a < datetime('now','localtime','-30 days')]"_s},
        {"an unclosed quote is passed on whole", u"update t set x = 'its;commit"_s,
         u"update t set x = 'its;commit"_s},
    };
    for (const auto& testCase : cases)
        EXPECT_EQ(stepsOf(testCase.given), testCase.wanted) << testCase.rule;
}

TEST(EmbeddedBatch, WithoutAStatementIsAnError) {
    for (const auto& batch : {u""_s, u"  "_s, u";;"_s, u"-- nothing"_s, u"/* nothing */;"_s}) {
        const auto inBatch = errorOf([&] { embeddedBatch(batch); });
        ASSERT_TRUE(inBatch) << batch.toStdString();
        EXPECT_EQ(inBatch->description, text(TextId::statementEmpty));
        EXPECT_TRUE(errorOf([&] { embeddedQuery(batch, Rows::all); })) << batch.toStdString();
    }
}

TEST(EmbeddedDialect, Functions) {
    struct Case {
        const char* rule;
        QString given;
        QString wanted;
    };
    const Case cases[] = {
        {"the present moment", u"values ('x',now(*),'y')"_s,
         u"values ('x',datetime('now','localtime'),'y')"_s},
        {"in any letter case, with blanks", u"select NOW ( * )"_s, u"select datetime('now','localtime')"_s},
        {"days back", u"where d < now(*) - 90"_s, u"where d < datetime('now','localtime','-90 days')"_s},
        {"days back without blanks", u"where d < now(*)-30 or 1"_s,
         u"where d < datetime('now','localtime','-30 days') or 1"_s},
        {"days on", u"now(*) + 7"_s, u"datetime('now','localtime','+7 days')"_s},
        {"several numbers of days", u"now(*) + 7 - 2.5"_s,
         u"datetime('now','localtime','+7 days','-2.5 days')"_s},
        {"a product is no number of days", u"now(*) - 2 * x"_s, u"datetime('now','localtime') - 2 * x"_s},
        {"a column is no number of days", u"now(*) - x"_s, u"datetime('now','localtime') - x"_s},
        {"an exponent is no number of days", u"now(*) - 1e2"_s, u"datetime('now','localtime') - 1e2"_s},
        {"a number run together with a text is none", u"now(*) - 1 || 'x'"_s,
         u"datetime('now','localtime') - 1 || 'x'"_s},
        {"today", u"select date(now(*))"_s, u"select date('now','localtime')"_s},
        {"days before today", u"d = date( now(*) ) - 1 and 1"_s,
         u"d = date('now','localtime','-1 days') and 1"_s},
        {"the day of an earlier moment", u"date(now(*) - 1)"_s,
         u"date(datetime('now','localtime','-1 days'))"_s},
        {"the day of a column", u"date(c2301)"_s, u"date(c2301)"_s},
        {"the place of a part", u"select sum(locate(tracecodes,(select Locate('x','y'))))"_s,
         u"select sum(instr(tracecodes,(select instr('x','y'))))"_s},
        {"the value instead of a null", u"isnull(a,'')"_s, u"coalesce(a,'')"_s},
        {"the test for null", u"where a isnull and b notnull"_s, u"where a isnull and b notnull"_s},
        {"columns of these names", u"select now, locate, isnull, t.now, t.locate(x)"_s,
         u"select now, locate, isnull, t.now, t.locate(x)"_s},
        {"another call of that name", u"select now(1), now()"_s, u"select now(1), now()"_s},
        {"inside texts", u"'now(*)' \"now(*)\" [locate(a,b)]"_s, u"'now(*)' \"now(*)\" [locate(a,b)]"_s},
        {"inside comments", u"a /* now(*) */"_s, u"a"_s},
        {"at the very end", u"x = now(*)"_s, u"x = datetime('now','localtime')"_s},
        {"broken off", u"x = now(*"_s, u"x = now(*"_s},
        {"broken off after a sign", u"x = now(*) -"_s, u"x = datetime('now','localtime') -"_s},
    };
    for (const auto& testCase : cases)
        EXPECT_EQ(stepsOf(testCase.given), testCase.wanted) << testCase.rule;
}

TEST(EmbeddedDialect, NothingOfInterestIsPassedOnAsTheSameText) {
    const auto statement = u"select i4201 from mt.inventory where mtag = '17'"_s;
    EXPECT_EQ(embeddedBatch(statement).constFirst().statements.constFirst().constData(),
              statement.constData());
    EXPECT_EQ(embeddedQuery(statement, Rows::all).constData(), statement.constData());
}

TEST(EmbeddedQuery, OfTheFirstRowGetsALimit) {
    struct Case {
        const char* rule;
        QString given;
        QString wanted;
    };
    const Case cases[] = {
        {"a plain query", u"select a from t"_s, u"select a from t limit 1"_s},
        {"before blanks, semicolon and comment", u" select a from t ; -- x"_s, u"select a from t limit 1"_s},
        {"behind a commit that says nothing", u"select a from t;commit"_s, u"select a from t limit 1"_s},
        {"an inner limit is not its own", u"select a from (select b from k limit 5)"_s,
         u"select a from (select b from k limit 5) limit 1"_s},
        {"behind an order", u"select a from t order by b desc"_s,
         u"select a from t order by b desc limit 1"_s},
        {"a union as a whole", u"select a from t union select b from k"_s,
         u"select a from t union select b from k limit 1"_s},
        {"its own limit", u"select a from t LIMIT 5"_s, u"select a from t LIMIT 5"_s},
        {"a text of that name", u"select 'limit'"_s, u"select 'limit' limit 1"_s},
        {"no select", u"values (1)"_s, u"values (1)"_s},
        {"a query with names of its own", u"with x as (select 1) select * from x"_s,
         u"with x as (select 1) select * from x"_s},
        {"an open parenthesis", u"select (a from t"_s, u"select (a from t"_s},
        {"an unclosed quote", u"select 'a from t"_s, u"select 'a from t"_s},
        {"several statements", u"select a; select b"_s, u"select a; select b"_s},
        {"with the dialect's words", u"select isnull(a,now(*)) from t"_s,
         u"select coalesce(a,datetime('now','localtime')) from t limit 1"_s},
    };
    for (const auto& testCase : cases)
        EXPECT_EQ(embeddedQuery(testCase.given, Rows::first), testCase.wanted) << testCase.rule;
}

TEST(EmbeddedQuery, OfAllRowsGetsNone) {
    EXPECT_EQ(embeddedQuery(u"select a from t;commit"_s, Rows::all), u"select a from t"_s);
}

} // namespace kelvane::testing
