#include "testkit/person.h"

#include "testkit/controls.h"
#include "ui/form_custom_dialog.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::demo {

namespace {

QList<BoxAnswer> answersOf(BoxButtons buttons) {
    switch (buttons) {
    case BoxButtons::ok:
        return {BoxAnswer::ok};
    case BoxButtons::okCancel:
        return {BoxAnswer::ok, BoxAnswer::cancel};
    case BoxButtons::yesNo:
        return {BoxAnswer::yes, BoxAnswer::no};
    case BoxButtons::retryCancel:
        return {BoxAnswer::retry, BoxAnswer::cancel};
    case BoxButtons::abortRetryIgnore:
        return {BoxAnswer::abort, BoxAnswer::retry, BoxAnswer::ignore};
    }
    return {};
}

QString captionOf(BoxAnswer answer) {
    switch (answer) {
    case BoxAnswer::ok:
        return u"OK"_s;
    case BoxAnswer::cancel:
        return u"Cancel"_s;
    case BoxAnswer::yes:
        return u"Yes"_s;
    case BoxAnswer::no:
        return u"No"_s;
    case BoxAnswer::retry:
        return u"Retry"_s;
    case BoxAnswer::abort:
        return u"Abort"_s;
    case BoxAnswer::ignore:
        return u"Ignore"_s;
    }
    return {};
}

QMessageBox::Icon iconOf(BoxIcon icon) {
    static const QHash<BoxIcon, QMessageBox::Icon> icons{
        {BoxIcon::none, QMessageBox::NoIcon},       {BoxIcon::information, QMessageBox::Information},
        {BoxIcon::question, QMessageBox::Question}, {BoxIcon::warning, QMessageBox::Warning},
        {BoxIcon::stop, QMessageBox::Critical},
    };
    return icons.value(icon);
}

QAbstractButton* buttonOf(const QMessageBox& box, const QString& caption) {
    for (auto* one : box.buttons()) {
        if (one->text() == caption)
            return one;
    }
    return nullptr;
}

} // namespace

Person::Person(Complain complain) : complain_(std::move(complain)) {
    qApp->installEventFilter(this);
}

void Person::expectBox(const QString& text, const QString& title, BoxStyle style, BoxAnswer answer) {
    expected_ << Expected{
        .title = title, .text = text, .style = style, .answer = answer, .onBox = {}, .onDialog = {}};
}

void Person::expectBox(const QString& text, const QString& title, BoxStyle style, ActOnBox act) {
    expected_ << Expected{
        .title = title, .text = text, .style = style, .onBox = std::move(act), .onDialog = {}};
}

void Person::expectReport(int number, const QString& routine) {
    expected_ << Expected{.title = u"Kelvane"_s,
                          .text = u"%1 %2"_s.arg(number).arg(routine),
                          .report = true,
                          .style = box::stop,
                          .onBox = {},
                          .onDialog = {}};
}

void Person::expectDialog(const QString& caption, const QString& prompt, ActOnDialog act) {
    expected_ << Expected{.title = caption,
                          .text = prompt,
                          .dialog = true,
                          .style = {},
                          .onBox = {},
                          .onDialog = std::move(act)};
}

void Person::expectDialog(const QString& caption, const QString& prompt, const QString& entry) {
    expectDialog(caption, prompt, [entry](FormCustomDialog& dialog) { answerDialog(dialog, entry); });
}

void Person::waitUntilAllCame() {
    if (!QTest::qWaitFor([this] { return allCame() && !QApplication::activeModalWidget(); }, 10000))
        complain_(u"something expected did not come, or did not go"_s);
}

void Person::missOthers() {
    for (const auto& one : std::as_const(expected_))
        complain_(u"never came: %1 / %2"_s.arg(one.title, one.text.left(200)));
    expected_.clear();
}

