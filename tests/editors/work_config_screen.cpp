#include "tests/editors/work_config_screen.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

WorkConfigScreen::WorkConfigScreen() : area_(new QMdiArea) {
    window_.setCentralWidget(area_);
    window_.resize(665, 551);
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
}

void WorkConfigScreen::open(Session& session) {
    auto made = std::make_unique<FormWorkConfig>(session);
    made->showIn(*area_);
    form_ = made.release();
}

void WorkConfigScreen::toggle(QCheckBox& box) {
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Space);
}

QPoint WorkConfigScreen::placeOf(QListWidget& list, const QString& row) {
    const auto found = list.findItems(row, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (found.size() != 1) {
        ADD_FAILURE() << found.size() << " rows " << row.toStdString();
        return {};
    }
    list.scrollToItem(found.first());
    // The left end: a long row reaches beyond the list.
    const auto place = list.visualItemRect(found.first());
    return {place.left() + 5, place.center().y()};
}

void WorkConfigScreen::select(QListWidget& list, const QString& row) {
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, placeOf(list, row));
}

void WorkConfigScreen::doubleClick(QListWidget& list, const QString& row) {
    const auto place = placeOf(list, row);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
}

} // namespace kelvane::testing
