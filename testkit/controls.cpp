#include "testkit/controls.h"

#include "ui/form_custom_dialog.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::demo {

QString namesBelow(const QWidget& parent) {
    QStringList names;
    for (const auto* child : parent.findChildren<QWidget*>()) {
        if (!child->objectName().isEmpty() && !child->objectName().startsWith(u"qt_"))
            names << child->objectName();
    }
    return names.join(u' ');
}

void controlNotFound(const QWidget& parent, const QString& name) {
    throw Difference(u"no control %1 among: %2"_s.arg(name, namesBelow(parent)));
}

void pick(QComboBox& list, const QString& row) {
    const int wanted = list.findText(row);
    if (wanted < 0)
        throw Difference(u"%1 has no row %2"_s.arg(list.objectName(), row));
    QTest::keyClick(&list, Qt::Key_Home);
    for (int i = 0; i < wanted; ++i)
        QTest::keyClick(&list, Qt::Key_Down);
    if (list.currentText() != row)
        throw Difference(u"%1 shows %2 and not %3"_s.arg(list.objectName(), list.currentText(), row));
}

void click(QWidget& widget) {
    if (!widget.isVisible())
        throw Difference(widget.objectName() + u" is not visible"_s);
    QTest::mouseClick(&widget, Qt::LeftButton);
}

void answerDialog(FormCustomDialog& dialog, const QString& entry) {
    auto& list = control<QComboBox>(dialog, u"ComboCustomDialog"_s);
    auto& field = control<QLineEdit>(dialog, u"TextCustomDialog"_s);
    if (list.isVisible()) {
        pick(list, entry);
        QTest::keyClick(&list, Qt::Key_Return);
    } else {
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, entry);
        QTest::keyClick(&field, Qt::Key_Return);
    }
}

} // namespace kelvane::demo