bool Person::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide) {
        // A window manager gives the activity back to the window below; here nobody else does.
        if (auto* box = qobject_cast<QMessageBox*>(watched); box && box->parentWidget()) {
            box->parentWidget()->activateWindow();
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        }
    }
    if (event->type() == QEvent::Show &&
        (qobject_cast<QMessageBox*>(watched) || qobject_cast<ChildWindow*>(watched))) {
        // Acted on a moment later, from inside the loop that waits for the answer.
        QMetaObject::invokeMethod(
            this,
            [this, met = QPointer(qobject_cast<QWidget*>(watched))] {
                if (met)
                    meet(*met);
            },
            Qt::QueuedConnection);
    }
    return false;
}

void Person::meet(QWidget& window) {
    if (onShown)
        onShown(window);
    if (auto* box = qobject_cast<QMessageBox*>(&window))
        meetBox(*box);
    else if (auto* dialog = qobject_cast<FormCustomDialog*>(&window))
        meetDialog(*dialog);
}

void Person::meetBox(QMessageBox& box) {
    if (sendingAway_) {
        click(*buttonOf(box, u"Yes"_s));
        return;
    }
    if (expected_.isEmpty() || expected_.first().dialog) {
        complain_(u"unexpected box: %1 / %2"_s.arg(box.windowTitle(), box.text().left(400)));
        click(*box.buttons().last());
        return;
    }
    const auto expected = expected_.takeFirst();
    compare(expected, box);
    if (expected.onBox)
        return expected.onBox(box);
    auto* answer = buttonOf(box, captionOf(expected.answer));
    if (!answer) {
        complain_(u"no button "_s + captionOf(expected.answer));
        answer = box.buttons().last();
    }
    click(*answer);
}

void Person::same(const QString& what, const QString& found, const QString& expected) const {
    if (found != expected)
        complain_(u"%1 is \"%2\" and not \"%3\""_s.arg(what, found, expected));
}

void Person::compare(const Expected& expected, const QMessageBox& box) const {
    same(u"the box's title"_s, box.windowTitle(), expected.title);
    if (expected.report) {
        const auto parts = expected.text.split(u' ');
        if (!box.text().contains(u' ' + parts[0] + u' ') ||
            !box.text().contains(u"FUNCTION/SUB:"_s + parts[1] + u"\r\n"_s))
            complain_(u"report %1 is: %2"_s.arg(expected.text, box.text()));
    } else {
        same(u"the box"_s, box.text(), expected.text);
    }
    if (box.icon() != iconOf(expected.style.icon))
        complain_(u"another icon on: "_s + box.text());
    const auto answers = answersOf(expected.style.buttons);
    same(u"the number of buttons"_s, QString::number(box.buttons().size()), QString::number(answers.size()));
    for (const auto answer : answers) {
        if (!buttonOf(box, captionOf(answer)))
            complain_(u"no button %1 on: %2"_s.arg(captionOf(answer), box.text()));
    }
    same(u"the default button"_s, box.defaultButton()->text(),
         captionOf(answers[expected.style.defaultButton - 1]));
}

void Person::meetDialog(FormCustomDialog& dialog) {
    const auto prompt = control<QLabel>(dialog, u"LabelCustomDialog"_s).text();
    if (expected_.isEmpty() || !expected_.first().dialog) {
        complain_(u"unexpected dialog: %1 / %2"_s.arg(dialog.windowTitle(), prompt));
        sendAway(dialog);
        return;
    }
    const auto expected = expected_.takeFirst();
    same(u"the dialog's title"_s, dialog.windowTitle(), expected.title);
    same(u"the question"_s, prompt, expected.text);
    try {
        expected.onDialog(dialog);
    } catch (const Difference& difference) {
        complain_(QString::fromStdString(difference.what()));
        sendAway(dialog);
    }
}

void Person::sendAway(FormCustomDialog& dialog) {
    sendingAway_ = true;
    click(control<QPushButton>(dialog, u"CommandCustomDialogCancel"_s));
    sendingAway_ = false;
}

} // namespace kelvane::demo
