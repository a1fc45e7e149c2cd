#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "ui/panels.h"
#include "ui/style.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QPainter>
#include <QProxyStyle>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(Panels, HaveACaptionThatAScreenReaderSays) {
    const std::unique_ptr<QGroupBox> made(panel(u"SSPanel1"_s, TextId::calibrationMenu));
    EXPECT_EQ(made->objectName(), u"SSPanel1"_s);
    EXPECT_EQ(made->title(), u"Calibration"_s);
    EXPECT_EQ(made->accessibleName(), u"Calibration"_s);
}

TEST(Notes, Wrap) {
    const std::unique_ptr<QLabel> made(note(u"Note1"_s, TextId::internalErrorAdvice));
    EXPECT_TRUE(made->wordWrap());
    EXPECT_EQ(made->textFormat(), Qt::PlainText);
    EXPECT_GT(made->heightForWidth(200), made->heightForWidth(600));
}

TEST(Notes, ThatChangeAreEmptyAtFirstAndCanBeSelected) {
    const std::unique_ptr<QLabel> made(changingNote(u"Note1"_s, TextId::calibrationMenu));
    EXPECT_EQ(made->text(), QString());
    EXPECT_EQ(made->accessibleName(), u"Calibration"_s);
    EXPECT_EQ(made->textFormat(), Qt::PlainText);
    EXPECT_TRUE(made->wordWrap());
    EXPECT_TRUE(made->textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
}

TEST(Notes, TellAScreenReaderTooAndAlarmInBold) {
    QLabel told;
    tell(told, u"lost"_s, true);
    EXPECT_EQ(told.text(), u"lost"_s);
    EXPECT_EQ(told.accessibleName(), u"lost"_s);
    EXPECT_TRUE(told.font().bold());
    tell(told, u"found"_s, false);
    EXPECT_EQ(told.accessibleName(), u"found"_s);
    EXPECT_FALSE(told.font().bold());
}

TEST(Notes, GrowWithTheirFont) {
    const std::unique_ptr<QLabel> made(note(u"Note1"_s, TextId::internalErrorAdvice));
    const int before = made->heightForWidth(200);
    EXPECT_EQ(made->heightForWidth(200), before);
    auto font = made->font();
    font.setPointSizeF(2 * font.pointSizeF());
    made->setFont(font);
    EXPECT_GT(made->heightForWidth(200), before);
}

TEST(TabControls, GiveTheFocusToTheirRowOfTabsAlone) {
    const std::unique_ptr<QTabWidget> made(tabControl(u"SSTab1"_s, TextId::calibrationParameters));
    EXPECT_EQ(made->focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(made->tabBar()->focusPolicy(), Qt::TabFocus);
    EXPECT_EQ(made->tabBar()->accessibleName(), u"Calibration Parameters"_s);
}

TEST(TabControls, ShowTheirCaptionsWholeAndClose) {
    const std::unique_ptr<QTabWidget> made(tabControl(u"SSTab1"_s, TextId::calibrationParameters));
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

namespace {

/// A style of another maker: it keeps much space free beside the captions of tabs, and remembers how much of
/// each caption had no place.
class WideTabs final : public QProxyStyle {
  public:
    WideTabs() : QProxyStyle(u"Fusion"_s) {}
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        return metric == PM_TabBarTabHSpace ? 48 : QProxyStyle::pixelMetric(metric, option, widget);
    }
    void drawItemText(QPainter* painter, const QRect& place, int flags, const QPalette& palette, bool enabled,
                      const QString& text, QPalette::ColorRole role) const override {
        ++drawn;
        missing = qMax(missing, painter->fontMetrics().horizontalAdvance(text) - place.width());
        QProxyStyle::drawItemText(painter, place, flags, palette, enabled, text, role);
    }
    mutable int drawn = 0;
    mutable int missing = 0;
};

} // namespace

TEST(TabControls, ShowTheirCaptionsWholeUnderAStyleWithOtherMeasures) {
    const auto before = QApplication::font();
    for (const int size : {9, 10, 11}) {
        auto* style = new WideTabs;
        QApplication::setStyle(style);
        QApplication::setFont(QFont(before.family(), size));
        const std::unique_ptr<QTabWidget> made(tabControl(u"SSTab1"_s, TextId::calibrationParameters));
        for (const int page : {1, 2, 3, 4})
            made->addTab(new QWidget, u"A caption of some length "_s + QString::number(page));
        made->resize(made->minimumSizeHint());
        made->show();
        QCoreApplication::processEvents();
        made->tabBar()->grab();
        EXPECT_GE(style->drawn, 4) << size;
        EXPECT_LE(style->missing, 0) << size;
        // The row is no wider than the captions need.
        const int caption = made->tabBar()->fontMetrics().horizontalAdvance(made->tabText(0));
        EXPECT_LE(made->tabBar()->tabRect(0).width(), caption + 16) << size;
    }
    QApplication::setFont(before);
    QApplication::setStyle(new Style);
}

TEST(TabControls, PassOverPagesThatCantBeChosen) {
    const std::unique_ptr<QTabWidget> made(tabControl(u"SSTab1"_s, TextId::calibrationParameters));
    for (const int page : {0, 1, 2, 3})
        made->addTab(new QWidget, QString::number(page));
    made->setTabEnabled(1, false);
    made->setTabVisible(3, false);
    changePage(*made, 1);
    EXPECT_EQ(made->currentIndex(), 2);
    changePage(*made, 1);
    EXPECT_EQ(made->currentIndex(), 0);
    changePage(*made, -1);
    EXPECT_EQ(made->currentIndex(), 2);
    changePage(*made, -1);
    EXPECT_EQ(made->currentIndex(), 0);
    QTabWidget empty;
    changePage(empty, 1);
    EXPECT_EQ(empty.currentIndex(), -1);
}

TEST(TabControls, ChangeTheirPageByKeyboard) {
    const std::unique_ptr<QTabWidget> made(tabControl(u"SSTab1"_s, TextId::calibrationParameters));
    made->addTab(new QWidget, u"One"_s);
    made->addTab(new QWidget, u"Two"_s);
    made->show();
    QTest::keyClick(made->tabBar(), Qt::Key_Right);
    EXPECT_EQ(made->currentIndex(), 1);
}

} // namespace kelvane::testing
