#include "data/history/statement_parts.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(StatementParts, HaveTheTextsThatEnginesRead) {
    EXPECT_EQ(sqlDate(QDate(2026, 3, 7)).text(), u"'2026-03-07'"_s);
    EXPECT_EQ(sqlDate(QDate(100, 1, 1)).text(), u"'0100-01-01'"_s);
    EXPECT_EQ(nullsLast(u"cal.c2301").text(), u"case when cal.c2301 is null then 1 else 0 end,cal.c2301"_s);
}

} // namespace kelvane::testing
