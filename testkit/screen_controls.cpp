#include "testkit/screen_controls.h"

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

void ScreenControls::choose(QComboBox& list, const QString& row) {
    const int wanted = list.findText(row, Qt::MatchExactly | Qt::MatchCaseSensitive);
    ASSERT_GE(wanted, 0) << row.toStdString();
    click(list);
    auto* rows = list.view();
    ASSERT_TRUE(rows->isVisible());
    rows->setCurrentIndex(list.model()->index(wanted, 0));
    QTest::keyClick(rows, Qt::Key_Return);
    EXPECT_FALSE(rows->isVisible());
}

QListWidgetItem* ScreenControls::rowOf(const QListWidget& list, const QString& row) {
    const auto found = list.findItems(row, Qt::MatchExactly | Qt::MatchCaseSensitive);
    EXPECT_EQ(found.size(), 1) << row.toStdString();
    return found.size() == 1 ? found.first() : nullptr;
}

void ScreenControls::select(QListWidget& list, QListWidgetItem* row) {
    ASSERT_NE(row, nullptr);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, placeOf(list, row));
}

void ScreenControls::doubleClick(QListWidget& list, QListWidgetItem* row) {
    ASSERT_NE(row, nullptr);
    const auto place = placeOf(list, row);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
}

void ScreenControls::toggle(QCheckBox& box) {
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Space);
}

QStringList ScreenControls::choicesOf(const QComboBox& list) {
    QStringList choices;
    for (int row = 0; row < list.count(); ++row)
        choices << list.itemText(row);
    return choices;
}

QStringList ScreenControls::enabledOf(const QStringList& names) {
    QStringList usable;
    for (const auto& name : names) {
        if (controlNamed<QWidget>(name).isEnabled())
            usable << name;
    }
    return usable;
}

} // namespace kelvane::testing
