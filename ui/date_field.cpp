#include "ui/date_field.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>

#include <tuple>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

const auto format = u"yyyy-MM-dd"_s;

/// The character that a key types, without commands such as Alt and a digit.
QChar typedBy(const QKeyEvent& event) {
    const bool isCommand = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    return isCommand || event.text().size() != 1 ? QChar() : event.text()[0];
}

bool isDigit(QChar typed) {
    return typed >= u'0' && typed <= u'9';
}

} // namespace

DateField::DateField() {
    setDisplayFormat(format);
    setCalendarPopup(true);
    setMinimumDate(QDate(1900, 1, 1));
    // What is pasted by the menu or the mouse would be fitted into the day that stands there.
    lineEdit()->setContextMenuPolicy(Qt::PreventContextMenu);
    setContextMenuPolicy(Qt::PreventContextMenu);
    lineEdit()->installEventFilter(this);
}

bool DateField::eventFilter(QObject* watched, QEvent* event) {
    const bool pastesByMouse = watched == lineEdit() && event->type() == QEvent::MouseButtonRelease &&
                               static_cast<QMouseEvent*>(event)->button() == Qt::MiddleButton;
    return pastesByMouse || QDateEdit::eventFilter(watched, event);
}

/// Typing begins with the year, also when Shift and Tab lead here.
void DateField::focusInEvent(QFocusEvent* event) {
    QDateEdit::focusInEvent(event);
    endTyping();
    if (event->reason() == Qt::BacktabFocusReason)
        setSelectedSection(YearSection);
}

void DateField::keyPressEvent(QKeyEvent* event) {
    const auto typed = typedBy(*event);
    if (isDigit(typed)) {
        takeDigit(event);
    } else if (u"-./ "_s.contains(typed)) {
        takeSeparator();
    } else {
        endTyping();
        if (event->matches(QKeySequence::Paste))
            paste();
        else
            QDateEdit::keyPressEvent(event);
    }
}

void DateField::takeDigit(QKeyEvent* event) {
    if (selectsSeveralParts())
        setSelectedSection(YearSection);
    else if (!dayBefore_ && !lineEdit()->hasSelectedText() && text().size() == format.size())
        // A part that is complete has no room for another digit.
        setSelectedSection(currentSection());
    if (!dayBefore_)
        dayBefore_ = date();
    const auto part = currentSection();
    const auto state = [this] {
        return std::tuple(text(), lineEdit()->cursorPosition(), lineEdit()->selectedText());
    };
    const auto before = state();
    QDateEdit::keyPressEvent(event);
    hasAdvanced_ = currentSection() != part;
    // The last day of a month takes the place of a later one.
    if (state() == before || !sectionText(part).endsWith(event->text()))
        refuse();
}

void DateField::takeSeparator() {
    if (hasAdvanced_ || selectsSeveralParts())
        return;
    const auto part = currentSection();
    const int typed = sectionText(part).toInt();
    QKeyEvent hyphen(QEvent::KeyPress, Qt::Key_Minus, Qt::NoModifier, u"-"_s);
    QDateEdit::keyPressEvent(&hyphen);
    // An incomplete part gets its former value.
    if (sectionText(part).toInt() != typed)
        refuse();
}

/// A whole day takes the place of all parts, whichever is selected.
void DateField::paste() {
    const auto day = QDate::fromString(QApplication::clipboard()->text().trimmed(), Qt::ISODate);
    if (!day.isValid())
        lineEdit()->paste();
    else if (day < minimumDate() || day > maximumDate())
        refuse();
    else
        setDate(day);
}

bool DateField::selectsSeveralParts() const {
    return lineEdit()->selectedText().contains(u'-');
}

void DateField::refuse() {
    QApplication::beep();
    setDate(dayBefore_.value_or(date()));
    selectAll();
    endTyping();
}

void DateField::endTyping() {
    dayBefore_.reset();
    hasAdvanced_ = false;
}

} // namespace kelvane
