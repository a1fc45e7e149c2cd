#include "editors/form_test_mess.h"

#include "tests/editors/message_screen.h"
#include "ui/open_windows.h"

#include <QApplication>
#include <QMessageBox>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

using FormTestMessTest = MessageScreen;

const Error noTable{208, u"no such table"_s};

} // namespace

TEST_F(FormTestMessTest, HasItsSizePlaceTextsAndFocus) {
    open();
    EXPECT_EQ(form().geometry(), QRect(7, 5, 320, 372));
    EXPECT_EQ(form().windowTitle(), messagesTitle);
    const struct {
        QString name;
        QString text;
        QString toolTip;
    } texts[] = {
        {u"Label1"_s, u"Test Messages"_s, {}},
        {u"ComboMessageName"_s, {}, u"Select a test message from this list"_s},
        {u"TextMessage"_s, {}, u"Message that will be displayed to the operator"_s},
        {u"CommandSave"_s, u"Save"_s, u"Save this test message"_s},
        {u"CommandCreate"_s, u"Add Test Message"_s, u"Create a new test message"_s},
        {u"CommandDelete"_s, u"Remove Message"_s, u"Delete this test message"_s},
        {u"CommandCancel"_s, u"Cancel"_s, u"Discard changes made to this test message"_s},
    };
    for (const auto& text : texts) {
        auto& shown = control<QWidget>(form(), text.name);
        EXPECT_EQ(shown.property("text").toString(), text.text) << text.name.toStdString();
        EXPECT_EQ(shown.toolTip(), text.toolTip) << text.name.toStdString();
    }
    EXPECT_TRUE(names().hasFocus());
    EXPECT_TRUE(isWindowOpen(session, u"FormTestMess"));
    EXPECT_FALSE(QApplication::overrideCursor());
}

TEST_F(FormTestMessTest, OpensOnTheFirstMessageInTheOrderOfTheDatabase) {
    choose(u"mnuPrompts"_s);
    EXPECT_EQ(script.statements, (QStringList{selectNames, selectPrompt(u"PERMIT"_s)}));
    EXPECT_EQ(rows(), (QStringList{u"PERMIT"_s, u"LABEL"_s}));
    EXPECT_EQ(names().currentText(), u"PERMIT"_s);
    EXPECT_EQ(message().text(), u"Get a permit."_s);
    EXPECT_EQ(enabled(), (QStringList{u"Create"_s, u"Delete"_s, u"Save"_s}));
}

TEST_F(FormTestMessTest, WithoutMessagesOnlyANewOneCanBeMade) {
    setMessages({});
    choose(u"mnuPrompts"_s);
    EXPECT_EQ(script.statements, QStringList{selectNames});
    EXPECT_EQ(enabled(), QStringList{u"Create"_s});
    EXPECT_TRUE(button(u"CommandCreate"_s).hasFocus());
    EXPECT_TRUE(message().text().isEmpty());
}

TEST_F(FormTestMessTest, ChoosingAMessageShowsItsTextAndNullAsNone) {
    open();
    pick(names(), u"LABEL"_s);
    EXPECT_EQ(script.statements.last(), selectPrompt(u"LABEL"_s));
    EXPECT_TRUE(message().text().isEmpty());
    EXPECT_EQ(enabled(), (QStringList{u"Create"_s, u"Delete"_s, u"Save"_s}));
    pick(names(), u"PERMIT"_s);
    EXPECT_EQ(message().text(), u"Get a permit."_s);
}

TEST_F(FormTestMessTest, AChangedTextEnablesCancel) {
    open();
    type(u"x"_s);
    EXPECT_EQ(enabled(), (QStringList{u"Create"_s, u"Delete"_s, u"Save"_s, u"Cancel"_s}));
    EXPECT_TRUE(script.statements.isEmpty());
}

