#include "ui/wrapping_row.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

namespace kelvane::testing {

TEST(WrappingRow, GoesOnInAFurtherRowWhereThereIsNoRoom) {
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    column->setContentsMargins(0, 0, 0, 0);
    auto* row = new WrappingRow;
    row->setSpacing(5);
    QList<QPushButton*> buttons;
    for (int at = 0; at < 3; ++at) {
        buttons << new QPushButton;
        buttons.last()->setFixedSize(100, 20);
        row->addWidget(buttons.last());
    }
    column->addLayout(row);
    column->addStretch(1);
    window.resize(310, 200);
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_EQ(buttons[2]->pos(), QPoint(210, 0));
    EXPECT_EQ(window.sizeHint().width(), 310);
    EXPECT_EQ(window.minimumSizeHint().width(), 100);
    window.resize(309, 200);
    QCoreApplication::processEvents();
    EXPECT_EQ(buttons[1]->pos(), QPoint(105, 0));
    EXPECT_EQ(buttons[2]->pos(), QPoint(0, 25));
    EXPECT_EQ(row->heightForWidth(100), 70);
    EXPECT_EQ(row->geometry().height(), 45);
}

} // namespace kelvane::testing
