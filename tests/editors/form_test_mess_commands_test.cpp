#include "editors/form_test_mess.h"

#include "tests/editors/message_screen.h"
#include "ui/form_custom_dialog.h"
#include "ui/list_rows.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMessageBox>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString deletion = u"Are you sure you want to delete the selected test message?"_s;
const QString inUse = u"This test message is configured for use by one or more instruments. Are you sure you "
                      "want to delete this test message?"_s;

QString selectUse(const QString& name) {
    return u"select mtag from mt.hvm_kv_proc_prompts where pname = '"_s + name + u'\'';
}

QString deleteMessage(const QString& name) {
    return u"delete from mt.hvm_kv_proc_prompts where pname = '"_s + name +
           u"';delete from mt.hvm_kv_prompts where pname = '"_s + name + u"';commit"_s;
}

QString selectTaken(const QString& name) {
    return u"select pname from mt.hvm_kv_prompts where pname = '"_s + name + u'\'';
}

QString insertMessage(const QString& name) {
    return u"insert into mt.hvm_kv_prompts (pname) values ('"_s + name + u"');commit"_s;
}

const Error noTable{208, u"no such table"_s};

} // namespace

/// What the buttons of the editor of test messages do.
class MessageCommands : public MessageScreen {};

// New messages.

TEST_F(MessageCommands, ANewMessageIsInTheDatabaseBeforeItsTextIs) {
    open();
    expectName(u"O'Brien"_s);
    press(u"CommandCreate"_s);
    EXPECT_EQ(script.statements, (QStringList{selectTaken(u"O''Brien"_s), insertMessage(u"O''Brien"_s)}));
    EXPECT_EQ(rows(), (QStringList{u"PERMIT"_s, u"LABEL"_s, u"O'Brien"_s}));
    EXPECT_EQ(names().currentText(), u"O'Brien"_s);
    EXPECT_TRUE(message().text().isEmpty());
    EXPECT_TRUE(message().hasFocus());
    QCoreApplication::processEvents();
    form().close();
    EXPECT_EQ(findChild(u"FormTestMess"_s), nullptr);
}

TEST_F(MessageCommands, ANewMessageEnablesCancelWhereItClearsAText) {
    open();
    expectName(u"NEW"_s);
    press(u"CommandCreate"_s);
    EXPECT_TRUE(button(u"CommandCancel"_s).isEnabled());
    press(u"CommandCancel"_s);
    expectName(u"NEXT"_s);
    press(u"CommandSave"_s);
    press(u"CommandCreate"_s);
    EXPECT_FALSE(button(u"CommandCancel"_s).isEnabled());
}

TEST_F(MessageCommands, ANewMessageIsTheOneThatARefusedChoiceComesBackTo) {
    open();
    expectName(u"NEW"_s);
    press(u"CommandCreate"_s);
    type(u"x"_s);
    expectDiscard(BoxAnswer::no);
    QTest::keyClick(&names(), Qt::Key_Up);
    simulatedOperator.waitUntilAllCame();
    EXPECT_EQ(names().currentText(), u"NEW"_s);
    EXPECT_EQ(message().text(), u"x"_s);
}

TEST_F(MessageCommands, TheFirstMessageOfAllMakesSavingPossible) {
    setMessages({});
    open();
    expectName(u"FIRST"_s);
    press(u"CommandCreate"_s);
    EXPECT_EQ(enabled(), (QStringList{u"Create"_s, u"Delete"_s, u"Save"_s}));
    type(u"Text"_s);
    press(u"CommandSave"_s);
    EXPECT_EQ(script.statements.last(), updatePrompt(u"'Text'"_s, u"FIRST"_s));
}

TEST_F(MessageCommands, TheNameOfANewMessageHasNoLimitInSpiteOfThePrompt) {
    open();
    const auto name = u"N"_s.repeated(31);
    simulatedOperator.expectDialog(
        u"Add Test Message"_s, u"Enter a name for the new test message: (30 characters max)"_s,
        [&](FormCustomDialog& dialog) {
            EXPECT_GT(control<QLineEdit>(dialog, u"TextCustomDialog"_s).maxLength(), 1000000);
            answerDialog(dialog, name);
        });
    press(u"CommandCreate"_s);
    EXPECT_EQ(names().currentText(), name);
}

