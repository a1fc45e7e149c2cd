#include "platform/database/odbc_link.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(UserValue, IsTheBareNameUnlessACharacterNeedsBraces) {
    for (const auto& name : {u"jdoe"_s, u"MT"_s, u"Jürgen"_s, u"o'hara"_s, u"john.doe@site"_s,
                             u"SITE\\jdoe"_s, u"a=b"_s, u"a b"_s, u"(x),?*![y]"_s})
        EXPECT_EQ(userValue(name), name);
}

TEST(UserValue, IsInBracesWhereABareNameWouldBeReadOtherwise) {
    EXPECT_EQ(userValue(u"a;PWD=b"_s), u"{a;PWD=b}"_s);
    EXPECT_EQ(userValue(u"{a"_s), u"{{a}"_s);
    EXPECT_EQ(userValue(u"a}b"_s), u"{a}}b}"_s);
    EXPECT_EQ(userValue(u" a"_s), u"{ a}"_s);
}

TEST(UserValue, WhenEmptyIsInBracesSoThatTheDataSourcesOwnUserDoesNotCount) {
    EXPECT_EQ(userValue(QString()), u"{}"_s);
}

TEST(BracedValue, OfAPasswordDoublesItsClosingBraces) {
    EXPECT_EQ(bracedValue(u"plain"_s), u"{plain}"_s);
    EXPECT_EQ(bracedValue(u"a}b;{c"_s), u"{a}}b;{c}"_s);
    EXPECT_EQ(bracedValue(QString()), u"{}"_s);
}

} // namespace kelvane::testing
