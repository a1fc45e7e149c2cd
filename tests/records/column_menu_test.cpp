#include "records/column_menu.h"

#include "testkit/fixtures.h"

#include <QHeaderView>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class ColumnsOfATable : public ::testing::Test {
  protected:
    ColumnsOfATable() {
        model.setHorizontalHeaderLabels({u"Asset"_s, u"Ins & Outs"_s, u"Due"_s});
        table.setModel(&model);
        header().setSortIndicator(0, Qt::AscendingOrder);
    }

    QHeaderView& header() { return *table.horizontalHeader(); }
    /// The menu as it is when it opens.
    QList<QAction*> entries() {
        menu.popup(QPoint(0, 0));
        menu.hide();
        return menu.actions();
    }
    QList<QAction*> orders() {
        entries();
        return menu.findChild<QMenu*>(u"MenuSortBy"_s)->actions();
    }

    QStandardItemModel model{1, 3};
    QTableView table;
    QStringList sorted;
    ColumnMenu menu{header(),
                    {[](int column) { return column != 1; },
                     [this](int column, bool isDescending) {
                         sorted << QString::number(column) + (isDescending ? u" down"_s : u" up"_s);
                     }},
                    nullptr};
};

TEST_F(ColumnsOfATable, AreListedAsTheyStandAndCanBeHidden) {
    header().moveSection(2, 0);
    EXPECT_EQ(entries()[0]->text(), u"Due"_s);
    EXPECT_EQ(entries()[2]->text(), u"Ins && Outs"_s) << "no mnemonic";
    entries()[1]->trigger();
    EXPECT_TRUE(header().isSectionHidden(0));
    entries()[1]->trigger();
    EXPECT_FALSE(header().isSectionHidden(0));
}

TEST_F(ColumnsOfATable, KeepTheLastOne) {
    entries()[0]->trigger();
    entries()[1]->trigger();
    EXPECT_FALSE(entries()[2]->isEnabled());
    EXPECT_TRUE(entries()[0]->isEnabled());
}

TEST_F(ColumnsOfATable, AreOfferedForTheOrderWhereThatIsPossible) {
    ASSERT_EQ(orders().size(), 4) << "two, a line, and the direction";
    EXPECT_TRUE(orders()[0]->isChecked());
    orders()[1]->trigger();
    orders()[3]->trigger();
    EXPECT_EQ(sorted, (QStringList{u"2 up"_s, u"0 down"_s}));
}

} // namespace kelvane::testing
