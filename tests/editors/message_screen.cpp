#include "tests/editors/message_screen.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString createTitle = u"Add Test Message"_s;
const QString createPrompt = u"Enter a name for the new test message: (30 characters max)"_s;

} // namespace

MessageScreen::MessageScreen() : ProgramScreen(u"FormTestMess"_s, u"mnuPrompts"_s) {
    startLoggedIn(4);
    setMessages({{u"PERMIT"_s, u"Get a permit."_s}, {u"LABEL"_s, {}}});
}

void MessageScreen::setMessages(const QList<Message>& messages) {
    QList<Row> found;
    for (const auto& [name, prompt] : messages) {
        found << Row{name};
        script.answers.insert(selectPrompt(QString(name).replace(u'\'', u"''"_s)), {Row{prompt}});
    }
    script.answers.insert(selectNames, found);
}

QString MessageScreen::selectPrompt(const QString& name) {
    return u"select prompt from mt.hvm_kv_prompts where pname = '"_s + name + u'\'';
}

QString MessageScreen::updatePrompt(const QString& value, const QString& name) {
    return u"update mt.hvm_kv_prompts set prompt = "_s + value + u" where pname = '"_s + name + u"';commit"_s;
}

void MessageScreen::type(const QString& text) {
    if (!message().hasFocus())
        message().setFocus(Qt::ActiveWindowFocusReason);
    QTest::keyClick(&message(), Qt::Key_End, Qt::ControlModifier);
    QTest::keyClicks(&message(), text);
}

void MessageScreen::enterMessage() {
    QTest::mouseClick(message().viewport(), Qt::LeftButton);
    EXPECT_TRUE(message().hasFocus());
    QCoreApplication::processEvents();
    simulatedOperator.waitUntilAllCame();
}

QStringList MessageScreen::enabled() {
    return enabledOf({u"CommandCreate"_s, u"CommandDelete"_s, u"CommandSave"_s, u"CommandCancel"_s})
        .replaceInStrings(u"Command"_s, QString());
}

void MessageScreen::expectName(const QString& name) {
    simulatedOperator.expectDialog(createTitle, createPrompt, name);
}

void MessageScreen::cancelDialog() {
    expectCancelledDialog(createTitle, createPrompt);
}

} // namespace kelvane::testing
