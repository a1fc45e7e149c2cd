#include "demo/person.h"

#include "ui/form_custom_dialog.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace kelvane::demo {

Person::Person(QWidget& window, const QString& pictures) : window_(window), pictures_(pictures) {
    QDir().mkpath(pictures_);
    qApp->installEventFilter(this);
}

void Person::step(const QString& told, const QList<Box>& boxes, OnDialog onDialog,
                  const std::function<void()>& act) {
    std::printf("- %s\n", qPrintable(told));
    std::fflush(stdout);
    boxes_ = boxes;
    onDialog_ = std::move(onDialog);
    act();
    QCoreApplication::processEvents();
    for (const auto& box : std::as_const(boxes_))
        complain(u"no box \"%1\": %2"_s.arg(box.title, box.text));
    if (!unexpected_.isEmpty())
        throw Difference(told + u": "_s + unexpected_.join(u"; "_s));
}

/// Acts a moment after a window has been shown, from inside the loop that waits for its answer.
bool Person::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Show)
        return false;
    if (auto* box = qobject_cast<QMessageBox*>(watched)) {
        QMetaObject::invokeMethod(
            this,
            [this, met = QPointer(box)] {
                if (met)
                    meet(*met);
            },
            Qt::QueuedConnection);
    } else if (auto* window = qobject_cast<ChildWindow*>(watched)) {
        QMetaObject::invokeMethod(
            this,
            [this, met = QPointer(window)] {
                if (met)
                    meet(*met);
            },
            Qt::QueuedConnection);
    }
    return false;
}

void Person::meet(ChildWindow& window) {
    picture(window_, window.objectName());
    if (auto* dialog = qobject_cast<FormCustomDialog*>(&window))
        answer(*dialog);
}

void Person::meet(QMessageBox& box) {
    picture(box, u"box"_s);
    // A box that nobody expects is left by its last button; a cancelled question is confirmed.
    auto caption = u"Yes"_s;
    if (!boxes_.isEmpty() && boxes_.first().title == box.windowTitle() && boxes_.first().text == box.text())
        caption = boxes_.takeFirst().button;
    else
        complain(u"box \"%1\": %2"_s.arg(box.windowTitle(), box.text()));
    auto* button = box.buttons().last();
    for (auto* one : box.buttons()) {
        if (one->text() == caption)
            button = one;
    }
    QTest::mouseClick(button, Qt::LeftButton);
}

void Person::answer(FormCustomDialog& dialog) {
    const auto prompt = control<QLabel>(dialog, u"LabelCustomDialog"_s).text();
    const auto entry = onDialog_ ? onDialog_(dialog.windowTitle(), prompt) : std::nullopt;
    if (!entry) {
        complain(u"question \"%1\": %2"_s.arg(dialog.windowTitle(), prompt));
        QTest::mouseClick(&control<QPushButton>(dialog, u"CommandCustomDialogCancel"_s), Qt::LeftButton);
        return;
    }
    auto& list = control<QComboBox>(dialog, u"ComboCustomDialog"_s);
    auto& field = control<QLineEdit>(dialog, u"TextCustomDialog"_s);
    if (list.isVisible()) {
        QTest::keyClick(&list, Qt::Key_Home);
        for (int row = 0; row < list.findText(*entry); ++row)
            QTest::keyClick(&list, Qt::Key_Down);
        if (list.currentText() != *entry)
            complain(u"the list has no row "_s + *entry);
        QTest::keyClick(&list, Qt::Key_Return);
    } else {
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, *entry);
        QTest::keyClick(&field, Qt::Key_Return);
    }
}

void Person::picture(QWidget& widget, const QString& name) {
    const auto file = u"%1/%2-%3.png"_s.arg(pictures_).arg(++taken_, 3, 10, QChar(u'0')).arg(name);
    if (!widget.grab().save(file))
        complain(u"the picture %1 could not be written"_s.arg(file));
}

void Person::complain(const QString& what) {
    unexpected_ << what;
}

} // namespace kelvane::demo
