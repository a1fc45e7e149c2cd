#include "reports/report_data.h"

#include "testkit/sheets.h"
#include "tests/reports/report_tools.h"

using namespace Qt::StringLiterals;

namespace kelvane {

TEST(ReportData, GivesItsGroupsBackInTheirOrder) {
    ReportData data;
    EXPECT_EQ(data.groupCount(), 0);
    data.add(testing::sheetOf(u"PT-1"_s, 21));
    data.add(testing::sheetOf(u"Ω <&> \"2\""_s, 0));
    ASSERT_EQ(data.groupCount(), 2);
    EXPECT_EQ(data.group(0), testing::sheetOf(u"PT-1"_s, 21));
    EXPECT_EQ(data.group(1), testing::sheetOf(u"Ω <&> \"2\""_s, 0));
}

} // namespace kelvane
