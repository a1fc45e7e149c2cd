#include "testkit/simulated_operator.h"

#include "resources/strings.h"
#include "resources/text_id.h"
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
        return text(TextId::ok);
    case BoxAnswer::cancel:
        return text(TextId::cancel);
    case BoxAnswer::yes:
        return text(TextId::yes);
    case BoxAnswer::no:
        return text(TextId::no);
    case BoxAnswer::retry:
        return text(TextId::retry);
    case BoxAnswer::abort:
        return text(TextId::abort);
    case BoxAnswer::ignore:
        return text(TextId::ignore);
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
    for (auto* button : box.buttons()) {
        if (button->text() == caption)
            return button;
    }
    return nullptr;
}

} // namespace

SimulatedOperator::SimulatedOperator(Report report) : report_(std::move(report)) {
    qApp->installEventFilter(this);
}

void SimulatedOperator::expectBox(const QString& text, const QString& title, BoxStyle style,
                                  BoxAnswer answer) {
    expected_ << Expected{
        .title = title, .text = text, .style = style, .answer = answer, .onBox = {}, .onDialog = {}};
}

void SimulatedOperator::expectBox(const QString& text, const QString& title, BoxStyle style, ActOnBox act) {
    expected_ << Expected{
        .title = title, .text = text, .style = style, .onBox = std::move(act), .onDialog = {}};
}

void SimulatedOperator::expectReport(int number, const QString& routine) {
    expected_ << Expected{.title = u"Kelvane"_s,
                          .text = u"%1 %2"_s.arg(number).arg(routine),
                          .report = true,
                          .style = box::stop,
                          .onBox = {},
                          .onDialog = {}};
}

void SimulatedOperator::expectDialog(const QString& caption, const QString& prompt, ActOnDialog act) {
    expected_ << Expected{.title = caption,
                          .text = prompt,
                          .dialog = true,
                          .style = {},
                          .onBox = {},
                          .onDialog = std::move(act)};
}

void SimulatedOperator::expectDialog(const QString& caption, const QString& prompt, const QString& entry) {
    expectDialog(caption, prompt, [entry](FormCustomDialog& dialog) { answerDialog(dialog, entry); });
}

void SimulatedOperator::expectWindow(const QString& title, ActOnWindow act) {
    expected_ << Expected{
        .title = title, .text = {}, .style = {}, .onBox = {}, .onDialog = {}, .onWindow = std::move(act)};
}

void SimulatedOperator::waitUntilAllCame() {
    if (!QTest::qWaitFor([this] { return hasMetAll() && !QApplication::activeModalWidget(); }, 10000))
        report_(u"something expected did not come, or did not go"_s);
}

void SimulatedOperator::reportMissing() {
    for (const auto& box : std::as_const(expected_))
        report_(u"never came: %1 / %2"_s.arg(box.title, box.text.left(200)));
    expected_.clear();
}

bool SimulatedOperator::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide) {
        // A window manager gives the activity back to the window below; here nothing else does.
        if (auto* box = qobject_cast<QMessageBox*>(watched); box && box->parentWidget()) {
            box->parentWidget()->activateWindow();
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        }
    }
    if (event->type() == QEvent::Show &&
        (qobject_cast<QMessageBox*>(watched) || qobject_cast<ChildWindow*>(watched) ||
         isExpectedWindow(qobject_cast<QWidget*>(watched)))) {
        // Acted on a moment later, from inside the loop that waits for the answer.
        QMetaObject::invokeMethod(
            this,
            [this, met = QPointer(qobject_cast<QWidget*>(watched))] {
                if (met)
                    answerWindow(*met);
            },
            Qt::QueuedConnection);
    }
    return false;
}

bool SimulatedOperator::isExpectedWindow(const QWidget* window) const {
    return window && window->isWindow() && !expected_.isEmpty() && expected_.first().onWindow &&
           window->windowTitle() == expected_.first().title;
}

