#include "tests/support/screen_operator.h"

#include "resources/strings.h"
#include "ui/form_custom_dialog.h"

#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

std::string plain(const QString& text) {
    return text.toStdString();
}

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

ScreenOperator::ScreenOperator() {
    qApp->installEventFilter(this);
}

ScreenOperator::~ScreenOperator() {
    for (const auto& one : expected_)
        ADD_FAILURE() << "never came: " << plain(one.title) << " / " << plain(one.text.left(200));
}

void ScreenOperator::expectBox(const QString& text, const QString& title, BoxStyle style, BoxAnswer answer) {
    expected_ << Expected{
        .title = title, .text = text, .style = style, .answer = answer, .onBox = {}, .onDialog = {}};
}

void ScreenOperator::expectBox(const QString& text, const QString& title, BoxStyle style, ActOnBox act) {
    expected_ << Expected{
        .title = title, .text = text, .style = style, .onBox = std::move(act), .onDialog = {}};
}

void ScreenOperator::expectReport(int number, const QString& routine) {
    expected_ << Expected{.title = u"Kelvane"_s,
                          .text = u"%1 %2"_s.arg(number).arg(routine),
                          .report = true,
                          .style = box::stop,
                          .onBox = {},
                          .onDialog = {}};
}

void ScreenOperator::expectDialog(const QString& caption, const QString& prompt, ActOnDialog act) {
    expected_ << Expected{.title = caption,
                          .text = prompt,
                          .dialog = true,
                          .style = {},
                          .onBox = {},
                          .onDialog = std::move(act)};
}

void ScreenOperator::expectDialog(const QString& caption, const QString& prompt, const QString& entry) {
    expectDialog(caption, prompt, [entry](FormCustomDialog& dialog) { answerDialog(dialog, entry); });
}

void ScreenOperator::waitUntilAllCame() {
    EXPECT_TRUE(QTest::qWaitFor([this] { return allCame() && !QApplication::activeModalWidget(); }, 10000));
}

bool ScreenOperator::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide) {
        // A window manager gives the activity back to the window below; here nobody else does.
        if (auto* box = qobject_cast<QMessageBox*>(watched); box && box->parentWidget()) {
            box->parentWidget()->activateWindow();
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        }
    }
    if (event->type() == QEvent::Show) {
        // Acted on a moment later, from inside the loop that waits for the answer.
        if (auto* box = qobject_cast<QMessageBox*>(watched)) {
            QMetaObject::invokeMethod(
                this,
                [this, met = QPointer(box)] {
                    if (met)
                        meet(*met);
                },
                Qt::QueuedConnection);
        } else if (auto* dialog = qobject_cast<FormCustomDialog*>(watched)) {
            QMetaObject::invokeMethod(
                this,
                [this, met = QPointer(dialog)] {
                    if (met)
                        meet(*met);
                },
                Qt::QueuedConnection);
        }
    }
    return false;
}

void ScreenOperator::meet(QMessageBox& box) {
    if (sendingAway_) {
        click(*buttonOf(box, u"Yes"_s));
        return;
    }
    if (expected_.isEmpty() || expected_.first().dialog) {
        ADD_FAILURE() << "unexpected box: " << plain(box.windowTitle()) << " / "
                      << plain(box.text().left(400));
        click(*box.buttons().last());
        return;
    }
    const auto expected = expected_.takeFirst();
    compare(expected, box);
    if (expected.onBox)
        return expected.onBox(box);
    auto* answer = buttonOf(box, captionOf(expected.answer));
    if (!answer) {
        ADD_FAILURE() << "no button " << plain(captionOf(expected.answer));
        answer = box.buttons().last();
    }
    click(*answer);
}

void ScreenOperator::compare(const Expected& expected, const QMessageBox& box) const {
    EXPECT_EQ(plain(box.windowTitle()), plain(expected.title));
    if (expected.report) {
        const auto parts = expected.text.split(u' ');
        EXPECT_TRUE(box.text().contains(u' ' + parts[0] + u' ') &&
                    box.text().contains(u"FUNCTION/SUB:"_s + parts[1] + u"\r\n"_s))
            << "report " << plain(expected.text) << " is: " << plain(box.text());
    } else {
        EXPECT_EQ(plain(box.text()), plain(expected.text));
    }
    EXPECT_EQ(box.icon(), iconOf(expected.style.icon)) << plain(box.text());
    const auto answers = answersOf(expected.style.buttons);
    EXPECT_EQ(box.buttons().size(), answers.size()) << plain(box.text());
    for (const auto answer : answers)
        EXPECT_TRUE(buttonOf(box, captionOf(answer))) << "no button " << plain(captionOf(answer));
    EXPECT_EQ(plain(box.defaultButton()->text()), plain(captionOf(answers[expected.style.defaultButton - 1])))
        << plain(box.text());
}

void ScreenOperator::meet(FormCustomDialog& dialog) {
    const auto prompt = control<QLabel>(dialog, u"LabelCustomDialog"_s).text();
    if (expected_.isEmpty() || !expected_.first().dialog) {
        ADD_FAILURE() << "unexpected dialog: " << plain(dialog.windowTitle()) << " / " << plain(prompt);
        sendingAway_ = true;
        click(control<QPushButton>(dialog, u"CommandCustomDialogCancel"_s));
        sendingAway_ = false;
        return;
    }
    const auto expected = expected_.takeFirst();
    EXPECT_EQ(plain(dialog.windowTitle()), plain(expected.title));
    EXPECT_EQ(plain(prompt), plain(expected.text));
    expected.onDialog(dialog);
}

void answerDialog(FormCustomDialog& dialog, const QString& entry) {
    auto& list = control<QComboBox>(dialog, u"ComboCustomDialog"_s);
    auto& field = control<QLineEdit>(dialog, u"TextCustomDialog"_s);
    if (list.isVisible()) {
        const int row = list.findText(entry);
        EXPECT_GE(row, 0) << "no row " << plain(entry);
        list.setCurrentIndex(row);
        QTest::keyClick(&list, Qt::Key_Return);
    } else {
        field.clear();
        QTest::keyClicks(&field, entry);
        QTest::keyClick(&field, Qt::Key_Return);
    }
}

QString namesBelow(const QWidget& parent) {
    QStringList names;
    for (const auto* child : parent.findChildren<QWidget*>()) {
        if (!child->objectName().isEmpty() && !child->objectName().startsWith(u"qt_"))
            names << child->objectName();
    }
    return names.join(u' ');
}

void controlNotFound(const QWidget& parent, const QString& name) {
    const auto told = u"no control "_s + name + u" among: "_s + namesBelow(parent);
    ADD_FAILURE() << plain(told);
    throw std::runtime_error(plain(told));
}

void pick(QComboBox& list, const QString& row) {
    const int wanted = list.findText(row);
    EXPECT_GE(wanted, 0) << "no row " << plain(row);
    QTest::keyClick(&list, Qt::Key_Home);
    for (int i = 0; i < wanted; ++i)
        QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(plain(list.currentText()), plain(row));
}

void click(QWidget& widget) {
    EXPECT_TRUE(widget.isVisible()) << plain(widget.objectName()) << " is not visible";
    QTest::mouseClick(&widget, Qt::LeftButton);
}

} // namespace kelvane::testing
