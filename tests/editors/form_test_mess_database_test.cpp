#include "data/parameters/cal_params.h"
#include "editors/cal_param/form_cal_param.h"
#include "editors/form_test_mess.h"
#include "testkit/screen_on_database.h"
#include "ui/list_rows.h"
#include "ui/open_windows.h"
#include "ui/text_box.h"

#include <QComboBox>
#include <QListWidget>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString title = u"Create/Edit Test Messages"_s;
const QString deletion = u"Are you sure you want to delete the selected test message?"_s;
const QString inUse = u"This test message is configured for use by one or more instruments. Are you sure you "
                      "want to delete this test message?"_s;
const QString vanished = u"This test message does not exist any more: it may have been removed on another "
                         "workstation. Nothing was saved; what you entered is still on the screen."_s;

} // namespace

/// The editor of test messages on the demonstration data.
class FormTestMessOnDatabase : public ScreenOnDatabase<FormTestMess> {
  protected:
    FormTestMessOnDatabase() {
        open(session, [] { return static_cast<OpenCalParam*>(nullptr); });
    }
    QComboBox& names() { return controlNamed<QComboBox>(u"ComboMessageName"_s); }
    TextBox& message() { return controlNamed<TextBox>(u"TextMessage"_s); }
    QStringList promptOf(const QString& name) {
        return values(u"select prompt from mt.hvm_kv_prompts where pname = '"_s + name + u'\'');
    }
    void create(const QString& name) {
        ui.expectDialog(u"Add Test Message"_s,
                        u"Enter a name for the new test message: (30 characters max)"_s, name);
        press(u"CommandCreate"_s);
    }
};

TEST_F(FormTestMessOnDatabase, ShowsEveryMessage) {
    QStringList rows;
    for (int i = 0; i < names().count(); ++i) {
        pick(names(), names().itemText(i));
        rows << names().currentText();
        EXPECT_EQ(message().text(), promptOf(rows.last()).first().replace(u"(null)"_s, QString()));
    }
    rows.sort();
    EXPECT_EQ(rows, values(u"select pname from mt.hvm_kv_prompts"_s));
}

TEST_F(FormTestMessOnDatabase, AMessageIsMadeWrittenUsedAndRead) {
    create(u"WEAR GLOVES"_s);
    EXPECT_EQ(promptOf(u"WEAR GLOVES"_s), QStringList{u"(null)"_s});
    message().setPlainText(u"Wear gloves; it's hot.\nΩ 校正"_s);
    press(u"CommandSave"_s);
    EXPECT_EQ(promptOf(u"WEAR GLOVES"_s), QStringList{u"Wear gloves; it's hot.\r\nΩ 校正"_s});

    execute(
        u"insert into mt.hvm_kv_proc_prompts (mtag,prompt_type,prompt_seq,pname) values ((select mtag from "
        "MT.inventory where i4201 = 'UC-901'),'PRE',9,'WEAR GLOVES');commit"_s);
    const auto prompts = ModuleGlobals::GetPrompts(session, u"UC-901"_s, 0, QString());
    ASSERT_FALSE(prompts.isEmpty());
    EXPECT_EQ(prompts.last().pname, u"WEAR GLOVES"_s);
    EXPECT_EQ(prompts.last().prompt, u"Wear gloves; it's hot.\r\nΩ 校正"_s);
}

TEST_F(FormTestMessOnDatabase, AnEmptyTextIsStoredAsNull) {
    pick(names(), u"PERMIT"_s);
    message().setPlainText({});
    ui.events.clear();
    press(u"CommandSave"_s);
    // The sum of a text has an hourglass of its own.
    EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"busy"_s, u"normal"_s, u"normal"_s}));
    EXPECT_EQ(promptOf(u"PERMIT"_s), QStringList{u"(null)"_s});
}

TEST_F(FormTestMessOnDatabase, ANewMessageThatIsCancelledStaysWithoutAText) {
    create(u"NEW"_s);
    message().setPlainText(u"Not saved"_s);
    ui.expectBox(u"Are you sure you want to discard changes made?"_s, title, box::question, BoxAnswer::yes);
    press(u"CommandCancel"_s);
    EXPECT_EQ(promptOf(u"NEW"_s), QStringList{u"(null)"_s});
    EXPECT_EQ(names().currentText(), u"NEW"_s);
}

TEST_F(FormTestMessOnDatabase, DeletingAMessageInUseRemovesItFromEveryInstrument) {
    const auto others = values(u"select pname from mt.hvm_kv_proc_prompts where pname <> 'LABEL'"_s);
    ASSERT_FALSE(values(u"select mtag from mt.hvm_kv_proc_prompts where pname = 'LABEL'"_s).isEmpty());
    pick(names(), u"LABEL"_s);
    ui.expectBox(deletion, title, box::question, BoxAnswer::yes);
    ui.expectBox(inUse, title, box::warningYesNo, BoxAnswer::yes);
    press(u"CommandDelete"_s);
    EXPECT_TRUE(promptOf(u"LABEL"_s).isEmpty());
    EXPECT_EQ(values(u"select pname from mt.hvm_kv_proc_prompts"_s), others);
    EXPECT_EQ(names().findText(u"LABEL"_s), -1);
}

