#include "editors/cal_param/entry_box.h"

#include <QFocusEvent>

#include <limits>
#include <utility>

namespace kelvane {

namespace {

/// A menu of the box or another window has the focus for a while; what is selected stays so meanwhile.
bool isTemporary(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
}

} // namespace

EntryBox::EntryBox() {
    // What is pasted is judged as a whole; nothing of it is cut off in silence.
    setMaxLength(std::numeric_limits<int>::max());
}

QSize EntryBox::sizeHint() const {
    auto hint = QLineEdit::sizeHint();
    hint.setWidth(hint.width() * 3 / 4);
    return hint;
}

void EntryBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    // A box may also get the focus for the first time when its window becomes active, after a message.
    const bool wasAway = std::exchange(away_, false);
    if (wasAway && isTemporary(event->reason()))
        return;
    entered_ = event->reason() == Qt::MouseFocusReason;
    selectValue();
}

void EntryBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    away_ = isTemporary(event->reason());
}

void EntryBox::mousePressEvent(QMouseEvent* event) {
    QLineEdit::mousePressEvent(event);
    // The click that brings the focus would undo the selection; the next ones place the cursor.
    if (std::exchange(entered_, false))
        selectValue();
}

} // namespace kelvane
