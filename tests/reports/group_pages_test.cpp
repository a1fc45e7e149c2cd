#include "reports/group_pages.h"

#include "reports/design_unit.h"
#include "tests/reports/report_tools.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

class Pages : public ::testing::Test {
  protected:
    static QJsonObject groupOf(int rows) {
        QJsonArray list;
        for (int row = 1; row <= rows; ++row)
            list << QJsonObject{{u"text"_s, u"row"_s}};
        return {{u"points"_s, list}};
    }

    /// How many pages of 100 mm a group takes.
    static qsizetype countOf(const QByteArray& content, const QJsonObject& group) {
        const auto layout = testing::layoutOf(content);
        FieldValues values({});
        values.setGroup(group);
        PlainTexts plainTexts;
        return GroupPages(layout, group, unitsOfMillimetres(100), values, plainTexts).count();
    }

    testing::OwnFolder folder;
    const QByteArray table = R"({"pageHeader": {"height": 20}, "pageFooter": {"height": 10},
        "tables": [{"rows": "points", "header": {"height": 10}, "row": {"height": 12}}]})";
};

} // namespace

TEST_F(Pages, OfAGroupWithoutAnythingAreOne) {
    EXPECT_EQ(countOf("{}", {}), 1);
    EXPECT_EQ(countOf(table, {}), 1);
    EXPECT_EQ(countOf(table, {{u"points"_s, u"no list"_s}}), 1);
}

TEST_F(Pages, HoldAsManyRowsAsFitBesideHeaderAndFooter) {
    EXPECT_EQ(countOf(table, groupOf(5)), 1);
    EXPECT_EQ(countOf(table, groupOf(6)), 2);
    EXPECT_EQ(countOf(table, groupOf(10)), 2);
    EXPECT_EQ(countOf(table, groupOf(11)), 3);
    EXPECT_EQ(countOf(table, groupOf(201)), 41);
}

TEST_F(Pages, KeepABandTogether) {
    EXPECT_EQ(countOf(R"({"summary": {"height": 60}, "signature": {"height": 40}})", {}), 1);
    EXPECT_EQ(countOf(R"({"summary": {"height": 60}, "signature": {"height": 41}})", {}), 2);
}

TEST_F(Pages, TakeABandThatIsHigherThanAPageMadeSmaller) {
    EXPECT_EQ(countOf(R"({"groupHeader": {"height": 10}, "summary": {"height": 500}})", {}), 2);
    EXPECT_EQ(countOf(R"({"summary": {"height": 500}})", {}), 1);
    EXPECT_EQ(
        countOf(
            R"({"pageHeader": {"height": 500}, "pageFooter": {"height": 500}, "summary": {"height": 500}})",
            {}),
        1);
}

TEST_F(Pages, TakeEmptyRowsWithoutAList) {
    EXPECT_EQ(countOf(R"({"tables": [{"rows": "points", "emptyRows": 3, "row": {"height": 60}}]})", {}), 3);
}

} // namespace kelvane
