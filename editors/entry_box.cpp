#include "editors/entry_box.h"

#include <QFocusEvent>

namespace kelvane {

QSize EntryBox::sizeHint() const {
    auto hint = QLineEdit::sizeHint();
    hint.setWidth(hint.width() * 3 / 4);
    return hint;
}

void EntryBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    const auto reason = event->reason();
    // Coming back from a menu or from another program, the box keeps what the user has selected.
    if (reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
        reason == Qt::ActiveWindowFocusReason)
        return;
    entered_ = reason == Qt::MouseFocusReason;
    selectValue();
}

void EntryBox::mousePressEvent(QMouseEvent* event) {
    QLineEdit::mousePressEvent(event);
    // The click that brings the focus would undo the selection; the next ones place the cursor.
    if (std::exchange(entered_, false))
        selectValue();
}

} // namespace kelvane
