#include "tests/editors/cal_param/cal_param_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class CalParamClone : public CalParamFixture {
  protected:
    CalParamClone() { makeReady(); }

    static constexpr auto title = "Calibration Parameters";
    void expectQuestion(const QString& answer) {
        ui.expectDialog(QString::fromLatin1(title), u"Enter instrument number:"_s, answer,
                        [](const DialogQuestion& question) {
                            EXPECT_TRUE(question.required);
                            EXPECT_FALSE(question.fromList);
                            EXPECT_EQ(question.maxLength, 0);
                            EXPECT_EQ(question.fieldType, 0);
                            EXPECT_EQ(question.defaultText, QString());
                        });
    }
    void expectUnknown(BoxAnswer answer) {
        ui.expectBox(u"Must enter a valid instrument number!"_s, QString::fromLatin1(title),
                     box::warningRetryCancel, answer);
    }
    void expectOverwrite(BoxAnswer answer) {
        ui.expectBox(u"This instrument already has configuration data! Do you want to overwrite existing "
                     u"configuration data?"_s,
                     QString::fromLatin1(title), box::warningYesNo, answer);
    }
    void clone() { screen.press(u"CommandClone"_s); }
    QString windowTitle() { return screen.form().windowTitle(); }
    /// The instrument whose parameters the first statement deletes.
    bool deletesFor(const QString& asset) const {
        return writes().value(0).startsWith(u"delete from mt.hvm_kv_tag_config where mtag = "_s + key(asset));
    }
};

TEST_F(CalParamClone, StoresTheScreenForAnotherInstrumentAndMakesThatTheCurrentOne) {
    screen.set(u"TextInputHigh"_s, u"250"_s);
    expectQuestion(u"PT-2"_s);
    clone();
    EXPECT_EQ(script.statements.mid(0, 2), (QStringList{selectKey(u"PT-2"_s), selectStored(u"PT-2"_s)}));
    EXPECT_TRUE(deletesFor(u"PT-2"_s));
    EXPECT_TRUE(writes().at(1).contains(u"'250'"));
    EXPECT_EQ(windowTitle(), u"Calibration Parameters (PT-2)"_s);
    // The next save goes there, too.
    script.statements.clear();
    screen.press(u"CommandSave"_s);
    EXPECT_TRUE(deletesFor(u"PT-2"_s));
}

TEST_F(CalParamClone, ThatIsCancelledDoesNothing) {
    expectQuestion(cancelled);
    clone();
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_EQ(windowTitle(), u"Calibration Parameters (PT-1)"_s);
}

TEST_F(CalParamClone, ThatIsAnsweredWithBlanksDoesNothing) {
    expectQuestion(u"  "_s);
    clone();
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_EQ(windowTitle(), u"Calibration Parameters (PT-1)"_s);
}

TEST_F(CalParamClone, AsksAgainForAnUnknownInstrumentUntilItIsCancelled) {
    expectQuestion(u"NONE"_s);
    expectUnknown(BoxAnswer::retry);
    expectQuestion(u"NO''NE"_s);
    expectUnknown(BoxAnswer::cancel);
    clone();
    EXPECT_TRUE(ui.hasMetAll());
    // As it was typed, quotes and all.
    EXPECT_EQ(script.statements, (QStringList{selectKey(u"NONE"_s), selectKey(u"NO''NE"_s)}));
}

TEST_F(CalParamClone, AsksBeforeItOverwrites) {
    script.answers.insert(selectStored(u"PT-2"_s), {Row{u"17"_s}});
    expectQuestion(u"PT-2"_s);
    expectOverwrite(BoxAnswer::no);
    clone();
    EXPECT_EQ(writes(), QStringList());
    EXPECT_EQ(windowTitle(), u"Calibration Parameters (PT-1)"_s);

    expectQuestion(u"PT-2"_s);
    expectOverwrite(BoxAnswer::yes);
    clone();
    EXPECT_TRUE(deletesFor(u"PT-2"_s));
}

TEST_F(CalParamClone, AsksAboutTheInstrumentThatWasEnteredAtLast) {
    script.answers.insert(selectStored(u"PT-2"_s), {Row{u"17"_s}});
    expectQuestion(u"NONE"_s);
    expectUnknown(BoxAnswer::retry);
    expectQuestion(u"PT-2"_s);
    expectOverwrite(BoxAnswer::yes);
    clone();
    EXPECT_TRUE(ui.hasMetAll());
    EXPECT_EQ(script.statements.mid(0, 3),
              (QStringList{selectKey(u"NONE"_s), selectKey(u"PT-2"_s), selectStored(u"PT-2"_s)}));
    EXPECT_TRUE(deletesFor(u"PT-2"_s));
}

