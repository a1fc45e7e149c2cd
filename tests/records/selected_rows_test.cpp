#include "records/selected_rows.h"

#include <gtest/gtest.h>

#include <QStandardItemModel>
#include <QTableView>

namespace kelvane::testing {

TEST(SelectedRows, AreEachNamedOnceFromTheTop) {
    QStandardItemModel model(6, 3);
    QTableView view;
    view.setModel(&model);
    EXPECT_EQ(selectedRows(view), QList<int>());
    auto& selection = *view.selectionModel();
    const auto select = [&](int row, int column, int lastRow, int lastColumn) {
        selection.select({model.index(row, column), model.index(lastRow, lastColumn)},
                         QItemSelectionModel::Select);
    };
    select(4, 0, 5, 2);
    select(1, 0, 1, 0);
    select(1, 2, 2, 2);
    EXPECT_EQ(selectedRows(view), (QList<int>{1, 2, 4, 5}));
    view.selectAll();
    EXPECT_EQ(selectedRows(view).size(), 6);
    for (const auto& rows : {QList<int>{0, 2, 3, 5}, {1}, {}}) {
        selectRows(view, rows);
        EXPECT_EQ(selectedRows(view), rows);
    }
    EXPECT_FALSE(selection.hasSelection());
}

TEST(SelectedRows, LetTheCurrentRowBeOpenedOnlyWhileNoneIsSelected) {
    QStandardItemModel model(3, 2);
    QTableView view;
    view.setModel(&model);
    EXPECT_EQ(rowToOpen(view), std::nullopt);
    view.selectionModel()->setCurrentIndex(model.index(2, 0), QItemSelectionModel::NoUpdate);
    EXPECT_EQ(rowToOpen(view), 2);
    selectRows(view, {1});
    EXPECT_EQ(rowToOpen(view), 1);
    selectRows(view, {0, 1});
    EXPECT_EQ(rowToOpen(view), std::nullopt);
}

} // namespace kelvane::testing
