#include "platform/database/refused_value.h"

#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(RefusedValue, BelongsToTheColumnInItsPlace) {
    struct Case {
        const char* rule;
        QString statement;
        QString description;
        QString column;
    };
    const Case cases[] = {
        {"one of several", u"insert into mt.a (b,c,d) values ('1','1,000',NULL)"_s,
         u"invalid input syntax for type double precision: \"1,000\""_s, u"c"_s},
        {"the first of equal ones", u"insert into mt.a (b,c) values ('x','x');commit"_s,
         u"invalid input syntax for type integer: \"x\""_s, u"b"_s},
        {"behind a query", u"insert into mt.a (b,c) values ((select d from mt.e where f in ('x','y')),'z')"_s,
         u"value \"z\" is out of range"_s, u"c"_s},
        {"an empty text", u"insert into mt.a (b) values ('')"_s,
         u"invalid input syntax for type date: \"\""_s, u"b"_s},
        {"a text with quotes", u"insert into mt.a (b) values ('it''s')"_s, u"invalid: \"it's\""_s, u"b"_s},
        {"a message without a value", u"insert into mt.a (b) values ('x')"_s, u"permission denied"_s,
         QString()},
        {"another statement", u"update mt.a set b = 'x' where (c = 1)"_s, u"invalid: \"x\""_s, QString()},
        {"an insert of a query", u"insert into mt.a (b) select 'x'"_s, u"invalid: \"x\""_s, QString()},
        {"more values than columns", u"insert into mt.a (b) values ('1','x')"_s, u"invalid: \"x\""_s,
         QString()},
        {"broken off", u"insert into mt.a (b"_s, u"invalid: \"x\""_s, QString()},
        {"an open quote", u"insert into mt.a (b) values ('x"_s, u"invalid: \"x\""_s, QString()},
        {"nothing", QString(), u"invalid: \"x\""_s, QString()},
    };
    for (const auto& testCase : cases)
        EXPECT_EQ(columnOfRefusedValue(testCase.statement, testCase.description), testCase.column)
            << testCase.rule;
}

} // namespace kelvane::testing