TEST_F(FormTestMessTest, ChoosingWithUnsavedTextAsksAndNoStays) {
    open();
    type(u" Now."_s);
    expectDiscard(BoxAnswer::no);
    QTest::keyClick(&names(), Qt::Key_Down);
    simulatedOperator.waitUntilAllCame();
    EXPECT_EQ(names().currentText(), u"PERMIT"_s);
    EXPECT_EQ(message().text(), u"Get a permit. Now."_s);
    EXPECT_TRUE(script.statements.isEmpty());

    expectDiscard(BoxAnswer::yes);
    QTest::keyClick(&names(), Qt::Key_Down);
    simulatedOperator.waitUntilAllCame();
    EXPECT_EQ(names().currentText(), u"LABEL"_s);
    EXPECT_EQ(script.statements, (QStringList{selectNames, selectPrompt(u"LABEL"_s)}));
    EXPECT_TRUE(message().text().isEmpty());
}

TEST_F(FormTestMessTest, LettersInAnotherOrderAreNoChange) {
    setMessages({{u"M"_s, u"ab"_s}, {u"N"_s, {}}});
    open();
    message().selectAll();
    QTest::keyClicks(&message(), u"ba"_s);
    pick(names(), u"N"_s);
    EXPECT_EQ(names().currentText(), u"N"_s);
}

// Coming back into the text.

