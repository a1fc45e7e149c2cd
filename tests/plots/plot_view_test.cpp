#include "plots/plot_view.h"

#include "testkit/fixtures.h"
#include "tests/plots/made_up_plots.h"
#include "ui/colors.h"

#include <QTest>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QToolTip>

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class PlotViewScreen : public ::testing::Test {
  protected:
    PlotViewScreen() {
        view.resize(800, 480);
        view.setPlot(errorPlot());
        view.show();
        view.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
        view.setFocus();
        point({1, 1}); // away from where the test before has left the pointer
    }
    ~PlotViewScreen() override { QToolTip::hideText(); }

    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&view, static_cast<Qt::Key>(key), modifiers);
    }
    void point(const QPointF& position) { QTest::mouseMove(&view, position.toPoint()); }
    QImage picture() { return view.grab().toImage(); }

    PlotView view;
};

} // namespace

TEST_F(PlotViewScreen, ShowsTheValuesAtThePointer) {
    point(view.positionOf({0, 3}) + QPointF(4, -4));
    EXPECT_EQ(view.markedPoint(), (PlotPlace{0, 3}));
    EXPECT_EQ(QToolTip::text(), u"<qt>as found<br>Nominal (psi): 75<br>Error (% of tolerance): 131</qt>"_s);
    EXPECT_EQ(view.accessibleDescription(), plotValue(view.plot(), {0, 3}));
}

TEST_F(PlotViewScreen, ShowsNoneAwayFromThePoints) {
    point(view.positionOf({0, 3}));
    point({3, 3});
    EXPECT_EQ(view.markedPoint(), std::nullopt);
    EXPECT_EQ(view.accessibleDescription(), view.plot().notes[0]);
}

TEST_F(PlotViewScreen, ShowsTheNoteOfAPointAsItIsWritten) {
    auto plot = errorPlot();
    plot.series[0].points[3].note = u"3 < 4 & <b>more</b>"_s;
    view.setPlot(plot);
    point(view.positionOf({0, 3}));
    EXPECT_EQ(QToolTip::text(), u"<qt>as found<br>3 &lt; 4 &amp; &lt;b&gt;more&lt;/b&gt;</qt>"_s);
}

TEST_F(PlotViewScreen, ShowsAValueOfOneLineAsItIsWritten) {
    auto plot = errorPlot();
    plot.series[0].name.clear();
    plot.series[0].points[3].note = u"R&D \"x\""_s;
    view.setPlot(plot);
    point(view.positionOf({0, 3}));
    EXPECT_TRUE(Qt::mightBeRichText(QToolTip::text())) << QToolTip::text().toStdString();
    EXPECT_EQ(QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText(), u"R&D \"x\""_s);
}

TEST_F(PlotViewScreen, TakesABarAnywhereOnIt) {
    view.setPlot(monthsPlot(2));
    const auto end = view.positionOf({1, 7});
    point({end.x(), view.height() / 2.0 + 60});
    EXPECT_EQ(view.markedPoint(), (PlotPlace{1, 7}));
}

TEST_F(PlotViewScreen, MarksThePoint) {
    const auto before = picture();
    point(view.positionOf({0, 3}));
    const auto after = picture();
    EXPECT_NE(before, after);
    const auto position = view.positionOf({0, 0}).toPoint();
    const QRect elsewhere(position - QPoint(20, 20), QSize(40, 40));
    EXPECT_EQ(before.copy(elsewhere), after.copy(elsewhere));
}

TEST_F(PlotViewScreen, GoesFromPointToPointByKeys) {
    press(Qt::Key_Right);
    EXPECT_EQ(view.markedPoint(), (PlotPlace{0, 0}));
    EXPECT_EQ(view.accessibleDescription(), plotValue(view.plot(), {0, 0}));
    EXPECT_TRUE(QToolTip::text().startsWith(u"<qt>as found"_s));
    press(Qt::Key_Right);
    EXPECT_EQ(view.markedPoint(), (PlotPlace{0, 1}));
    press(Qt::Key_Down);
    EXPECT_EQ(view.markedPoint(), (PlotPlace{1, 1}));
    press(Qt::Key_Left);
    EXPECT_EQ(view.markedPoint(), (PlotPlace{1, 0}));
    press(Qt::Key_End);
    EXPECT_EQ(view.markedPoint(), (PlotPlace{1, 6}));
    press(Qt::Key_Up);
    EXPECT_EQ(view.markedPoint(), (PlotPlace{0, 6}));
    press(Qt::Key_Home, Qt::KeypadModifier);
    EXPECT_EQ(view.markedPoint(), (PlotPlace{0, 0}));
}

