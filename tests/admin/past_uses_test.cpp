#include "data/history/standard_use.h"

#include "tests/admin/past_database.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using PastUses = PastDatabase;

TEST_F(PastUses, OfEachStandardAreThoseOfTheTablesSinceEachYear) {
    const auto offered = usedStandards(session);
    ASSERT_TRUE(offered);
    ASSERT_GE(offered->size(), 6);
    qsizetype all = 0;
    for (const auto& standard : *offered) {
        SCOPED_TRACE(standard.asset.toStdString());
        const auto stored =
            rows(u"select i4204,i4206 from mt.inventory where i4201 = '%1'"_s.arg(standard.asset), 2)
                .value(0);
        EXPECT_EQ(standard.description + u'|' + standard.serial, stored);
        for (const int years : {0, 1, 2, 3, 4, 5, 6}) {
            const auto since = day.addYears(-years);
            QStringList found;
            const auto uses = usesOfStandard(session, standard.asset, since);
            ASSERT_TRUE(uses);
            for (const auto& use : *uses)
                found << use.asset + u'|' + use.ctag + u'|' + use.date.text;
            found.sort();
            auto expected = rows(
                u"select i.i4201,c.ctag,c.c2301 from mt.calibration c left join mt.inventory i on i.mtag = "
                "c.mtag where c.c2301 >= '%1' and exists (select 1 from mt.standards s where s.ctag = c.ctag "
                "and s.mtag = c.mtag and s.c2430 = (select mtag from mt.inventory where i4201 = '%2'))"_s.arg(
                    since.toString(Qt::ISODate), standard.asset),
                3);
            expected.sort();
            EXPECT_EQ(found, expected) << years;
            all += found.size();
        }
    }
    EXPECT_GT(all, 1000);
}

} // namespace kelvane::testing
