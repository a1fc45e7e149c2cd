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

TEST(ReportData, KeepsTheDrawingsOfEachGroup) {
    ReportData data;
    data.add({});
    data.add({}, {{u"errors"_s, [](QPainter&, const QRectF&) {}}});
    EXPECT_EQ(data.drawings(0).keys(), QStringList());
    EXPECT_EQ(data.drawings(1).keys(), QStringList(u"errors"_s));
}

} // namespace kelvane