TEST_F(MessageCommands, AnExistingNameIsReportedAndAskedForAgain) {
    open();
    script.answers.insert(selectTaken(u"LABEL"_s), {Row{u"LABEL"_s}});
    expectName(u"LABEL"_s);
    simulatedOperator.expectBox(u"Test Message already exists!"_s, u"Add Test Message"_s, box::warning);
    expectName(u"LABEL 2"_s);
    press(u"CommandCreate"_s);
    EXPECT_EQ(script.statements,
              (QStringList{selectTaken(u"LABEL"_s), selectTaken(u"LABEL 2"_s), insertMessage(u"LABEL 2"_s)}));
}

TEST_F(MessageCommands, ACancelledNameChangesNothing) {
    open();
    cancelDialog();
    press(u"CommandCreate"_s);
    EXPECT_TRUE(script.statements.isEmpty());
    EXPECT_EQ(rows().size(), 2);
    EXPECT_TRUE(button(u"CommandCreate"_s).hasFocus());
    EXPECT_TRUE(message().isEnabled());
}

TEST_F(MessageCommands, CreatingWithUnsavedTextAsksFirst) {
    open();
    type(u"x"_s);
    expectDiscard(BoxAnswer::no);
    press(u"CommandCreate"_s);
    EXPECT_EQ(message().text(), u"Get a permit.x"_s);
    expectDiscard(BoxAnswer::yes);
    cancelDialog();
    press(u"CommandCreate"_s);
    // Nothing was put in its place: the text is still there.
    EXPECT_EQ(message().text(), u"Get a permit.x"_s);
    expectDiscard(BoxAnswer::yes);
    expectName(u"NEW"_s);
    press(u"CommandCreate"_s);
    EXPECT_TRUE(message().text().isEmpty());
}

TEST_F(MessageCommands, WhileTheNameIsAskedTheScreenIsDisabledAndStaysOpen) {
    open();
    simulatedOperator.expectDialog(u"Add Test Message"_s,
                                   u"Enter a name for the new test message: (30 characters max)"_s,
                                   [this](FormCustomDialog& dialog) {
                                       EXPECT_FALSE(message().isEnabled());
                                       EXPECT_FALSE(names().isEnabled());
                                       form().close();
                                       choose(u"mnuPrompts"_s);
                                       EXPECT_EQ(openChildren().count(u"FormTestMess"_s), 1);
                                       // The rest of the program stays reachable.
                                       choose(u"mnuConfiguration"_s);
                                       child(u"FormCalConfig"_s).close();
                                       answerDialog(dialog, u"NEW"_s);
                                   });
    press(u"CommandCreate"_s);
    EXPECT_EQ(names().currentText(), u"NEW"_s);
    EXPECT_TRUE(message().hasFocus());
}

TEST_F(MessageCommands, AFailureOfEitherStatementOfANewMessageLeavesTheScreen) {
    open();
    for (const auto& statement : {selectTaken(u"NEW"_s), insertMessage(u"NEW"_s)}) {
        script.failures = {{statement, noTable}};
        expectName(u"NEW"_s);
        simulatedOperator.expectReport(208, u"FormTestMess,CommandCreate"_s);
        press(u"CommandCreate"_s);
        EXPECT_EQ(rows().size(), 2);
        EXPECT_EQ(message().text(), u"Get a permit."_s);
        EXPECT_FALSE(QApplication::overrideCursor());
    }
}

/// The parameter editor, as far as the messages concern it.
class OpenParameters final : public OpenCalParam {
  public:
    QString strategy() const override { return {}; }
    void addStrategy(const QString&) override {}
    void renameStrategy(const QString&, const QString&) override {}
    void addMessage(const QString& name) override { added << name; }
    QStringList added;
};

TEST_F(MessageCommands, TheOpenParameterEditorIsNotifiedOfEachNewMessage) {
    OpenParameters parameters;
    bool isOpen = true;
    auto* made = new FormTestMess(session, [&] { return isOpen ? &parameters : nullptr; });
    made->showIn(program.window.area());
    expectName(u"NEW"_s);
    press(u"CommandCreate"_s);
    EXPECT_EQ(parameters.added, QStringList{u"NEW"_s});
    cancelDialog();
    press(u"CommandCreate"_s);
    isOpen = false;
    expectName(u"NEXT"_s);
    press(u"CommandCreate"_s);
    isOpen = true;
    script.failures.insert(insertMessage(u"THIRD"_s), noTable);
    expectName(u"THIRD"_s);
    simulatedOperator.expectReport(208, u"FormTestMess,CommandCreate"_s);
    press(u"CommandCreate"_s);
    EXPECT_EQ(parameters.added, QStringList{u"NEW"_s});
    made->unload();
}

