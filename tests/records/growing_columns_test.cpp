#include "records/growing_columns.h"

#include "testkit/fixtures.h"

#include <QHeaderView>
#include <QStandardItemModel>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

constexpr int widest = 30; // characters

} // namespace

class ColumnsThatGrow : public ::testing::Test {
  protected:
    ColumnsThatGrow() {
        table.setModel(&model);
        table.show();
        show(u"PT-101"_s);
    }

    void show(const QString& content) { model.setItem(0, 0, new QStandardItem(content)); }
    int width() const { return table.columnWidth(0); }
    int widthOf(const QString& content) const { return table.fontMetrics().horizontalAdvance(content); }

    QStandardItemModel model{1, 2};
    QTableView table;
    GrowingColumns columns{table, widest};
};

TEST_F(ColumnsThatGrow, AreAsWideAsWhatIsInSightNeeds) {
    table.setColumnWidth(0, 500);
    GrowingColumns fresh(table, widest);
    fresh.grow();
    EXPECT_GE(width(), widthOf(u"PT-101"_s));
    EXPECT_LT(width(), 500);
}

TEST_F(ColumnsThatGrow, BecomeWiderAndNeverNarrower) {
    columns.grow();
    const int before = width();
    show(u"WT-PT-1000-PRESSURE"_s);
    columns.grow();
    const int after = width();
    EXPECT_GE(after, widthOf(u"WT-PT-1000-PRESSURE"_s));
    EXPECT_GT(after, before);
    show(u"P"_s);
    columns.grow();
    EXPECT_EQ(width(), after);
    EXPECT_FALSE(columns.areKept());
}

TEST_F(ColumnsThatGrow, HaveRoomForATextThatIsOutOfSight) {
    columns.grow();
    columns.growFor(0, u"WT-PT-1000-PRESSURE"_s);
    const int wide = width();
    show(u"WT-PT-1000-PRESSURE"_s);
    EXPECT_GE(wide, table.sizeHintForIndex(model.index(0, 0)).width()) << "nothing of it is cut off";
}

TEST_F(ColumnsThatGrow, AreNoWiderThanSoManyCharacters) {
    columns.grow();
    columns.growFor(0, QString(4000, u'W'));
    EXPECT_EQ(width(), widest * table.fontMetrics().averageCharWidth());
}

TEST_F(ColumnsThatGrow, StayAsSomebodyHasSetThem) {
    columns.grow();
    table.setColumnWidth(0, 40);
    EXPECT_TRUE(columns.areKept());
    columns.growFor(0, u"WT-PT-1000-PRESSURE"_s);
    columns.grow();
    EXPECT_EQ(width(), 40);
}

TEST_F(ColumnsThatGrow, AreNotSetByHidingAndShowing) {
    columns.grow();
    table.horizontalHeader()->setSectionHidden(0, true);
    columns.growFor(0, u"WT-PT-1000-PRESSURE"_s);
    columns.grow();
    EXPECT_TRUE(table.horizontalHeader()->isSectionHidden(0));
    table.horizontalHeader()->setSectionHidden(0, false);
    EXPECT_FALSE(columns.areKept());
    columns.grow();
    EXPECT_GE(width(), widthOf(u"PT-101"_s));
}

} // namespace kelvane::testing
