#include "ui/message_box.h"

#include "resources/strings.h"

#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>

#include <vector>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

struct ButtonKind {
    BoxAnswer answer;
    int caption;
    QMessageBox::ButtonRole role;
};

// Abort has no rejecting role: a box of three ways has none that Escape could mean.
constexpr ButtonKind okButton{BoxAnswer::ok, 1004, QMessageBox::AcceptRole};
constexpr ButtonKind cancelButton{BoxAnswer::cancel, 1003, QMessageBox::RejectRole};
constexpr ButtonKind yesButton{BoxAnswer::yes, 643, QMessageBox::YesRole};
constexpr ButtonKind noButton{BoxAnswer::no, 644, QMessageBox::NoRole};
constexpr ButtonKind retryButton{BoxAnswer::retry, 1002, QMessageBox::AcceptRole};
constexpr ButtonKind abortButton{BoxAnswer::abort, 1049, QMessageBox::DestructiveRole};
constexpr ButtonKind ignoreButton{BoxAnswer::ignore, 1050, QMessageBox::AcceptRole};

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

/// Whether a box that wraps this text has room for it. The width is the least at which boxes wrap.
bool fits(QLabel& label, const QSize& room) {
    constexpr int wrapped = 400;
    label.setWordWrap(true);
    return label.heightForWidth(wrapped) <= room.height() / 2 &&
           label.minimumSizeHint().width() <= room.width() / 2;
}

/// A report may carry a statement of any length: a text that would push the buttons off the screen scrolls.
void keepOnScreen(QMessageBox& box) {
    const auto room = box.screen()->availableSize() * 8 / 10;
    auto* label = box.findChild<QLabel*>(u"qt_msgbox_label"_s);
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (!label || !grid || fits(*label, room))
        return;
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    auto* scrolling = new QScrollArea;
    scrolling->setFrameShape(QFrame::NoFrame);
    scrolling->setWidgetResizable(true);
    delete grid->replaceWidget(label, scrolling);
    scrolling->setWidget(label);
    scrolling->setMinimumSize(qMin(room.width(), 560), qMin(room.height() / 2, 320));
}

} // namespace

BoxAnswer showMessageBox(QWidget* window, const QString& text, const QString& title, BoxStyle style) {
    QMessageBox box(window);
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
