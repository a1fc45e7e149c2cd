#include "tests/support/fixtures.h"
#include "ui/panels.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(Panels, HaveACaptionThatAScreenReaderSays) {
    const std::unique_ptr<QGroupBox> made(panel(u"SSPanel1"_s, 104));
    EXPECT_EQ(made->objectName(), u"SSPanel1"_s);
    EXPECT_EQ(made->title(), u"Calibration"_s);
    EXPECT_EQ(made->accessibleName(), u"Calibration"_s);
}

TEST(Notes, Wrap) {
    const std::unique_ptr<QLabel> made(note(u"Note1"_s, 118));
    EXPECT_TRUE(made->wordWrap());
    EXPECT_EQ(made->textFormat(), Qt::PlainText);
    EXPECT_GT(made->heightForWidth(200), made->heightForWidth(600));
}

TEST(Notes, GrowWithTheirLetters) {
    const std::unique_ptr<QLabel> made(note(u"Note1"_s, 118));
    const int before = made->heightForWidth(200);
    EXPECT_EQ(made->heightForWidth(200), before);
    auto font = made->font();
    font.setPointSizeF(2 * font.pointSizeF());
    made->setFont(font);
    EXPECT_GT(made->heightForWidth(200), before);
}

TEST(TabControls, GiveTheFocusToTheirRowOfTabsAlone) {
    const std::unique_ptr<QTabWidget> made(tabControl(u"SSTab1"_s, 112));
    EXPECT_EQ(made->focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(made->tabBar()->focusPolicy(), Qt::TabFocus);
    EXPECT_EQ(made->tabBar()->accessibleName(), u"Calibration Parameters"_s);
}

TEST(TabControls, ShowTheirCaptionsWholeAndClose) {
    const std::unique_ptr<QTabWidget> made(tabControl(u"SSTab1"_s, 112));
    QTabWidget usual;
    for (auto* tabs : {made.get(), &usual}) {
        for (const int page : {1, 2, 3, 4})
            tabs->addTab(new QWidget, u"A caption of some length "_s + QString::number(page));
    }
    EXPECT_LT(made->tabBar()->sizeHint().width(), usual.tabBar()->sizeHint().width());
    EXPECT_GE(made->minimumSizeHint().width(), made->tabBar()->sizeHint().width());
    made->resize(10, 200);
    made->show();
    const QFontMetrics letters(made->tabBar()->font());
    for (int page = 0; page < made->count(); ++page)
        EXPECT_GT(made->tabBar()->tabRect(page).width(), letters.horizontalAdvance(made->tabText(page)));
}

TEST(TabControls, ChangeTheirPageByKeyboard) {
    const std::unique_ptr<QTabWidget> made(tabControl(u"SSTab1"_s, 112));
    made->addTab(new QWidget, u"One"_s);
    made->addTab(new QWidget, u"Two"_s);
    made->show();
    QTest::keyClick(made->tabBar(), Qt::Key_Right);
    EXPECT_EQ(made->currentIndex(), 1);
}

} // namespace kelvane::testing
