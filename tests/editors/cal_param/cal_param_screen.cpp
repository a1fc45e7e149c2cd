#include "tests/editors/cal_param/cal_param_screen.h"

#include "ui/list_rows.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

CalParamScreen::CalParamScreen(Session& session, ScriptedUserInterface& ui)
    : session_(session), ui_(ui), form_(new FormCalParam(session)) {
    area_.resize(1000, 800);
    area_.show();
    // Keys reach lists and shortcuts of an active window only.
    area_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&area_));
}

void CalParamScreen::open(const QString& instrument) {
    ui_.expectDialog(u"Calibration Parameters"_s, u"Enter instrument number:"_s, instrument);
    form_->showIn(area_);
    form_->chooseFirst();
}

void CalParamScreen::set(const QString& name, const QString& value) {
    auto& any = control<QWidget>(*form_, name);
    if (auto* box = qobject_cast<QLineEdit*>(&any)) {
        box->setText(value);
    } else if (auto* list = qobject_cast<QComboBox*>(&any)) {
        list->setCurrentIndex(list->findText(value));
        EXPECT_EQ(list->currentText(), value) << name.toStdString();
        // As if the user had chosen it.
        Q_EMIT list->activated(list->currentIndex());
    } else {
        control<QAbstractButton>(*form_, name).setChecked(value == u"on");
    }
}

QString CalParamScreen::text(const QString& name) {
    return control<QLineEdit>(*form_, name).text();
}

void CalParamScreen::press(const QString& button) {
    control<QPushButton>(*form_, button).click();
}

QStringList CalParamScreen::rows(const QString& list) {
    return rowsOf(control<QListWidget>(*form_, list));
}

void CalParamScreen::fill(const QString& list, const QStringList& rows) {
    auto& filled = control<QListWidget>(*form_, list);
    filled.clear();
    filled.addItems(rows);
}

void CalParamScreen::select(const QString& list, int row) {
    control<QListWidget>(*form_, list).setCurrentRow(row);
}

void CalParamScreen::doubleClick(const QString& list, int row) {
    auto& clicked = control<QListWidget>(*form_, list);
    const auto place = clicked.visualItemRect(clicked.item(row)).center();
    QTest::mouseClick(clicked.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(clicked.viewport(), Qt::LeftButton, {}, place);
}

int CalParamScreen::page() {
    return control<QTabWidget>(*form_, u"SSTab1"_s).currentIndex();
}

void CalParamScreen::showPage(int page) {
    control<QTabWidget>(*form_, u"SSTab1"_s).setCurrentIndex(page);
}

QString CalParamScreen::focus() {
    auto* focused = form_->focusWidget();
    return focused ? focused->objectName() : QString();
}

} // namespace kelvane::testing
