#include "tests/editors/cal_param/cal_param_screen.h"

#include "ui/list_rows.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QTabWidget>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

void CalParamScreen::open(const QString& instrument) {
    ui_.expectDialog(u"Calibration Parameters"_s, u"Enter instrument number:"_s, instrument);
    EditorScreen::open(session_);
    form().chooseFirst();
}

void CalParamScreen::set(const QString& name, const QString& value) {
    auto& any = controlNamed<QWidget>(name);
    if (auto* box = qobject_cast<QLineEdit*>(&any)) {
        box->setText(value);
    } else if (auto* list = qobject_cast<QComboBox*>(&any)) {
        list->setCurrentIndex(list->findText(value));
        EXPECT_EQ(list->currentText(), value) << name.toStdString();
        // As if the user had chosen it.
        Q_EMIT list->activated(list->currentIndex());
    } else {
        controlNamed<QAbstractButton>(name).setChecked(value == u"on");
    }
}

QString CalParamScreen::text(const QString& name) {
    return controlNamed<QLineEdit>(name).text();
}

QStringList CalParamScreen::rows(const QString& list) {
    return rowsOf(controlNamed<QListWidget>(list));
}

void CalParamScreen::fill(const QString& list, const QStringList& rows) {
    auto& filled = controlNamed<QListWidget>(list);
    filled.clear();
    filled.addItems(rows);
}

void CalParamScreen::select(const QString& list, int row) {
    EditorScreen::select(controlNamed<QListWidget>(list), row);
}

void CalParamScreen::doubleClick(const QString& list, int row) {
    EditorScreen::doubleClick(controlNamed<QListWidget>(list), row);
}

int CalParamScreen::page() {
    return controlNamed<QTabWidget>(u"SSTab1"_s).currentIndex();
}

void CalParamScreen::showPage(int page) {
    controlNamed<QTabWidget>(u"SSTab1"_s).setCurrentIndex(page);
}

QString CalParamScreen::focus() {
    auto* focused = form().focusWidget();
    return focused ? focused->objectName() : QString();
}

} // namespace kelvane::testing
