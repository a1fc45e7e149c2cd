#include "testkit/scripted_user_interface.h"

#include "resources/strings.h"
#include "resources/text_id.h"

#include <gtest/gtest.h>

namespace kelvane::testing {

ScriptedUserInterface::~ScriptedUserInterface() {
    for (const auto& box : expected_)
        ADD_FAILURE() << "never came: " << box.title.toStdString() << " / " << box.text.toStdString();
}

void ScriptedUserInterface::expectBox(const QString& text, const QString& title, BoxStyle style,
                                      BoxAnswer answer) {
    Expected box;
    box.text = text;
    box.title = title;
    box.style = style;
    box.answer = answer;
    expected_ << box;
}

void ScriptedUserInterface::expectDialog(const QString& caption, const QString& prompt, const QString& answer,
                                         std::function<void(const DialogQuestion&)> check) {
    Expected dialog;
    dialog.dialog = true;
    dialog.title = caption;
    dialog.text = prompt;
    dialog.entry = answer;
    dialog.check = std::move(check);
    expected_ << dialog;
}

void ScriptedUserInterface::expectReport(int number, const QString& routine) {
    Expected report;
    report.report = true;
    report.number = number;
    report.text = routine;
    report.title = QStringLiteral("Kelvane");
    report.style = box::stop;
    expected_ << report;
}

BoxAnswer ScriptedUserInterface::messageBox(const QString& text, const QString& title, BoxStyle style) {
    if (onBox)
        onBox();
    if (expected_.isEmpty() || expected_.first().dialog) {
        ADD_FAILURE() << "unexpected box: " << title.toStdString() << " / " << text.toStdString();
        return BoxAnswer::cancel;
    }
    const auto next = expected_.takeFirst();
    EXPECT_EQ(next.title.toStdString(), title.toStdString());
    EXPECT_TRUE(next.style == style) << "style of the box: " << text.toStdString();
    if (next.report) {
        EXPECT_TRUE(
            text.contains(QStringLiteral(" %1 ").arg(next.number)) &&
            text.contains(kelvane::text(TextId::errorReportRoutine) + next.text + QStringLiteral("\r\n")))
            << text.toStdString();
    } else {
        EXPECT_EQ(next.text.toStdString(), text.toStdString());
    }
    return next.answer;
}

QString ScriptedUserInterface::askOneField(const DialogQuestion& question) {
    if (expected_.isEmpty() || !expected_.first().dialog) {
        ADD_FAILURE() << "unexpected dialog: " << question.caption.toStdString() << " / "
                      << question.prompt.toStdString();
        return cancelled;
    }
    const auto next = expected_.takeFirst();
    EXPECT_EQ(next.title.toStdString(), question.caption.toStdString());
    EXPECT_EQ(next.text.toStdString(), question.prompt.toStdString());
    if (next.check)
        next.check(question);
    return next.entry;
}

bool ScriptedUserInterface::bringQuestionForward() {
    if (questionOpen)
        ++broughtForward;
    return questionOpen;
}

void ScriptedUserInterface::showProgress(const QString& caption) {
    progressShown = true;
    events << QStringLiteral("progress ") + caption;
}

void ScriptedUserInterface::setProgressText(const QString& text) {
    events << QStringLiteral("text ") + text;
}

void ScriptedUserInterface::setProgressValue(int percent) {
    events << QStringLiteral("value %1").arg(percent);
}

void ScriptedUserInterface::hideProgress() {
    progressShown = false;
    events << QStringLiteral("hide");
}

void ScriptedUserInterface::setBusyPointer() {
    busy = true;
    events << QStringLiteral("busy");
}

void ScriptedUserInterface::setNormalPointer() {
    busy = false;
    events << QStringLiteral("normal");
}

void ScriptedUserInterface::processEvents() {
    events << QStringLiteral("events");
}

void ScriptedUserInterface::waitForWindow(const QString& title) {
    events << QStringLiteral("wait ") + title;
    if (onWait)
        onWait();
}

void ScriptedUserInterface::repaint() {
    ++repaints;
}

} // namespace kelvane::testing
