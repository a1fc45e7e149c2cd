#include "data/history/instrument_keys.h"

#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(InstrumentKeys, AreGivenBackInTheirOrder) {
    const QString entries[][2] = {{u"1301"_s, u"TW-101"_s},
                                  {QString(), u"without a key"_s},
                                  {u"key  "_s, u"größe-µ 日本 \U0001F527"_s},
                                  {u"1302"_s, QString()},
                                  {u"1303"_s, u"TW-103"_s}};
    InstrumentKeys keys;
    EXPECT_EQ(keys.size(), 0);
    for (const auto& entry : entries)
        keys.append(entry[0], entry[1]);
    ASSERT_EQ(keys.size(), 5);
    for (const qsizetype place : {4, 0, 3, 1, 2}) {
        EXPECT_EQ(keys.mtag(place), entries[place][0]) << place;
        EXPECT_EQ(keys.asset(place), entries[place][1]) << place;
    }
}

} // namespace kelvane::testing
