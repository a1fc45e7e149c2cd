#include "ui/text_box.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// True when the focus only comes back to where it was, from a box, a menu or another program.
bool isReturning(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::MenuBarFocusReason;
}

/// Words up to this length may wrap as a whole.
constexpr qsizetype longestWord = 500;

} // namespace

QTextOption::WrapMode wrapModeFor(const QString& text) {
    qsizetype inWord = 0;
    for (const auto character : text) {
        inWord = character.isSpace() ? 0 : inWord + 1;
        if (inWord > longestWord)
            return QTextOption::WrapAnywhere;
    }
    return QTextOption::WrapAtWordBoundaryOrAnywhere;
}

TextBox::TextBox() {
    setTabChangesFocus(true);
    // Before the text is laid out for the first time.
    connect(document(), &QTextDocument::contentsChange, this,
            [this] { setWordWrapMode(wrapModeFor(document()->toRawText())); });
}

QString TextBox::text() const {
    // The plain text of the document would turn a blank that does not break into a common one.
    return document()->toRawText().replace(QChar::ParagraphSeparator, u"\r\n"_s);
}

void TextBox::setText(const QString& text) {
    if (text != this->text())
        setPlainText(text);
}

void TextBox::setLines(int lines) {
    ensurePolished();
    // With one pixel less than a line to spare, the scroll bar would already come for the last line.
    const int around = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
    setFixedHeight(lines * fontMetrics().lineSpacing() + around + lines);
}

void TextBox::focusInEvent(QFocusEvent* event) {
    QPlainTextEdit::focusInEvent(event);
    if (!isReturning(event->reason()))
        Q_EMIT entered();
}

void TextBox::keyPressEvent(QKeyEvent* event) {
    if (!event->matches(QKeySequence::InsertLineSeparator)) {
        QPlainTextEdit::keyPressEvent(event);
        return;
    }
    // Shift and Return would put in a character that only looks like a line end.
    textCursor().insertBlock();
    ensureCursorVisible();
}

} // namespace kelvane
