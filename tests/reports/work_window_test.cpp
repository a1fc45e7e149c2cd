#include "reports/work_window.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(WorkWindow, CanBeEndedByItsButtonByEscapeAndByClosing) {
    for (int way = 0; way < 3; ++way) {
        WorkWindow window(u"Save"_s, 20, true, nullptr);
        window.show();
        EXPECT_EQ(window.windowTitle(), u"Save"_s);
        EXPECT_EQ(window.maximum(), 20);
        EXPECT_FALSE(window.wasCanceled());
        if (way == 0)
            window.findChild<QPushButton*>()->click();
        else if (way == 1)
            QTest::keyClick(&window, Qt::Key_Escape);
        else
            window.close();
        EXPECT_TRUE(window.wasCanceled()) << way;
    }
}

TEST(WorkWindow, ThatCanNotBeEndedStays) {
    WorkWindow window(u"Paper"_s, 20, false, nullptr);
    window.show();
    EXPECT_EQ(window.findChild<QPushButton*>(), nullptr);
    QTest::keyClick(&window, Qt::Key_Escape);
    window.close();
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(window.wasCanceled());
}

} // namespace kelvane::testing
