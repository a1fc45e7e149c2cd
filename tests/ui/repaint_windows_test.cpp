#include "ui/repaint.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace kelvane::testing {

namespace {

class CountingWidget final : public QWidget {
  public:
    using QWidget::QWidget;
    int painted = 0;
    int keys = 0;

  protected:
    void paintEvent(QPaintEvent*) override { ++painted; }
    void keyPressEvent(QKeyEvent*) override { ++keys; }
};

} // namespace

TEST(RepaintWindows, PaintsAWindowAndItsChildrenAndLetsNoInputIn) {
    CountingWidget window;
    CountingWidget child(&window);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QApplication::processEvents();
    window.painted = child.painted = 0;
    QApplication::postEvent(&window, new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier));
    repaintWindows();
    EXPECT_GT(window.painted, 0);
    EXPECT_GT(child.painted, 0);
    EXPECT_EQ(window.keys, 0);
    QApplication::processEvents();
    EXPECT_EQ(window.keys, 1) << "what was pressed meanwhile comes afterwards";
}

TEST(RepaintWindows, LeavesAHiddenWindowHidden) {
    CountingWidget window;
    repaintWindows();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.painted, 0);
}

} // namespace kelvane::testing
