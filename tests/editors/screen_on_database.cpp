#include "tests/editors/screen_on_database.h"

#include <QPushButton>
#include <QTest>

namespace kelvane::testing {

ScreenOnDatabase::ScreenOnDatabase() : area_(new QMdiArea(&window_)) {
    window_.setCentralWidget(area_);
    window_.resize(665, 551);
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
}

void ScreenOnDatabase::show(ChildWindow* screen) {
    form_ = screen;
    form_->showIn(*area_);
}

void ScreenOnDatabase::click(const QString& button) {
    testing::click(control<QPushButton>(*form_, button));
}

} // namespace kelvane::testing
