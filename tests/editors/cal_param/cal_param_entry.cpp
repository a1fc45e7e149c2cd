#include "tests/editors/cal_param/cal_param_entry.h"

#include "testkit/screen_operator.h"
#include "ui/list_rows.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

QString shownBy(const QWidget& screen, const QString& name) {
    const auto& any = control<QWidget>(screen, name);
    if (const auto* box = qobject_cast<const QLineEdit*>(&any))
        return box->text();
    if (const auto* list = qobject_cast<const QComboBox*>(&any))
        return list->currentText();
    if (const auto* list = qobject_cast<const QListWidget*>(&any))
        return rowsOf(*list).join(u',');
    return control<QAbstractButton>(screen, name).isChecked() ? u"on"_s : u"off"_s;
}

void show(const QWidget& screen, const QString& name, const QString& value) {
    auto& any = control<QWidget>(screen, name);
    if (auto* box = qobject_cast<QLineEdit*>(&any)) {
        box->setText(value);
    } else if (auto* list = qobject_cast<QComboBox*>(&any)) {
        list->setCurrentIndex(list->findText(value));
    } else if (auto* rows = qobject_cast<QListWidget*>(&any)) {
        rows->clear();
        rows->addItems(value.split(u',', Qt::SkipEmptyParts));
    } else {
        control<QAbstractButton>(screen, name).setChecked(value == u"on");
    }
    EXPECT_EQ(shownBy(screen, name).toStdString(), value.toStdString()) << name.toStdString();
}

QString shownFor(const GivenControl& control, QStringView value) {
    if (!control.stored.isEmpty())
        return control.stored == value ? u"on"_s : u"off"_s;
    if (control.name.startsWith(u"Check"))
        return value == u'Y' ? u"on"_s : u"off"_s;
    return value.toString();
}

QStringList valueControls(const QWidget& screen) {
    QStringList names;
    for (const auto* widget : screen.findChildren<QWidget*>()) {
        const bool holdsValue =
            qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QComboBox*>(widget) ||
            qobject_cast<const QListWidget*>(widget) || qobject_cast<const QRadioButton*>(widget) ||
            qobject_cast<const QCheckBox*>(widget);
        if (holdsValue && !widget->objectName().startsWith(u"qt_"))
            names << widget->objectName();
    }
    names.sort();
    return names;
}

QStringList allShown(const QWidget& screen) {
    QStringList all;
    for (const auto& name : valueControls(screen))
        all << name + u": "_s + shownBy(screen, name);
    return all;
}

void bringToFront(QWidget& control) {
    for (auto* widget = &control; widget; widget = widget->parentWidget()) {
        auto* tabs = widget->parentWidget()
                         ? qobject_cast<QTabWidget*>(widget->parentWidget()->parentWidget())
                         : nullptr;
        if (tabs && tabs->indexOf(widget) >= 0) {
            tabs->show();
            tabs->setTabEnabled(tabs->indexOf(widget), true);
            tabs->setCurrentWidget(widget);
        }
    }
}

} // namespace kelvane::testing
