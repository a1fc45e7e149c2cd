#include "editors/entry_box.h"

#include "ui/controls.h"

#include <QFocusEvent>

namespace kelvane {

QSize EntryBox::sizeHint() const {
    auto hint = QLineEdit::sizeHint();
    hint.setWidth(hint.width() * 3 / 4);
    return hint;
}

void EntryBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    // Coming back, the box keeps what the user has selected.
    if (isComingBack(event->reason()))
        return;
    entered_ = event->reason() == Qt::MouseFocusReason;
    selectValue();
}

void EntryBox::mousePressEvent(QMouseEvent* event) {
    QLineEdit::mousePressEvent(event);
    // The click that brings the focus would undo the selection; the next ones place the cursor.
    if (std::exchange(entered_, false))
        selectValue();
}

} // namespace kelvane
