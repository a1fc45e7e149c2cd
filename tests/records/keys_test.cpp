#include "records/keys.h"

#include "testkit/fixtures.h"

#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

namespace kelvane::testing {

TEST(Keys, CarryOutTheirCommandWhereTheFocusIsWithin) {
    ScriptedUserInterface ui;
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    auto* page = new QWidget;
    auto* within = new QLineEdit(page);
    auto* beside = new QLineEdit;
    column->addWidget(page);
    column->addWidget(beside);
    int carriedOut = 0;
    int onPage = 0;
    connectKeys(*page, QKeySequence::Refresh, ui, [&] { ++carriedOut; });
    connectPageKeys(*page, QKeySequence::Find, ui, [&] { ++onPage; });
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    within->setFocus();
    QTest::keyClick(within, Qt::Key_F5);
    EXPECT_EQ(carriedOut, 1);
    beside->setFocus();
    QTest::keyClick(beside, Qt::Key_F5);
    EXPECT_EQ(carriedOut, 1);
    QTest::keyClick(beside, Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(onPage, 1) << "wherever the focus is";
    page->hide();
    QTest::keyClick(beside, Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(onPage, 1);
}

} // namespace kelvane::testing
