#include "tests/database/databases.h"
#include "tests/database/shared_scripts.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// A site's database on the server.
class SharedDemonstration : public SharedScripts {
  protected:
    QString site() {
        auto name = newName();
        EXPECT_EQ(run(u"make.sh"_s, {address(name)}).output, QString());
        return name;
    }
    void expectRefused(const QString& words) {
        const auto before = databases();
        const auto roles =
            u"select string_agg(format('%s %s', rolname, member), ' ' order by rolname, member) from "
            "pg_roles left join pg_auth_members on roleid = pg_roles.oid"_s;
        const auto known = answer(u"postgres"_s, roles);
        const auto outcome = run(u"make.sh"_s, {address(newName()), u"--demo"_s});
        EXPECT_EQ(outcome.code, 1);
        EXPECT_EQ(outcome.output, u"make.sh: "_s + words + u"; nothing was changed\n"_s);
        EXPECT_EQ(databases(), before);
        EXPECT_EQ(answer(u"postgres"_s, roles), known);
    }
};

} // namespace

TEST_F(SharedDemonstration, IsRefusedBesideADatabaseThatHoldsNone) {
    const auto other =
        u"the server has the database \"%1\", which lacks the demonstration's users, or is none of yours: "
        "everybody who knows their password could open it"_s;
    const auto empty = site();
    expectRefused(other.arg(empty));
    answer(empty, u"insert into mt.userlist values ('jdoe', 'MT', 1)"_s);
    expectRefused(other.arg(empty));
    answer(u"postgres"_s, u"drop database %1 with (force)"_s.arg(empty));
    // Where the users can't be read.
    const auto closed = demo();
    answer(closed, u"alter table mt.userlist rename to hidden"_s);
    expectRefused(other.arg(closed));
}

TEST_F(SharedDemonstration, IsRefusedWhereALoginOfItsNameIsSomethingElse) {
    demo();
    answer(u"postgres"_s,
           u"comment on role fokafor is null; comment on role gpetrov is 'of the mail server'"_s);
    expectRefused(u"the server has roles with names of the demonstration's logins: fokafor, gpetrov"_s);
    answer(u"postgres"_s, u"comment on role fokafor is 'Kelvane'; comment on role gpetrov is 'Kelvane'"_s);
    const auto name = newName();
    EXPECT_EQ(run(u"make.sh"_s, {address(name), u"--demo"_s}).output, QString()) << "beside another one";
    EXPECT_EQ(run(u"check.sh"_s, {address(name)}).code, 0);
}

TEST_F(SharedDemonstration, ADatabaseThatIsThereIsUpgradedBesideAnyOther) {
    const auto name = demo();
    site();
    const auto outcome = run(u"make.sh"_s, {address(name), u"--demo"_s});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.output.endsWith(u"its data is left as it is\n"_s)) << outcome.output.toStdString();
}

} // namespace kelvane::testing
