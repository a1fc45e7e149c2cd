#include "platform/database/owner_scopes.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

QString resolve(const QString& statement) {
    const auto sql = tokensOf(statement);
    TextEdits edits;
    resolveOwners({sql.tokens.data(), static_cast<std::size_t>(sql.tokens.size())}, edits);
    return edits.applyTo(statement);
}

} // namespace

TEST(OwnersOfColumns, MeanTheOneOtherOwnerWhoseTableIsAround) {
    struct Case {
        const char* rule;
        QString given;
        QString wanted;
    };
    const Case cases[] = {
        {"the query's own table", u"select a from std.t where abc.t.x = 1"_s,
         u"select a from std.t where std.t.x = 1"_s},
        {"in the select list, before the from clause", u"select abc.t.x from std.t"_s,
         u"select std.t.x from std.t"_s},
        {"the enclosing query's table", u"select (select c from std.k where abc.t.x = std.k.x) from std.t"_s,
         u"select (select c from std.k where std.t.x = std.k.x) from std.t"_s},
        {"two queries further out", u"select (select (select abc.t.x from mt.a) from mt.b) from std.t"_s,
         u"select (select (select std.t.x from mt.a) from mt.b) from std.t"_s},
        {"names compare without case, the owner is written as in the from clause",
         u"select ABC.Inventory.mtag from Std.INVENTORY"_s,
         u"select Std.Inventory.mtag from Std.INVENTORY"_s},
        {"quoted names", u"select \"abc\".[t].x from \"std\".t"_s, u"select \"std\".[t].x from \"std\".t"_s},
        {"a joined table", u"select abc.t.x from mt.a join std.t on abc.t.x = mt.a.x"_s,
         u"select std.t.x from mt.a join std.t on std.t.x = mt.a.x"_s},
        {"a table after a comma", u"select abc.t.x from mt.a, mt.b , std.t where 1"_s,
         u"select std.t.x from mt.a, mt.b , std.t where 1"_s},
        {"a table after a join's condition and a comma",
         u"select abc.t.x from mt.a join mt.b on f(1, 2) = 2, std.t"_s,
         u"select std.t.x from mt.a join mt.b on f(1, 2) = 2, std.t"_s},
        {"tables in parentheses", u"select abc.t.x from (mt.a join std.t on 1)"_s,
         u"select std.t.x from (mt.a join std.t on 1)"_s},
        {"a query in a join's condition sees the tables joined",
         u"select 1 from std.t join mt.a on mt.a.x = (select max(y) from mt.b where abc.t.x = 1)"_s,
         u"select 1 from std.t join mt.a on mt.a.x = (select max(y) from mt.b where std.t.x = 1)"_s},
        {"an update's table", u"update std.t set x = abc.t.x where abc.t.y = 1"_s,
         u"update std.t set x = std.t.x where std.t.y = 1"_s},
        {"a delete's table", u"delete from std.t where abc.t.y in (select abc.t.z from mt.a)"_s,
         u"delete from std.t where std.t.y in (select std.t.z from mt.a)"_s},
        {"a condition after group and order", u"select 1 from std.t group by abc.t.x order by abc.t.y"_s,
         u"select 1 from std.t group by std.t.x order by std.t.y"_s},
        {"the same other owner twice is one", u"select (select abc.t.x from std.t) from std.t"_s,
         u"select (select std.t.x from std.t) from std.t"_s},
        {"in an insert's query", u"insert into mt.a (x) values ((select abc.t.x from std.t))"_s,
         u"insert into mt.a (x) values ((select std.t.x from std.t))"_s},
    };
    for (const auto& testCase : cases)
        EXPECT_EQ(resolve(testCase.given), testCase.wanted) << testCase.rule;
}

TEST(OwnersOfColumns, StayAsTheyAre) {
    struct Case {
        const char* rule;
        QString statement;
    };
    const Case cases[] = {
        {"no column of an owner", u"select x from std.t"_s},
        {"the owner's table is there", u"select abc.t.x from abc.t"_s},
        {"the owner's table is there in other letter case", u"select ABC.T.x from abc.t"_s},
        {"the owner's table is there beside the other's", u"select abc.t.x from std.t, abc.t"_s},
        {"the owner's table is in the enclosing query", u"select (select abc.t.x from std.t) from abc.t"_s},
        {"two other owners", u"select abc.t.x from std.t, mt.t"_s},
        {"two other owners in two queries", u"select (select abc.t.x from std.t) from mt.t"_s},
        {"another table", u"select abc.t.x from std.k"_s},
        {"a sibling query's table", u"select (select 1 from std.t), (select abc.t.x from mt.a) from mt.b"_s},
        {"an inner query's table", u"select abc.t.x from mt.a where y in (select 1 from std.t)"_s},
        {"a table beside the query in the from clause", u"select 1 from std.t, (select abc.t.x from mt.a)"_s},
        {"the other half of a union", u"select x from std.t union select abc.t.x from mt.a"_s},
        {"a table with an alias", u"select abc.t.x from std.t s"_s},
        {"a table with an alias behind as", u"select abc.t.x from std.t as s where 1"_s},
        {"the owner's own table under an alias", u"select abc.t.x from std.t, abc.t a"_s},
        {"a table without owner", u"select abc.t.x from t"_s},
        {"within a text", u"select 'abc.t.x' from std.t"_s},
        {"an insert's target is not read from", u"insert into std.t (x) select abc.t.x from mt.a"_s},
        {"closing parentheses without opening ones", u") select abc.t.x from mt.a )))"_s},
        {"an unfinished name", u"select abc.t. from std.t"_s},
        {"dots alone", u"a . . . b"_s},
        {"nothing", u""_s},
    };
    for (const auto& testCase : cases)
        EXPECT_EQ(resolve(testCase.statement), testCase.statement) << testCase.rule;
}

TEST(OwnersOfColumns, TheStandardsQueryOfAGroupOwnerReadsTheStandardsOwnRows) {
    EXPECT_EQ(
        resolve(
            u"select i4209,(select c2303 from STD.calibration where c2339 = 1 and STD.calibration.mtag = "
            "ABC.inventory.mtag),(select c2334 from STD.calibration where c2339 = 1 and "
            "STD.calibration.mtag = ABC.inventory.mtag),(select i4209 trace from ABC.inventory where i4201 = "
            "'T-1'),(select allow_ooc_stds from mt.hvm_kv_sysconfig),(select allow_poor_trace_stds from "
            "mt.hvm_kv_sysconfig) from STD.inventory where i4201 = 'S-1'"_s),
        u"select i4209,(select c2303 from STD.calibration where c2339 = 1 and STD.calibration.mtag = "
        "STD.inventory.mtag),(select c2334 from STD.calibration where c2339 = 1 and "
        "STD.calibration.mtag = STD.inventory.mtag),(select i4209 trace from ABC.inventory where i4201 = "
        "'T-1'),(select allow_ooc_stds from mt.hvm_kv_sysconfig),(select allow_poor_trace_stds from "
        "mt.hvm_kv_sysconfig) from STD.inventory where i4201 = 'S-1'"_s);
}

} // namespace kelvane::testing