TEST_F(MessageCommands, FromTheMenuBothEditorsFollowEachOther) {
    script.answers.insert(u"select count(tp_name) from mt.hvm_kv_proc_points"_s, {Row{u"1"_s}});
    script.answers.insert(u"select mtag from MT.inventory where i4201 = 'PT-1001'"_s, {Row{u"17"_s}});
    simulatedOperator.expectDialog(u"Calibration Parameters"_s, u"Enter instrument number:"_s, u"PT-1001"_s);
    choose(u"mnuCalParameters"_s);
    open();
    expectName(u"NEW"_s);
    press(u"CommandCreate"_s);
    for (const auto& list : {u"ListPreAvail"_s, u"ListPostAvail"_s})
        EXPECT_EQ(rowsOf(control<QListWidget>(child(u"FormCalParam"_s), list)), QStringList{u"NEW"_s});
    child(u"FormCalParam"_s).close();
    expectName(u"NEXT"_s);
    press(u"CommandCreate"_s);
    EXPECT_EQ(names().currentText(), u"NEXT"_s);
}

// Saving.

TEST_F(MessageCommands, SavingStoresTheTextWithItsQuotesDoubled) {
    open();
    type(u" It's \"so\"; 100%"_s);
    press(u"CommandSave"_s);
    EXPECT_EQ(script.statements,
              QStringList{updatePrompt(u"'Get a permit. It''s \"so\"; 100%'"_s, u"PERMIT"_s)});
    EXPECT_EQ(enabled(), (QStringList{u"Create"_s, u"Delete"_s, u"Save"_s}));
    EXPECT_FALSE(QApplication::overrideCursor());
    form().close();
    EXPECT_EQ(findChild(u"FormTestMess"_s), nullptr);
}

TEST_F(MessageCommands, SavingAnEmptyTextStoresNull) {
    open();
    message().selectAll();
    QTest::keyClick(&message(), Qt::Key_Delete);
    press(u"CommandSave"_s);
    EXPECT_EQ(script.statements, QStringList{updatePrompt(u"NULL"_s, u"PERMIT"_s)});
}

TEST_F(MessageCommands, LineBreaksAreCarriageReturnAndLineFeed) {
    setMessages({{u"M"_s, u"one\r\ntwo"_s}});
    open();
    EXPECT_EQ(message().text(), u"one\r\ntwo"_s);
    type({});
    QTest::keyClick(&message(), Qt::Key_Return);
    QTest::keyClicks(&message(), u"three"_s);
    press(u"CommandSave"_s);
    EXPECT_EQ(script.statements, QStringList{updatePrompt(u"'one\r\ntwo\r\nthree'"_s, u"M"_s)});
}

