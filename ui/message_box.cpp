#include "ui/message_box.h"

#include "resources/strings.h"
#include "resources/text_id.h"
#include "ui/text_box.h"

#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>

#include <vector>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

struct ButtonKind {
    BoxAnswer answer;
    TextId caption;
    QMessageBox::ButtonRole role;
};

// Abort has no rejecting role: a box of three ways has none that Escape could mean.
constexpr ButtonKind okButton{BoxAnswer::ok, TextId::ok, QMessageBox::AcceptRole};
constexpr ButtonKind cancelButton{BoxAnswer::cancel, TextId::cancel, QMessageBox::RejectRole};
constexpr ButtonKind yesButton{BoxAnswer::yes, TextId::yes, QMessageBox::YesRole};
constexpr ButtonKind noButton{BoxAnswer::no, TextId::no, QMessageBox::NoRole};
constexpr ButtonKind retryButton{BoxAnswer::retry, TextId::retry, QMessageBox::AcceptRole};
constexpr ButtonKind abortButton{BoxAnswer::abort, TextId::abort, QMessageBox::DestructiveRole};
constexpr ButtonKind ignoreButton{BoxAnswer::ignore, TextId::ignore, QMessageBox::AcceptRole};

std::vector<ButtonKind> buttonsOf(BoxButtons buttons) {
    switch (buttons) {
    case BoxButtons::ok:
        return {okButton};
    case BoxButtons::okCancel:
        return {okButton, cancelButton};
    case BoxButtons::yesNo:
        return {yesButton, noButton};
    case BoxButtons::retryCancel:
        return {retryButton, cancelButton};
    case BoxButtons::abortRetryIgnore:
        return {abortButton, retryButton, ignoreButton};
    }
    return {okButton};
}

QMessageBox::Icon iconOf(BoxIcon icon) {
    switch (icon) {
    case BoxIcon::none:
        return QMessageBox::NoIcon;
    case BoxIcon::information:
        return QMessageBox::Information;
    case BoxIcon::question:
        return QMessageBox::Question;
    case BoxIcon::warning:
        return QMessageBox::Warning;
    case BoxIcon::stop:
        return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

/// Whether this text fits into a box that wraps it. The width is the least at which boxes wrap.
bool fits(QLabel& label, const QSize& space) {
    constexpr int wrapped = 400;
    // A longer text is not even measured: a word without an end would take minutes.
    constexpr qsizetype longest = 2000;
    if (label.text().size() > longest)
        return false;
    label.setWordWrap(true);
    return label.heightForWidth(wrapped) <= space.height() / 2 &&
           label.minimumSizeHint().width() <= space.width() / 2;
}

/// A text that wraps and scrolls downwards only. It begins with its first line, can be copied, and leaves
/// Return and Escape to its box.
QPlainTextEdit* scrollingText(const QString& text, const QSize& space) {
    auto* made = new QPlainTextEdit;
    made->setObjectName(u"TextMessage"_s);
    made->setAccessibleName(text.left(1000));
    made->setFrameShape(QFrame::NoFrame);
    made->viewport()->setAutoFillBackground(false);
    made->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    made->setReadOnly(true);
    made->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    made->setTabChangesFocus(true);
    made->setWordWrapMode(wrapModeFor(text));
    made->setPlainText(text);
    made->setMinimumSize(qMin(space.width(), 560), qMin(space.height() / 2, 320));
    return made;
}

/// A report may carry a statement of any length: a text that would push the buttons off the screen scrolls.
void keepOnScreen(QMessageBox& box) {
    const auto space = box.screen()->availableSize() * 8 / 10;
    auto* label = box.findChild<QLabel*>(u"qt_msgbox_label"_s);
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (!label || !grid || fits(*label, space))
        return;
    // The label is not laid out any more, but the box still knows its text by it.
    delete grid->replaceWidget(label, scrollingText(label->text(), space));
    label->hide();
}

} // namespace

BoxAnswer showMessageBox(QWidget* window, const QString& text, const QString& title, BoxStyle style) {
    QMessageBox box(window);
    // Left to itself, a window manager would offer to minimise a box that the whole program waits for.
    box.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                       Qt::WindowCloseButtonHint);
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText);
    // An error report can be copied to those who look into it.
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.setText(text);
    box.setIcon(iconOf(style.icon));

    const auto kinds = buttonsOf(style.buttons);
    std::vector<QPushButton*> buttons;
    for (const auto& kind : kinds)
        buttons.push_back(box.addButton(kelvane::text(kind.caption), kind.role));
    const auto place =
        static_cast<std::size_t>(qBound(1, style.defaultButton, static_cast<int>(kinds.size())));
    box.setDefaultButton(buttons[place - 1]);
    keepOnScreen(box);
    box.exec();

    for (std::size_t i = 0; i < kinds.size(); ++i) {
        if (buttons[i] == box.clickedButton())
            return kinds[i].answer;
    }
    return kinds.back().answer;
}

} // namespace kelvane