TEST_F(FormTestMessOnDatabase, ANameWithAQuoteIsAddedAndDeletedAndCantBeSaved) {
    create(u"O'BRIEN"_s);
    EXPECT_EQ(promptOf(u"O''BRIEN"_s), QStringList{u"(null)"_s});
    message().setPlainText(u"Text"_s);
    ui.expectReport(1, u"FormTestMess,CommandSave"_s);
    press(u"CommandSave"_s);
    EXPECT_EQ(message().text(), u"Text"_s);
    EXPECT_EQ(promptOf(u"O''BRIEN"_s), QStringList{u"(null)"_s});
    ui.expectBox(u"Are you sure you want to discard any changes made since last save?"_s, u"Kelvane"_s,
                 box::warningYesNo, BoxAnswer::yes);
    press(u"CommandDelete"_s);
    EXPECT_TRUE(promptOf(u"O''BRIEN"_s).isEmpty());
}

TEST_F(FormTestMessOnDatabase, ANewMessageCanBeChosenAtOnceInTheOpenParameterEditor) {
    auto* parameters = new FormCalParam(session);
    parameters->showIn(area());
    ui.expectDialog(u"Calibration Parameters"_s, u"Enter instrument number:"_s, u"PT-101"_s);
    parameters->chooseFirst();
    form().unload();
    open(session, [&] { return parameters; });
    create(u"WEAR GLOVES"_s);
    for (const auto& list : {u"ListPreAvail"_s, u"ListPostAvail"_s})
        EXPECT_EQ(rowsOf(control<QListWidget>(*parameters, list)).last(), u"WEAR GLOVES"_s);
    // It is no change of the instrument.
    parameters->close();
    EXPECT_FALSE(isWindowOpen(session, u"FormCalParam"));
}

TEST_F(FormTestMessOnDatabase, WhatAnotherWorkstationWroteIsOverwrittenByTheLaterSave) {
    pick(names(), u"PERMIT"_s);
    execute(u"update mt.hvm_kv_prompts set prompt = 'Theirs' where pname = 'PERMIT';commit"_s);
    message().setPlainText(u"Ours"_s);
    press(u"CommandSave"_s);
    EXPECT_EQ(promptOf(u"PERMIT"_s), QStringList{u"Ours"_s});
}

TEST_F(FormTestMessOnDatabase, AMessageDeletedByAnotherWorkstationIsNotRestoredByASave) {
    pick(names(), u"NOT WRITTEN YET"_s);
    execute(u"delete from mt.hvm_kv_prompts where pname = 'NOT WRITTEN YET';commit"_s);
    message().setPlainText(u"Written"_s);
    ui.expectBox(vanished, title, box::warning);
    press(u"CommandSave"_s);
    EXPECT_TRUE(promptOf(u"NOT WRITTEN YET"_s).isEmpty());
    EXPECT_EQ(message().text(), u"Written"_s);
    // The text is not saved, and whatever would drop it asks.
    EXPECT_TRUE(control<QPushButton>(form(), u"CommandCancel"_s).isEnabled());
    const auto discard = [this](BoxAnswer answer) {
        ui.expectBox(u"Are you sure you want to discard any changes made since last save?"_s, u"Kelvane"_s,
                     box::warningYesNo, answer);
    };
    discard(BoxAnswer::no);
    form().close();
    EXPECT_TRUE(form().isOpen());
    // The next query of the list shows that it has gone.
    discard(BoxAnswer::yes);
    pick(names(), names().itemText(0));
    EXPECT_EQ(names().findText(u"NOT WRITTEN YET"_s), -1);
}

TEST_F(FormTestMessOnDatabase, AMessageAddedByAnotherWorkstationIsNotAddedTwice) {
    execute(u"insert into mt.hvm_kv_prompts (pname) values ('THEIRS');commit"_s);
    ui.expectDialog(u"Add Test Message"_s, u"Enter a name for the new test message: (30 characters max)"_s,
                    u"THEIRS"_s);
    ui.expectBox(u"Test Message already exists!"_s, u"Add Test Message"_s, box::warning);
    ui.expectDialog(u"Add Test Message"_s, u"Enter a name for the new test message: (30 characters max)"_s,
                    u"*CANCEL*"_s);
    press(u"CommandCreate"_s);
    EXPECT_EQ(values(u"select pname from mt.hvm_kv_prompts where pname = 'THEIRS'"_s).size(), 1);
}

} // namespace kelvane::testing
