#include "records/reading_table.h"

#include "resources/text_id.h"

#include <gtest/gtest.h>

#include <QHeaderView>
#include <QTableWidget>

#include <memory>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

std::unique_ptr<QTableWidget> tableOf(const QStringList& titles) {
    return std::unique_ptr<QTableWidget>(readingTable(u"TableRecords"_s, TextId::historyRecordsTip, titles));
}

} // namespace

TEST(ReadingTable, CanNotBeEditedAndIsSelectedByRows) {
    const auto table = tableOf({u"Date"_s, u"State"_s});
    EXPECT_EQ(table->objectName(), u"TableRecords"_s);
    EXPECT_EQ(table->accessibleName(), text(TextId::historyRecordsTip));
    EXPECT_EQ(table->columnCount(), 2);
    EXPECT_EQ(table->horizontalHeaderItem(1)->text(), u"State"_s);
    EXPECT_EQ(table->editTriggers(), QAbstractItemView::NoEditTriggers);
    EXPECT_EQ(table->selectionBehavior(), QAbstractItemView::SelectRows);
    EXPECT_FALSE(table->tabKeyNavigation());
    EXPECT_TRUE(table->verticalHeader()->isHidden());
}

TEST(ReadingTable, HasRowsOfALineWhateverTheyHold) {
    const auto table = tableOf({u"Remarks"_s});
    table->setRowCount(1);
    table->setItem(0, 0, new QTableWidgetItem(u"of\nthree\nlines"_s));
    const int line = table->fontMetrics().height();
    EXPECT_GT(table->rowHeight(0), line);
    EXPECT_LT(table->rowHeight(0), 2 * line);
}

TEST(ReadingTable, FitsItsColumnsUpToAWidth) {
    const auto table = tableOf({u"Short"_s, u"Long"_s});
    table->setRowCount(1);
    table->setItem(0, 1, new QTableWidgetItem(QString(200, u'm')));
    fitColumns(*table, 30);
    const int widest = 30 * table->fontMetrics().averageCharWidth();
    EXPECT_LT(table->columnWidth(0), widest);
    EXPECT_EQ(table->columnWidth(1), widest);
}

} // namespace kelvane::testing
