#include "tests/editors/strategies_screen.h"

#include "ui/list_rows.h"

#include <QAbstractItemView>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

StrategiesScreen::StrategiesScreen() : area_(new QMdiArea) {
    window_.setCentralWidget(area_);
    window_.resize(665, 551);
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
}

void StrategiesScreen::open(Session& session, OpenCalParam* calParam) {
    auto made = std::make_unique<FormStrategies>(session, [calParam] { return calParam; });
    made->showIn(*area_);
    form_ = made.release();
}

QStringList StrategiesScreen::allNames() {
    QStringList all;
    for (int row = 0; row < names().count(); ++row)
        all << names().itemText(row);
    return all;
}

QStringList StrategiesScreen::points() {
    return rowsOf(list());
}

int StrategiesScreen::selected() {
    return selectedRow(list());
}

QStringList StrategiesScreen::enabled() {
    QStringList usable;
    for (const auto& name :
         {u"ComboTSNames"_s, u"CommandAdd"_s, u"CommandRename"_s, u"CommandDeleteTS"_s, u"CommandSave"_s,
          u"ComboPreDef"_s, u"CommandAddTP"_s, u"CommandModify"_s, u"CommandDeletePoint"_s,
          u"CommandMoveUp"_s, u"CommandMoveDown"_s, u"CommandCancel"_s}) {
        if (control<QWidget>(form(), name).isEnabled())
            usable << name;
    }
    return usable;
}

void StrategiesScreen::choose(QComboBox& list, const QString& row) {
    const int wanted = list.findText(row, Qt::MatchExactly | Qt::MatchCaseSensitive);
    ASSERT_GE(wanted, 0) << row.toStdString();
    click(list);
    auto* rows = list.view();
    ASSERT_TRUE(rows->isVisible());
    rows->setCurrentIndex(list.model()->index(wanted, 0));
    QTest::keyClick(rows, Qt::Key_Return);
    EXPECT_FALSE(rows->isVisible());
}

QPoint StrategiesScreen::placeOf(int row) {
    list().scrollToItem(list().item(row));
    return list().visualItemRect(list().item(row)).center();
}

void StrategiesScreen::select(int row) {
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, placeOf(row));
}

void StrategiesScreen::doubleClick(int row) {
    select(row);
    QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, placeOf(row));
}

QString selectNames() {
    return u"select distinct(tp_name) from mt.hvm_kv_proc_points order by tp_name asc"_s;
}

QString selectName(const QString& name) {
    return u"select tp_name from mt.hvm_kv_proc_points where tp_name = '"_s + name + u"'"_s;
}

QString selectPoints(const QString& name) {
    return u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = '"_s + name +
           u"' order by test_point_seq asc"_s;
}

QStringList loadOf(const QString& name) {
    return loadOf(name, name);
}

QStringList loadOf(const QString& name, const QString& shown) {
    return {selectNames(), selectName(name), selectPoints(shown)};
}

} // namespace kelvane::testing