TEST_F(FormTestMessTest, ComingBackToUnsavedTextAsksEachTimeAndNoLeavesIt) {
    open();
    type(u" Now."_s);
    for (int time = 0; time < 2; ++time) {
        names().setFocus();
        expectDiscard(BoxAnswer::no);
        enterMessage();
        EXPECT_EQ(message().text(), u"Get a permit. Now."_s);
        EXPECT_TRUE(message().hasFocus());
    }
    EXPECT_TRUE(script.statements.isEmpty());
    // Typing on is no coming back.
    type(u" At once."_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(message().text(), u"Get a permit. Now. At once."_s);
}

TEST_F(FormTestMessTest, ComingBackToUnsavedTextAndYesReloadsTheMessage) {
    open();
    type(u" Now."_s);
    names().setFocus();
    expectDiscard(BoxAnswer::yes);
    enterMessage();
    EXPECT_EQ(script.statements, (QStringList{selectNames, selectPrompt(u"PERMIT"_s)}));
    EXPECT_EQ(message().text(), u"Get a permit."_s);
    EXPECT_FALSE(button(u"CommandCancel"_s).isEnabled());
}

TEST_F(FormTestMessTest, ComingBackByTabAsksToo) {
    open();
    type(u"x"_s);
    QTest::keyClick(&message(), Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_TRUE(names().hasFocus());
    expectDiscard(BoxAnswer::no);
    QTest::keyClick(&names(), Qt::Key_Tab);
    simulatedOperator.waitUntilAllCame();
    EXPECT_TRUE(message().hasFocus());
}

TEST_F(FormTestMessTest, ComingBackTwiceAtOnceIsAskedOnceWhenTheMessageIsReloaded) {
    open();
    type(u"x"_s);
    for (int time = 0; time < 2; ++time) {
        names().setFocus();
        message().setFocus();
    }
    expectDiscard(BoxAnswer::yes);
    simulatedOperator.waitUntilAllCame();
    QCoreApplication::processEvents();
    EXPECT_EQ(script.statements, (QStringList{selectNames, selectPrompt(u"PERMIT"_s)}));
}

TEST_F(FormTestMessTest, NothingIsAskedOnTheWayIntoSavedText) {
    open();
    enterMessage();
    type(u"x"_s);
    press(u"CommandSave"_s);
    enterMessage();
    EXPECT_EQ(message().text(), u"Get a permit.x"_s);
}

TEST_F(FormTestMessTest, ABoxOrAnotherProgramInBetweenIsNoComingBack) {
    open();
    type(u"x"_s);
    // The close question gives the focus back to the text, without a word.
    expectDiscard(BoxAnswer::no);
    form().close();
    QCoreApplication::processEvents();
    EXPECT_TRUE(message().hasFocus());
    QFocusEvent left(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QFocusEvent back(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
    QFocusEvent popup(QEvent::FocusIn, Qt::PopupFocusReason);
    for (auto* event : {&left, &back, &left, &popup})
        QApplication::sendEvent(&message(), event);
    QCoreApplication::processEvents();
    EXPECT_TRUE(simulatedOperator.hasMetAll());
}

TEST_F(FormTestMessTest, ComingBackFromAnotherWindowAsksToo) {
    open();
    type(u"x"_s);
    choose(u"mnuPrompts"_s);
    QCoreApplication::processEvents();
    choose(u"mnuConfiguration"_s);
    EXPECT_FALSE(message().hasFocus());
    expectDiscard(BoxAnswer::no);
    choose(u"mnuPrompts"_s);
    simulatedOperator.waitUntilAllCame();
    EXPECT_TRUE(message().hasFocus());
    EXPECT_EQ(message().text(), u"Get a permit.x"_s);
}

TEST_F(FormTestMessTest, WhileTheQuestionIsOpenNothingElseIsAsked) {
    open();
    type(u"x"_s);
    names().setFocus();
    simulatedOperator.expectBox(discardSinceSave, u"Kelvane"_s, box::warningYesNo,
                                [this](QMessageBox& shown) {
                                    form().close();
                                    names().setFocus();
                                    message().setFocus();
                                    button(u"CommandCancel"_s).click();
                                    button(u"CommandDelete"_s).click();
                                    QCoreApplication::processEvents();
                                    EXPECT_NE(findChild(u"FormTestMess"_s), nullptr);
                                    QTest::keyClick(&shown, Qt::Key_Escape);
                                });
    enterMessage();
    QCoreApplication::processEvents();
    EXPECT_TRUE(simulatedOperator.hasMetAll());
    EXPECT_EQ(message().text(), u"Get a permit.x"_s);
}

// Loading that fails.

TEST_F(FormTestMessTest, AFailureWhileOpeningOpensAnEmptyScreen) {
    script.failures.insert(selectNames, noTable);
    simulatedOperator.expectReport(208, u"FormTestMess,LoadPrompts"_s);
    open();
    EXPECT_EQ(enabled(), QStringList{u"Create"_s});
}

TEST_F(FormTestMessTest, AFailureWhileChoosingStaysWithTheMessageThatIsShown) {
    open();
    for (const auto& statement : {selectNames, selectPrompt(u"LABEL"_s)}) {
        script.failures = {{statement, noTable}};
        simulatedOperator.expectReport(208, u"FormTestMess,LoadPrompts"_s);
        QTest::keyClick(&names(), Qt::Key_Down);
        simulatedOperator.waitUntilAllCame();
        EXPECT_EQ(names().currentText(), u"PERMIT"_s);
        EXPECT_EQ(message().text(), u"Get a permit."_s);
        EXPECT_EQ(rows().size(), 2);
    }
}

TEST_F(FormTestMessTest, AMessageWithoutANameIsReported) {
    script.answers.insert(selectNames, {Row{std::nullopt}});
    simulatedOperator.expectReport(94, u"FormTestMess,LoadPrompts"_s);
    open();
    EXPECT_EQ(enabled(), QStringList{u"Create"_s});
}

TEST_F(FormTestMessTest, AMessageWithAnEmptyNameGivesWayToTheFirst) {
    setMessages({{u"PERMIT"_s, u"Get a permit."_s}, {u""_s, u"Nameless"_s}});
    open();
    EXPECT_EQ(names().currentText(), u"PERMIT"_s);
    QTest::keyClick(&names(), Qt::Key_Down);
    EXPECT_EQ(script.statements, (QStringList{selectNames, selectPrompt(u"PERMIT"_s)}));
    EXPECT_EQ(names().currentText(), u"PERMIT"_s);
    EXPECT_EQ(message().text(), u"Get a permit."_s);
}

TEST_F(FormTestMessTest, AMessageThatHasVanishedGivesWayToTheFirst) {
    open();
    pick(names(), u"LABEL"_s);
    type(u"x"_s);
    setMessages({{u"PERMIT"_s, u"Get a permit."_s}});
    simulatedOperator.expectBox(discardChanges, messagesTitle, box::question, BoxAnswer::yes);
    press(u"CommandCancel"_s);
    EXPECT_EQ(names().currentText(), u"PERMIT"_s);
    EXPECT_EQ(message().text(), u"Get a permit."_s);
}

// Cancelling and closing.

TEST_F(FormTestMessTest, CancelAsksAndReloads) {
    open();
    type(u"x"_s);
    simulatedOperator.expectBox(discardChanges, messagesTitle, box::question, BoxAnswer::no);
    press(u"CommandCancel"_s);
    EXPECT_EQ(message().text(), u"Get a permit.x"_s);
    simulatedOperator.expectBox(discardChanges, messagesTitle, box::question, BoxAnswer::yes);
    QTest::keyClick(&names(), Qt::Key_Escape);
    EXPECT_EQ(script.statements, (QStringList{selectNames, selectPrompt(u"PERMIT"_s)}));
    EXPECT_EQ(message().text(), u"Get a permit."_s);
    EXPECT_FALSE(button(u"CommandCancel"_s).isEnabled());
    QCoreApplication::processEvents();
    EXPECT_TRUE(simulatedOperator.hasMetAll());
}

TEST_F(FormTestMessTest, CancelWithoutAChangeDoesNothing) {
    open();
    type(u"x"_s);
    QTest::keyClick(&message(), Qt::Key_Backspace);
    press(u"CommandCancel"_s);
    EXPECT_TRUE(script.statements.isEmpty());
}

TEST_F(FormTestMessTest, CancellingANewMessageLeavesItWithoutAText) {
    open();
    expectName(u"NEW"_s);
    press(u"CommandCreate"_s);
    type(u"Not yet"_s);
    setMessages({{u"PERMIT"_s, {}}, {u"NEW"_s, {}}});
    script.statements.clear();
    simulatedOperator.expectBox(discardChanges, messagesTitle, box::question, BoxAnswer::yes);
    press(u"CommandCancel"_s);
    EXPECT_EQ(script.statements, (QStringList{selectNames, selectPrompt(u"NEW"_s)}));
    EXPECT_EQ(names().currentText(), u"NEW"_s);
    EXPECT_TRUE(message().text().isEmpty());
}

TEST_F(FormTestMessTest, ReturnSavesExceptInTheTextWhereItBreaksTheLine) {
    open();
    type(u"x"_s);
    QTest::keyClick(&message(), Qt::Key_Return);
    EXPECT_TRUE(script.statements.isEmpty());
    EXPECT_EQ(message().text(), u"Get a permit.x\r\n"_s);
    names().setFocus();
    QTest::keyClick(&names(), Qt::Key_Return);
    EXPECT_EQ(script.statements, QStringList{updatePrompt(u"'Get a permit.x\r\n'"_s, u"PERMIT"_s)});
}

TEST_F(FormTestMessTest, ClosingWithUnsavedTextAsksAndNoKeepsItOpen) {
    open();
    type(u"x"_s);
    expectDiscard(BoxAnswer::no);
    form().close();
    EXPECT_TRUE(isWindowOpen(session, u"FormTestMess"));
    expectDiscard(BoxAnswer::yes);
    form().close();
    EXPECT_FALSE(isWindowOpen(session, u"FormTestMess"));
    EXPECT_TRUE(settings.writes.contains(u"Left/FormTestMess=105"_s));
    EXPECT_TRUE(settings.writes.contains(u"Top/FormTestMess=75"_s));
    EXPECT_TRUE(script.statements.isEmpty());
}

TEST_F(FormTestMessTest, ClosingWithoutAChangeAsksNothing) {
    open();
    form().close();
    EXPECT_EQ(findChild(u"FormTestMess"_s), nullptr);
}

TEST_F(FormTestMessTest, TenThousandMessagesOpenAtOnce) {
    QList<Message> many;
    for (int i = 0; i < 10000; ++i)
        many << Message{u"MESSAGE %1"_s.arg(i), {}};
    setMessages(many);
    open();
    EXPECT_EQ(names().count(), 10000);
    EXPECT_EQ(form().width(), 320);
}

} // namespace kelvane::testing
