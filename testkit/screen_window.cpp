#include "testkit/screen_window.h"

#include <QTest>

#include <gtest/gtest.h>

namespace kelvane::testing {

ScreenWindow::ScreenWindow() : area_(new QMdiArea(&window_)) {
    window_.setCentralWidget(area_);
    window_.resize(665, 551);
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
}

void ScreenWindow::show(std::unique_ptr<ChildWindow> screen) {
    screen_ = screen.release();
    screen_->showIn(*area_);
}

} // namespace kelvane::testing