TEST_F(CalParamClone, CancelledAfterAnUnknownInstrumentDoesNothing) {
    expectQuestion(u"NONE"_s);
    expectUnknown(BoxAnswer::retry);
    expectQuestion(cancelled);
    clone();
    EXPECT_EQ(script.statements, QStringList{selectKey(u"NONE"_s)});
    script.statements.clear();
    screen.press(u"CommandSave"_s);
    EXPECT_TRUE(deletesFor(u"PT-1"_s));
}

TEST_F(CalParamClone, ThatIsNotToOverwriteLeavesTheCurrentInstrument) {
    script.answers.insert(selectStored(u"PT-2"_s), {Row{u"17"_s}});
    expectQuestion(u"PT-2"_s);
    expectOverwrite(BoxAnswer::no);
    clone();
    screen.press(u"CommandSave"_s);
    EXPECT_TRUE(deletesFor(u"PT-1"_s));
}

TEST_F(CalParamClone, OntoTheCurrentInstrumentAsksLikeAnyOther) {
    script.answers.insert(selectStored(u"PT-1"_s), {Row{u"17"_s}});
    expectQuestion(u"PT-1"_s);
    expectOverwrite(BoxAnswer::yes);
    clone();
    EXPECT_TRUE(deletesFor(u"PT-1"_s));
}

TEST_F(CalParamClone, FindsTheInstrumentWithTheUsersOwner) {
    session.SessionOwner = u"ABC"_s;
    const auto find = u"select mtag from ABC.inventory where i4201 = 'PT-2'"_s;
    script.answers.insert(find, {Row{u"17"_s}});
    expectQuestion(u"PT-2"_s);
    clone();
    EXPECT_EQ(script.statements.mid(0, 2),
              (QStringList{find, u"select mtag from mt.hvm_kv_tag_config where mtag = ("_s + find + u')'}));
}

TEST_F(CalParamClone, ThatFailsTheChecksHasTheNewInstrumentUnderTheOldTitle) {
    screen.set(u"TextInputHigh"_s, {});
    expectQuestion(u"PT-2"_s);
    ui.expectBox(u"Must enter a valid high input value!"_s, QString::fromLatin1(title), box::warning);
    clone();
    EXPECT_EQ(writes(), QStringList());
    EXPECT_EQ(windowTitle(), u"Calibration Parameters (PT-1)"_s);
    screen.set(u"TextInputHigh"_s, u"100"_s);
    screen.press(u"CommandSave"_s);
    EXPECT_TRUE(deletesFor(u"PT-2"_s));
    EXPECT_EQ(windowTitle(), u"Calibration Parameters (PT-2)"_s);
}

TEST_F(CalParamClone, NeverReadsTheOtherInstrumentsParameters) {
    expectQuestion(u"PT-2"_s);
    clone();
    for (const auto& statement : script.statements)
        EXPECT_FALSE(statement.startsWith(u"select repetitions")) << statement.toStdString();
}

TEST_F(CalParamClone, ReportsAnErrorUnderItsNameAndChangesNothing) {
    for (const auto& failing : {selectKey(u"PT-2"_s), selectStored(u"PT-2"_s)}) {
        script.failures = {{failing, {5, u"locked"_s}}};
        expectQuestion(u"PT-2"_s);
        ui.expectReport(5, u"FormCalParam,CommandClone"_s);
        clone();
    }
    EXPECT_EQ(writes(), QStringList());
    script.failures.clear();
    script.statements.clear();
    screen.press(u"CommandSave"_s);
    EXPECT_TRUE(deletesFor(u"PT-1"_s));
}

TEST_F(CalParamClone, ReportsAnErrorOfTheSaveUnderTheSavesName) {
    script.failures = {{u"delete from mt.hvm_kv_tag_config where mtag = "_s + key(u"PT-2"_s) +
                            u";delete from mt.hvm_kv_proc_prompts where mtag = "_s + key(u"PT-2"_s) +
                            u";commit"_s,
                        {5, u"locked"_s}}};
    expectQuestion(u"PT-2"_s);
    ui.expectReport(5, u"FormCalParam,SaveData"_s);
    clone();
    EXPECT_EQ(windowTitle(), u"Calibration Parameters (PT-1)"_s);
    EXPECT_FALSE(ui.busy);
    // The new instrument is the current one nevertheless.
    script.failures.clear();
    script.statements.clear();
    screen.press(u"CommandSave"_s);
    EXPECT_TRUE(deletesFor(u"PT-2"_s));
    EXPECT_EQ(windowTitle(), u"Calibration Parameters (PT-2)"_s);
}

TEST_F(CalParamClone, KeepsTheWindowOpenWhileItAsks) {
    ui.expectDialog(QString::fromLatin1(title), u"Enter instrument number:"_s, cancelled,
                    [this](const DialogQuestion&) {
                        screen.form().close();
                        screen.press(u"CommandSave"_s);
                        clone();
                    });
    clone();
    EXPECT_TRUE(screen.form().isVisible());
    EXPECT_EQ(script.statements, QStringList());
}

} // namespace kelvane::testing