void SimulatedOperator::answerWindow(QWidget& window) {
    if (onShown)
        onShown(window);
    if (auto* box = qobject_cast<QMessageBox*>(&window))
        answerMessageBox(*box);
    else if (auto* dialog = qobject_cast<FormCustomDialog*>(&window))
        answerFieldDialog(*dialog);
    else if (isExpectedWindow(&window))
        actOn(window);
}

void SimulatedOperator::actOn(QWidget& window) {
    const auto expected = expected_.takeFirst();
    try {
        expected.onWindow(window);
    } catch (const Difference& difference) {
        report_(QString::fromStdString(difference.what()));
        window.close();
    }
}

void SimulatedOperator::answerMessageBox(QMessageBox& box) {
    if (closingDialog_) {
        click(*buttonOf(box, text(TextId::yes)));
        return;
    }
    if (expected_.isEmpty() || expected_.first().dialog || expected_.first().onWindow) {
        report_(u"unexpected box: %1 / %2"_s.arg(box.windowTitle(), box.text().left(400)));
        click(*box.buttons().last());
        return;
    }
    const auto expected = expected_.takeFirst();
    compare(expected, box);
    if (expected.onBox)
        return expected.onBox(box);
    auto* answer = buttonOf(box, captionOf(expected.answer));
    if (!answer) {
        report_(u"no button "_s + captionOf(expected.answer));
        answer = box.buttons().last();
    }
    click(*answer);
}

void SimulatedOperator::checkSame(const QString& what, const QString& found, const QString& expected) const {
    if (found != expected)
        report_(u"%1 is \"%2\" and not \"%3\""_s.arg(what, found, expected));
}

void SimulatedOperator::compare(const Expected& expected, const QMessageBox& box) const {
    checkSame(u"the box's title"_s, box.windowTitle(), expected.title);
    if (expected.report) {
        const auto parts = expected.text.split(u' ');
        if (!box.text().contains(u' ' + parts[0] + u' ') ||
            !box.text().contains(text(TextId::errorReportRoutine) + parts[1] + u"\r\n"_s))
            report_(u"report %1 is: %2"_s.arg(expected.text, box.text()));
    } else {
        checkSame(u"the box"_s, box.text(), expected.text);
    }
    if (box.icon() != iconOf(expected.style.icon))
        report_(u"another icon on: "_s + box.text());
    const auto answers = answersOf(expected.style.buttons);
    checkSame(u"the number of buttons"_s, QString::number(box.buttons().size()),
              QString::number(answers.size()));
    for (const auto answer : answers) {
        if (!buttonOf(box, captionOf(answer)))
            report_(u"no button %1 on: %2"_s.arg(captionOf(answer), box.text()));
    }
    checkSame(u"the default button"_s, box.defaultButton()->text(),
              captionOf(answers[expected.style.defaultButton - 1]));
}

void SimulatedOperator::answerFieldDialog(FormCustomDialog& dialog) {
    const auto prompt = control<QLabel>(dialog, u"LabelCustomDialog"_s).text();
    if (expected_.isEmpty() || !expected_.first().dialog) {
        report_(u"unexpected dialog: %1 / %2"_s.arg(dialog.windowTitle(), prompt));
        closeDialog(dialog);
        return;
    }
    const auto expected = expected_.takeFirst();
    checkSame(u"the dialog's title"_s, dialog.windowTitle(), expected.title);
    checkSame(u"the question"_s, prompt, expected.text);
    try {
        expected.onDialog(dialog);
    } catch (const Difference& difference) {
        report_(QString::fromStdString(difference.what()));
        closeDialog(dialog);
    }
}

void SimulatedOperator::closeDialog(FormCustomDialog& dialog) {
    closingDialog_ = true;
    click(control<QPushButton>(dialog, u"CommandCustomDialogCancel"_s));
    closingDialog_ = false;
}

} // namespace kelvane::demo