TEST_F(MessageCommands, AnyTextIsSavedAsItStands) {
    for (const auto& text : {u"Проверка"_s, u"校正"_s, u"\U0001F527 µ Ω °C"_s, u"no\u00a0break"_s, u"a\tb"_s,
                             u"''"_s, u"long "_s.repeated(210000)}) {
        open();
        message().setFocus(Qt::ActiveWindowFocusReason);
        QGuiApplication::clipboard()->setText(text);
        message().selectAll();
        QTest::keyClick(&message(), Qt::Key_V, Qt::ControlModifier);
        press(u"CommandSave"_s);
        EXPECT_EQ(script.statements.last(),
                  updatePrompt(u'\'' + QString(text).replace(u'\'', u"''"_s) + u'\'', u"PERMIT"_s))
            << text.left(20).toStdString();
        form().close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

TEST_F(MessageCommands, ANameWithAQuotePassesAddAndDeleteAndFailsAtSave) {
    setMessages({{u"O'Brien"_s, u"Text"_s}});
    open();
    EXPECT_EQ(message().text(), u"Text"_s);
    type(u"x"_s);
    script.statements.clear();
    simulatedOperator.expectReport(1, u"FormTestMess,CommandSave"_s);
    press(u"CommandSave"_s);
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_TRUE(names().hasFocus());
    EXPECT_EQ(message().text(), u"Textx"_s);
    EXPECT_TRUE(button(u"CommandCancel"_s).isEnabled());
    EXPECT_FALSE(QApplication::overrideCursor());

    expectDiscard(BoxAnswer::yes);
    press(u"CommandDelete"_s);
    EXPECT_TRUE(script.statements.contains(deleteMessage(u"O''Brien"_s)));
}

TEST_F(MessageCommands, AfterALostConnectionTheTextIsStillThere) {
    open();
    type(u"x"_s);
    script.lost = true;
    simulatedOperator.expectReport(10054, u"FormTestMess,CommandSave"_s);
    press(u"CommandSave"_s);
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_EQ(message().text(), u"Get a permit.x"_s);
    // It is still unsaved.
    expectDiscard(BoxAnswer::no);
    form().close();
    EXPECT_NE(findChild(u"FormTestMess"_s), nullptr);
}

// Deleting.

TEST_F(MessageCommands, DeletingAsksAndShowsTheFirstMessage) {
    open();
    pick(names(), u"LABEL"_s);
    script.statements.clear();
    simulatedOperator.expectBox(deletion, messagesTitle, box::question, BoxAnswer::no);
    press(u"CommandDelete"_s);
    EXPECT_TRUE(script.statements.isEmpty());

    simulatedOperator.expectBox(deletion, messagesTitle, box::question, [this](QMessageBox& shown) {
        setMessages({{u"PERMIT"_s, u"Get a permit."_s}});
        click(*shown.buttons().first());
    });
    press(u"CommandDelete"_s);
    EXPECT_EQ(script.statements, (QStringList{selectUse(u"LABEL"_s), deleteMessage(u"LABEL"_s), selectNames,
                                              selectPrompt(u"PERMIT"_s)}));
    EXPECT_EQ(rows(), QStringList{u"PERMIT"_s});
    EXPECT_EQ(message().text(), u"Get a permit."_s);
}

TEST_F(MessageCommands, DeletingTheLastMessageDisablesAllButAdding) {
    setMessages({{u"LABEL"_s, u"x"_s}});
    open();
    simulatedOperator.expectBox(deletion, messagesTitle, box::question, [this](QMessageBox& shown) {
        setMessages({});
        click(*shown.buttons().first());
    });
    press(u"CommandDelete"_s);
    EXPECT_EQ(enabled(), QStringList{u"Create"_s});
    EXPECT_TRUE(rows().isEmpty());
    EXPECT_TRUE(message().text().isEmpty());
}

TEST_F(MessageCommands, UnsavedTextReplacesTheQuestionAboutDeletion) {
    open();
    pick(names(), u"LABEL"_s);
    type(u"x"_s);
    script.statements.clear();
    expectDiscard(BoxAnswer::no);
    press(u"CommandDelete"_s);
    EXPECT_TRUE(script.statements.isEmpty());
    expectDiscard(BoxAnswer::yes);
    press(u"CommandDelete"_s);
    EXPECT_EQ(script.statements.value(1), deleteMessage(u"LABEL"_s));
    // The first one is shown, also where another workstation has made the deleted one anew.
    EXPECT_EQ(names().currentText(), u"PERMIT"_s);
}

TEST_F(MessageCommands, AMessageInUseIsDeletedAfterOneMoreQuestion) {
    open();
    script.answers.insert(selectUse(u"PERMIT"_s), {Row{u"17"_s}});
    simulatedOperator.expectBox(deletion, messagesTitle, box::question, BoxAnswer::yes);
    simulatedOperator.expectBox(inUse, messagesTitle, box::warningYesNo, BoxAnswer::no);
    press(u"CommandDelete"_s);
    EXPECT_EQ(script.statements, QStringList{selectUse(u"PERMIT"_s)});
    EXPECT_TRUE(script.firstRowOnly.contains(selectUse(u"PERMIT"_s)));

    simulatedOperator.expectBox(deletion, messagesTitle, box::question, BoxAnswer::yes);
    simulatedOperator.expectBox(inUse, messagesTitle, box::warningYesNo, BoxAnswer::yes);
    press(u"CommandDelete"_s);
    EXPECT_EQ(script.statements.value(2), deleteMessage(u"PERMIT"_s));
}

TEST_F(MessageCommands, AFailureOfEitherStatementOfADeletionLeavesTheScreen) {
    open();
    for (const auto& statement : {selectUse(u"PERMIT"_s), deleteMessage(u"PERMIT"_s)}) {
        script.failures = {{statement, noTable}};
        simulatedOperator.expectBox(deletion, messagesTitle, box::question, BoxAnswer::yes);
        simulatedOperator.expectReport(208, u"FormTestMess,CommandDelete"_s);
        press(u"CommandDelete"_s);
        EXPECT_EQ(rows().size(), 2);
        EXPECT_EQ(message().text(), u"Get a permit."_s);
    }
}

TEST_F(MessageCommands, BlanksForANameCancelTheQuestion) {
    open();
    expectName(u"   "_s);
    press(u"CommandCreate"_s);
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_EQ(rows().size(), 2);
}

} // namespace kelvane::testing
