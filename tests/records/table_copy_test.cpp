#include "records/table_copy.h"

#include "records/selected_rows.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QStandardItemModel>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class CopiedTable : public ::testing::Test {
  protected:
    CopiedTable() {
        model.setHorizontalHeaderLabels({u"Asset"_s, u"State"_s});
        for (const auto& asset : {u"A"_s, u"B\nb"_s, u"C"_s})
            model.appendRow({new QStandardItem(asset), new QStandardItem(u"=1"_s)});
        table.setModel(&model);
        table.setSelectionBehavior(QAbstractItemView::SelectRows);
    }
    void select(int row) {
        table.selectionModel()->select(model.index(row, 0),
                                       QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }

    QStandardItemModel model;
    QTableView table;
};

TEST_F(CopiedTable, HasTitlesAndTheColumnsInTheirOrder) {
    EXPECT_EQ(copiedRows(model, {0, 1}, {1, 0}), u"State\tAsset\r\n'=1\tA\r\n'=1\t\"B\nb\"\r\n"_s);
}

TEST_F(CopiedTable, IsWhatIsSelectedFromAboveToBelow) {
    QApplication::clipboard()->setText(u"before"_s);
    copySelectedRows(table);
    EXPECT_EQ(QApplication::clipboard()->text(), u"before"_s);
    select(2);
    select(0);
    table.horizontalHeader()->setSectionHidden(1, true);
    EXPECT_EQ(selectedRows(table), (QList<int>{0, 2}));
    copySelectedRows(table);
    EXPECT_EQ(QApplication::clipboard()->text(), u"Asset\r\nA\r\nC\r\n"_s);
}

} // namespace kelvane::testing
