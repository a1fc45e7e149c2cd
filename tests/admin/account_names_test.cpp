#include "admin/accounts.h"
#include "tests/admin/admin_program.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// Names that a statement, a pattern or a message could take for something else.
const QStringList oddNames{u"O'Brien"_s, u"Łukasz 🔧"_s, u"%1 %n"_s, u"a\"b'); --"_s, u"{braces};x=1"_s};

} // namespace

TEST(AccountNames, TheOwnerOfTheDatabaseIsKnownInAnyCase) {
    EXPECT_TRUE(admin::isDatabaseOwner(u"mt"_s));
    EXPECT_TRUE(admin::isDatabaseOwner(u"MT"_s));
    EXPECT_FALSE(admin::isDatabaseOwner(u"mtx"_s));
}

using OddAccountNames = AdminOnDatabase;

TEST_F(OddAccountNames, AreKeptAsTheyAre) {
    for (const auto& name : oddNames) {
        SCOPED_TRACE(name.toStdString());
        expectDone(run(u"account"_s, {name, u"--owner=MT"_s, u"--level=1"_s}, "first\n"));
        EXPECT_EQ(listed(name), name + u" MT 1 yes"_s);
        expectDone(run(u"level"_s, {name, u"4"_s}));
        expectDone(run(u"password"_s, {name}, "second\n"));
        EXPECT_TRUE(takesLogin(name, u"second"_s));
        expectDone(run(u"remove"_s, {name}));
        EXPECT_EQ(listed(name), QString());
    }
    EXPECT_EQ(valueOf(u"select count(*) from accounts"_s), u"10"_s);
}

TEST_F(OddAccountNames, NamesThatTheLoginWouldChangeAreRefused) {
    for (const auto& name : {u""_s, u" ann"_s, u"ann "_s, u"a\nb"_s, u"a\tb"_s, u"\x1b[1m"_s})
        expectRefused(run(u"account"_s, {name, u"--owner=MT"_s, u"--level=1"_s}, "secret\n"), 2,
                      u"the name of "_s);
}

TEST_F(OddAccountNames, NoMessageHoldsAPassword) {
    const auto outcome = run(u"account"_s, {u"ann"_s, u"--owner=NOWHERE"_s, u"--level=1"_s}, "geheim\n");
    EXPECT_NE(outcome.code, 0);
    EXPECT_FALSE((outcome.errors + outcome.output).contains(u"geheim"_s));
}

} // namespace kelvane::testing