TEST_F(PlotViewScreen, LeavesOtherKeysToTheWindow) {
    press(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(view.markedPoint(), std::nullopt);
    press(Qt::Key_PageDown);
    EXPECT_EQ(view.markedPoint(), std::nullopt);
}

TEST_F(PlotViewScreen, TakesTheMarkAwayOnEscapeAndWithoutFocus) {
    press(Qt::Key_Right);
    press(Qt::Key_Escape);
    EXPECT_EQ(view.markedPoint(), std::nullopt);
    press(Qt::Key_Right);
    view.clearFocus();
    EXPECT_EQ(view.markedPoint(), std::nullopt);
}

TEST_F(PlotViewScreen, KeepsThePointOfTheKeysWhileThePointerIsElsewhere) {
    press(Qt::Key_Right);
    point(view.positionOf({0, 3}));
    EXPECT_EQ(view.markedPoint(), (PlotPlace{0, 3}));
    point({3, 3});
    EXPECT_EQ(view.markedPoint(), (PlotPlace{0, 0}));
    EXPECT_EQ(view.accessibleDescription(), plotValue(view.plot(), {0, 0}));
}

TEST_F(PlotViewScreen, SaysItsTitleAndNotesToReaders) {
    EXPECT_EQ(view.accessibleName(), errorPlot().title);
    EXPECT_EQ(view.accessibleDescription(), errorPlot().notes[0]);
    view.setPlot(driftPlot());
    EXPECT_EQ(view.accessibleName(), driftPlot().title);
}

TEST_F(PlotViewScreen, ForgetsThePointOfAnEarlierPlot) {
    press(Qt::Key_End);
    view.setPlot(plotOf({{0, 0}}));
    EXPECT_EQ(view.markedPoint(), std::nullopt);
    press(Qt::Key_Right);
    EXPECT_EQ(view.markedPoint(), (PlotPlace{0, 0}));
}

TEST_F(PlotViewScreen, WithoutPointsTakesPointerAndKeys) {
    for (const auto& plot : {Plot{}, plotOf({{std::numeric_limits<double>::quiet_NaN(), 1}})}) {
        view.setPlot(plot);
        point({400, 200});
        for (const auto key :
             {Qt::Key_Right, Qt::Key_Left, Qt::Key_Home, Qt::Key_End, Qt::Key_Up, Qt::Key_Down})
            press(key);
        EXPECT_EQ(view.markedPoint(), std::nullopt);
        EXPECT_FALSE(picture().isNull());
    }
}

TEST_F(PlotViewScreen, FollowsItsSize) {
    const auto before = view.positionOf({0, 3});
    view.resize(400, 300);
    QTest::qWait(0);
    EXPECT_LT(view.positionOf({0, 3}).x(), before.x());
    view.resize(10, 10);
    point({5, 5});
    EXPECT_EQ(view.markedPoint(), std::nullopt);
    press(Qt::Key_Right);
    EXPECT_EQ(view.positionOf({0, 3}), view.rect().center());
    EXPECT_FALSE(picture().isNull());
}

TEST_F(PlotViewScreen, FollowsItsFont) {
    const auto hint = view.sizeHint();
    const auto before = view.positionOf({0, 3});
    auto larger = view.font();
    larger.setPointSize(18);
    view.setFont(larger);
    EXPECT_GT(view.sizeHint().width(), hint.width());
    EXPECT_NE(view.positionOf({0, 3}), before);
}

TEST_F(PlotViewScreen, CanBeReadInEveryPalette) {
    for (const auto colors : {Colors::light, Colors::dark}) {
        const auto palette = ownPalette(colors);
        view.setPalette(palette);
        EXPECT_EQ(picture().pixelColor(6, 6), palette.color(QPalette::Base));
        for (const auto& color : view.seriesColors())
            EXPECT_GE(contrast(color, palette.color(QPalette::Base)), leastLetterContrast);
    }
    QPalette grey;
    grey.setColor(QPalette::Base, QColor(128, 128, 128));
    grey.setColor(QPalette::Text, Qt::black);
    view.setPalette(grey);
    EXPECT_EQ(view.seriesColors(), QList<QColor>{Qt::black});
}

TEST_F(PlotViewScreen, ShowsItsFocus) {
    const auto focused = picture();
    view.clearFocus();
    const auto plain = picture();
    EXPECT_EQ(focused.pixelColor(1, 200), view.palette().color(QPalette::Highlight));
    EXPECT_EQ(plain.pixelColor(1, 200), view.palette().color(QPalette::Base));
}

} // namespace kelvane::testing
