#include "testkit/screen_window.h"

#include <QAbstractItemView>
#include <QTest>

#include <gtest/gtest.h>

namespace kelvane::testing {

namespace {

/// The left end of a row: a long one reaches beyond the list.
QPoint placeOf(QListWidget& list, QListWidgetItem* row) {
    list.scrollToItem(row);
    const auto place = list.visualItemRect(row);
    return {place.left() + 5, place.center().y()};
}

} // namespace

void ScreenWindow::choose(QComboBox& list, const QString& row) {
    const int wanted = list.findText(row, Qt::MatchExactly | Qt::MatchCaseSensitive);
    ASSERT_GE(wanted, 0) << row.toStdString();
    click(list);
    auto* rows = list.view();
    ASSERT_TRUE(rows->isVisible());
    rows->setCurrentIndex(list.model()->index(wanted, 0));
    QTest::keyClick(rows, Qt::Key_Return);
    EXPECT_FALSE(rows->isVisible());
}

QListWidgetItem* ScreenWindow::rowOf(const QListWidget& list, const QString& row) {
    const auto found = list.findItems(row, Qt::MatchExactly | Qt::MatchCaseSensitive);
    EXPECT_EQ(found.size(), 1) << row.toStdString();
    return found.size() == 1 ? found.first() : nullptr;
}

void ScreenWindow::select(QListWidget& list, QListWidgetItem* row) {
    ASSERT_NE(row, nullptr);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, placeOf(list, row));
}

void ScreenWindow::doubleClick(QListWidget& list, QListWidgetItem* row) {
    ASSERT_NE(row, nullptr);
    const auto place = placeOf(list, row);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
}

void ScreenWindow::toggle(QCheckBox& box) {
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Space);
}

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

QStringList ScreenWindow::enabledOf(const QStringList& names) {
    QStringList usable;
    for (const auto& name : names) {
        if (controlNamed<QWidget>(name).isEnabled())
            usable << name;
    }
    return usable;
}

} // namespace kelvane::testing
