#include "procedures/test_messages.h"

#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const auto selectNames = u"select pname from mt.hvm_kv_prompts"_s;
const auto selectText = u"select prompt from mt.hvm_kv_prompts where pname = 'O''B'"_s;
const auto selectTaken = u"select pname from mt.hvm_kv_prompts where pname = 'O''B'"_s;
const auto selectUses = u"select mtag from mt.hvm_kv_proc_prompts where pname = 'O''B'"_s;
const auto insertName = u"insert into mt.hvm_kv_prompts (pname) values ('O''B');commit"_s;
const auto updateText = u"update mt.hvm_kv_prompts set prompt = 'It''s' where pname = 'LABEL';commit"_s;
const auto deleteBoth = u"delete from mt.hvm_kv_proc_prompts where pname = 'O''B';delete from "
                        "mt.hvm_kv_prompts where pname = 'O''B';commit"_s;

} // namespace

class TestMessages : public RecordedSession {
  protected:
    TestMessages() { script.answers[selectNames] = {{u"LABEL"_s}, {u"O'B"_s}}; }
};

TEST_F(TestMessages, LoadingReadsTheNamesAndTheTextOfTheOneThatWasAskedFor) {
    script.answers[selectText] = {{u"Get a permit."_s}};
    const auto list = loadMessages(session, u"O'B"_s);
    ASSERT_TRUE(list);
    EXPECT_EQ(list->names, (QStringList{u"LABEL"_s, u"O'B"_s}));
    EXPECT_EQ(list->shown.name, u"O'B"_s);
    EXPECT_EQ(list->shown.prompt, u"Get a permit."_s);
    EXPECT_EQ(script.statements, (QStringList{selectNames, selectText}));
}

TEST_F(TestMessages, LoadingAVanishedNameGivesTheFirstOneWhoseNullReadsAsEmpty) {
    script.answers[u"select prompt from mt.hvm_kv_prompts where pname = 'LABEL'"_s] = {{std::nullopt}};
    const auto list = loadMessages(session, u"GONE"_s);
    ASSERT_TRUE(list);
    EXPECT_EQ(list->shown.name, u"LABEL"_s);
    EXPECT_EQ(list->shown.prompt, QString());
}

TEST_F(TestMessages, LoadingWithoutAnyReadsNoText) {
    script.answers.clear();
    const auto list = loadMessages(session, {});
    ASSERT_TRUE(list);
    EXPECT_EQ(list->shown.name, QString());
    EXPECT_EQ(script.statements, QStringList{selectNames});
}

TEST_F(TestMessages, LoadingThatFailsAtEitherStatementGivesNothingAndIsReported) {
    for (const auto& statement : {selectNames, selectText}) {
        script.failures = {{statement, Error{-210, u"Locked"_s}}};
        ui.expectReport(-210, u"FormTestMess,LoadPrompts"_s);
        EXPECT_FALSE(loadMessages(session, u"O'B"_s));
    }
}

TEST_F(TestMessages, ANewOneIsStoredUnderAFreeNameWithoutAText) {
    const auto title = u"Add Test Message"_s;
    const auto prompt = u"Enter a name for the new test message: (30 characters max)"_s;
    ui.expectDialog(title, prompt, u"O'B"_s,
                    [](const DialogQuestion& question) { EXPECT_EQ(question.maxLength, 0); });
    EXPECT_EQ(askMessageName(session), u"O'B"_s);
    EXPECT_TRUE(createMessage(session, u"O'B"_s));
    EXPECT_EQ(script.statements, (QStringList{selectTaken, insertName}));
    script.failures[insertName] = Error{-210, u"Locked"_s};
    ui.expectReport(-210, u"FormTestMess,CommandCreate"_s);
    EXPECT_FALSE(createMessage(session, u"O'B"_s));
}

TEST_F(TestMessages, SavingStoresTheTextAndAnEmptyOneAsNull) {
    EXPECT_FALSE(saveMessage(session, {u"LABEL"_s, u"It's"_s}));
    EXPECT_FALSE(saveMessage(session, {u"LABEL"_s}));
    EXPECT_EQ(script.statements,
              (QStringList{updateText,
                           u"update mt.hvm_kv_prompts set prompt = NULL where pname = 'LABEL';commit"_s}));
    EXPECT_EQ(script.transactions, (QStringList{u"begin"_s, u"commit"_s, u"begin"_s, u"commit"_s}));
}

TEST_F(TestMessages, SavingOneThatVanishedIsRolledBackWithoutAReport) {
    script.changedRows[updateText] = 0;
    const auto failure = saveMessage(session, {u"LABEL"_s, u"It's"_s});
    ASSERT_TRUE(failure);
    EXPECT_TRUE(failure->vanished);
    EXPECT_EQ(script.transactions, (QStringList{u"begin"_s, u"roll back"_s}));
}

TEST_F(TestMessages, SavingUnderANameThatEndsItsQuotesSendsNothing) {
    ui.expectReport(1, u"FormTestMess,CommandSave"_s);
    const auto failure = saveMessage(session, {u"O'B"_s, u"Text"_s});
    ASSERT_TRUE(failure);
    EXPECT_FALSE(failure->vanished);
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(TestMessages, OneThatNoInstrumentUsesIsDeletedWithoutAQuestion) {
    EXPECT_TRUE(deleteMessage(session, u"O'B"_s));
    EXPECT_EQ(script.statements, (QStringList{selectUses, deleteBoth}));
}

TEST_F(TestMessages, OneInUseIsDeletedOnceItIsConfirmed) {
    const auto question = text(TextId::confirmUsedMessageDeletion);
    script.answers[selectUses] = {{u"1"_s}};
    ui.expectBox(question, u"Create/Edit Test Messages"_s, box::warningYesNo, BoxAnswer::no);
    EXPECT_FALSE(deleteMessage(session, u"O'B"_s));
    EXPECT_EQ(script.statements, QStringList{selectUses});
    ui.expectBox(question, u"Create/Edit Test Messages"_s, box::warningYesNo, BoxAnswer::yes);
    EXPECT_TRUE(deleteMessage(session, u"O'B"_s));
    script.failures[selectUses] = Error{-210, u"Locked"_s};
    ui.expectReport(-210, u"FormTestMess,CommandDelete"_s);
    EXPECT_FALSE(deleteMessage(session, u"O'B"_s));
}

} // namespace kelvane::testing
