#include "ui/whole_text.h"

#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "ui/controls.h"

#include <QApplication>
#include <QHelpEvent>
#include <QListWidget>
#include <QProxyStyle>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QTextDocumentFragment>
#include <QToolTip>

#include <memory>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString longRow = u"C2318 : Approved By The Responsible Person <of> the "_s.repeated(6) + u"end"_s;

/// What the tool tip says that comes up over a place of a widget; empty when none does.
QString tipAt(QWidget& widget, const QPoint& place) {
    QToolTip::hideText();
    QHelpEvent event(QEvent::ToolTip, place, widget.mapToGlobal(place));
    QApplication::sendEvent(&widget, &event);
    auto shown = QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText();
    QToolTip::hideText();
    return shown.remove(QChar(0x200B));
}

/// Remembers what is drawn as a text last, and the width of its place.
class DrawnText final : public QProxyStyle {
  public:
    void drawItemText(QPainter* painter, const QRect& place, int flags, const QPalette& palette, bool enabled,
                      const QString& drawn, QPalette::ColorRole role) const override {
        text = drawn;
        width = place.width();
        QProxyStyle::drawItemText(painter, place, flags, palette, enabled, drawn, role);
    }
    mutable QString text;
    mutable int width = 0;
};

/// The text of a widget, and whether it fits there.
QString drawnOn(QWidget& widget) {
    DrawnText style;
    widget.setStyle(&style);
    widget.grab();
    EXPECT_LE(widget.fontMetrics().horizontalAdvance(style.text), style.width);
    widget.setStyle(nullptr);
    return style.text;
}

} // namespace

TEST(WholeTextTips, ShowMarksAsTheyStandAndWrapEndlessWords) {
    for (const auto& text : {u"a <b>row</b> & more"_s, u"x"_s.repeated(900), u"two\nlines"_s}) {
        auto shown = QTextDocumentFragment::fromHtml(wholeTextTip(text)).toPlainText();
        EXPECT_EQ(shown.remove(QChar(0x200B)), text);
    }
    EXPECT_TRUE(wholeTextTip(u"x"_s.repeated(900)).contains(QChar(0x200B)));
    EXPECT_LT(wholeTextTip(u"x"_s.repeated(1000000)).size(), 10000);
}

TEST(WholeRows, AreAsWideAsTheirTextsWhicheverComesFirst) {
    QListWidget list;
    list.addItems({u"short"_s, longRow, u"middle"_s});
    showWholeRows(list);
    list.resize(200, 100);
    list.show();
    QCoreApplication::processEvents();
    const QFontMetrics letters(list.font());
    EXPECT_GE(list.visualItemRect(list.item(1)).width(), letters.horizontalAdvance(longRow));
    EXPECT_EQ(list.horizontalScrollBar()->maximum(),
              list.visualItemRect(list.item(1)).width() - list.viewport()->width());
}

TEST(WholeRows, ARowThatIsCutOffHasItsWholeTextAsToolTipAboveTheListsOwn) {
    QListWidget list;
    list.addItems({u"short"_s, longRow});
    list.setToolTip(u"List of fields"_s);
    showWholeRows(list);
    list.resize(200, 100);
    list.show();
    QCoreApplication::processEvents();
    const auto over = [&](int row) {
        return tipAt(*list.viewport(), {5, list.visualItemRect(list.item(row)).center().y()});
    };
    EXPECT_EQ(over(1), longRow + u"\nList of fields"_s);
    EXPECT_NE(over(0), u"short\nList of fields"_s);
    EXPECT_FALSE(over(0).contains(u"short"_s));
}

TEST(WholeRows, AllAreAsHighAsTheFontNeeds) {
    QListWidget list;
    showWholeRows(list);
    list.addItems({u"PT-1001"_s, QString(), longRow});
    list.show();
    for (const int size : {9, 20}) {
        list.setFont(QFont(list.font().family(), size));
        QCoreApplication::processEvents();
        for (int row = 0; row < list.count(); ++row)
            EXPECT_GE(list.visualItemRect(list.item(row)).height(), QFontMetrics(list.font()).height());
    }
}

TEST(ElidedLabels, EndInDotsAndShowTheRestAsToolTip) {
    ElidedLabel label;
    label.setText(longRow);
    label.setToolTip(u"What the program is doing"_s);
    label.resize(150, 20);
    EXPECT_LT(label.minimumSizeHint().width(), 150);
    EXPECT_TRUE(drawnOn(label).endsWith(QChar(0x2026)));
    EXPECT_EQ(tipAt(label, {5, 5}), longRow + u"\nWhat the program is doing"_s);
    label.setText(u"short"_s);
    EXPECT_EQ(drawnOn(label), u"short"_s);
    EXPECT_EQ(tipAt(label, {5, 5}), u"What the program is doing"_s);
}

class WholeDropDowns : public ::testing::Test {
  protected:
    WholeDropDowns() {
        list->addItems({u"short"_s, longRow, u"middle"_s});
        list->resize(150, list->sizeHint().height());
    }
    std::unique_ptr<QComboBox> list{dropDown(u"ComboTSName"_s, u"Strategy"_s, TextId::entryTip)};
};

TEST_F(WholeDropDowns, ClosedTheyEndInDotsAndShowTheRestAsToolTip) {
    list->setCurrentIndex(1);
    EXPECT_TRUE(drawnOn(*list).endsWith(QChar(0x2026)));
    EXPECT_EQ(tipAt(*list, {5, 5}), longRow + u"\nMake an entry/selection"_s);
    list->setCurrentIndex(0);
    EXPECT_EQ(drawnOn(*list), u"short"_s);
    EXPECT_EQ(tipAt(*list, {5, 5}), u"Make an entry/selection"_s);
}

TEST_F(WholeDropDowns, OpenTheyAreAsWideAsTheirWidestRow) {
    keepWidth(list.get());
    list->show();
    list->showPopup();
    const int needed = QFontMetrics(list->font()).horizontalAdvance(longRow);
    EXPECT_GE(list->view()->viewport()->width(), qMin(needed, list->screen()->availableSize().width() - 40));
    list->hidePopup();
    list->clear();
    list->addItems({u"a"_s, u"b"_s});
    list->showPopup();
    EXPECT_LT(list->view()->viewport()->width(), 200);
    list->hidePopup();
}

} // namespace kelvane::testing
