#include "data/history/lookup.h"

#include <gtest/gtest.h>

namespace kelvane::testing {

TEST(Lookup, TellsAnErrorFromNone) {
    const auto failed = lookupOf<int>(std::nullopt);
    EXPECT_TRUE(failed.hasFailed);
    EXPECT_FALSE(failed.found || failed.isAbsent());
    const auto none = lookupOf(std::optional(QList<int>()));
    EXPECT_TRUE(none.isAbsent());
    EXPECT_FALSE(none.found || none.hasFailed);
    const auto found = lookupOf(std::optional(QList<int>{7, 8}));
    EXPECT_EQ(found.found, 7);
    EXPECT_FALSE(found.hasFailed || found.isAbsent());
}

} // namespace kelvane::testing
