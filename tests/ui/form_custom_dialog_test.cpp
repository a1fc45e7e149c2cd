#include "resources/text_id.h"
#include "tests/ui/custom_dialog_fixture.h"

#include <QAbstractItemView>
#include <QMdiArea>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString requiredMessage = u"Required Field - must provide an entry!"_s;

} // namespace

TEST_F(CustomDialogTest, HasItsSizePlaceTextsAndFocus) {
    meet([](FormCustomDialog& dialog, Controls controls) {
        EXPECT_EQ(dialog.geometry(), QRect(133, 167, 268, 157));
        EXPECT_EQ(controls.ok.text(), u"OK"_s);
        EXPECT_EQ(controls.cancel.text(), u"Cancel"_s);
        EXPECT_EQ(controls.field.toolTip(), u"Make an entry/selection"_s);
        EXPECT_EQ(controls.list.toolTip(), u"Make an entry/selection"_s);
        EXPECT_EQ(controls.ok.toolTip(), u"Accept this selection"_s);
        EXPECT_EQ(controls.cancel.toolTip(), u"Cancel entry of this selection"_s);
        EXPECT_TRUE(controls.field.hasFocus());
        EXPECT_TRUE(controls.field.isVisible());
        EXPECT_FALSE(controls.list.isVisible());
        EXPECT_TRUE(controls.list.currentText().isEmpty());
        answerDialog(dialog, u"entry"_s);
    });
    EXPECT_EQ(ask(textQuestion()), u"entry"_s);
}

TEST_F(CustomDialogTest, GrowsOnlyWhereItsCaptionOrPromptWouldBeCutOff) {
    const struct {
        QString caption;
        QString prompt;
        bool wider;
        bool higher;
    } rows[] = {
        {u"Upload Test Results From Calibrator"_s, u"Select Calibrator To Use:"_s, false, false},
        {u"TW-1001: External Standard Required"_s, u"Standard to be used for this calibration:"_s, true,
         false},
        {u"Calibration Record Data (LAB-PT-100-ABC)"_s, u"Please enter information for: Humidity"_s, true,
         false},
        {u"Caption"_s, u"a long prompt "_s.repeated(20), false, true},
        {u"caption "_s.repeated(100), u"Prompt"_s, true, false},
    };
    for (const auto& row : rows) {
        auto question = textQuestion();
        question.caption = row.caption;
        question.prompt = row.prompt;
        simulatedOperator.expectDialog(row.caption, row.prompt, [&](FormCustomDialog& dialog) {
            EXPECT_EQ(dialog.width() > 268, row.wider) << row.caption.toStdString();
            EXPECT_EQ(dialog.height() > 157, row.higher) << row.prompt.toStdString();
            EXPECT_TRUE(program.window.area().viewport()->rect().contains(dialog.geometry()));
            answerDialog(dialog, u"x"_s);
        });
        ask(question);
    }
}

TEST_F(CustomDialogTest, CarriesItsArgumentsInTwoHiddenLabels) {
    meet([](FormCustomDialog& dialog, Controls) {
        auto& always = control<QLabel>(dialog, u"LabelAlways"_s);
        auto& format = control<QLabel>(dialog, u"LabelDataFormat"_s);
        EXPECT_EQ(always.text(), u"1"_s);
        EXPECT_EQ(format.text(), u"2"_s);
        EXPECT_FALSE(always.isVisible() || format.isVisible());
        answerDialog(dialog, u"5"_s);
    });
    ask(textQuestion(true, 2));
}

TEST_F(CustomDialogTest, TheAnswerIsTrimmed) {
    meet([](FormCustomDialog& dialog, Controls) { answerDialog(dialog, u"  PT-100  "_s); });
    EXPECT_EQ(ask(textQuestion()), u"PT-100"_s);
}

TEST_F(CustomDialogTest, ARequiredEntryHasToBeMade) {
    simulatedOperator.expectDialog(u"A caption"_s, u"A prompt:"_s, [this](FormCustomDialog& dialog) {
        Controls controls(dialog);
        simulatedOperator.expectBox(requiredMessage, title, box::warning);
        click(controls.ok);
        EXPECT_TRUE(dialog.isOpen());
        EXPECT_TRUE(controls.field.hasFocus());
        answerDialog(dialog, u"x"_s);
    });
    EXPECT_EQ(ask(textQuestion()), u"x"_s);
}

TEST_F(CustomDialogTest, BlanksAloneSatisfyARequiredEntryAndComeAsAnEmptyAnswer) {
    meet([](FormCustomDialog& dialog, Controls) { answerDialog(dialog, u"   "_s); });
    EXPECT_EQ(ask(textQuestion()), QString());
}

TEST_F(CustomDialogTest, AnOptionalFreeTextPassesEmpty) {
    meet([](FormCustomDialog&, Controls controls) { click(controls.ok); });
    EXPECT_EQ(ask(textQuestion(false)), QString());
}

TEST_F(CustomDialogTest, AnOptionalFieldOfAnyOtherKindIsRefusedEmpty) {
    const struct {
        qint16 kind;
        QStringView message;
        QStringView good;
    } rows[] = {{1, u"Invalid Date or Date Format!", u"11/21/2026"},
                {2, u"Invalid Numeric Format!", u"1,000.5"},
                {3, u"Invalid Time or Time Format!", u"14:30"}};
    for (const auto& row : rows) {
        meet([&](FormCustomDialog& dialog, Controls controls) {
            simulatedOperator.expectBox(row.message.toString(), title, box::warning);
            click(controls.ok);
            EXPECT_TRUE(dialog.isOpen());
            answerDialog(dialog, row.good.toString());
        });
        EXPECT_EQ(ask(textQuestion(false, row.kind)), row.good.toString());
    }
}

TEST(FaultOfEntry, DependsOnTheKindOfTheField) {
    const struct {
        QStringView entry;
        int kind;
        QStringView format;
        std::optional<TextId> fault;
    } rows[] = {
        {u"anything", 0, u"", {}},
        {u"", 0, u"", {}},
        {u"11/21/2026", 1, u"MM/DD/YYYY", {}},
        {u"21/11/2026", 1, u"DD/MM/YYYY", {}},
        {u"21 Nov 2026", 1, u"", {}},
        {u"11/21/2026 14:30", 1, u"MM/DD/YYYY", {}},
        {u"02/30/2026", 1, u"MM/DD/YYYY", TextId::dateInvalid},
        {u"14:30", 1, u"MM/DD/YYYY", TextId::dateInvalid},
        {u"42", 1, u"MM/DD/YYYY", TextId::dateInvalid},
        {u"", 1, u"MM/DD/YYYY", TextId::dateInvalid},
        {u"-1,000.5e-3", 2, u"", {}},
        {u"12 V", 2, u"", TextId::numberInvalid},
        {u"", 2, u"", TextId::numberInvalid},
        {u"14:30", 3, u"MM/DD/YYYY", {}},
        {u"2:30 pm", 3, u"MM/DD/YYYY", {}},
        {u"11/21/2026", 3, u"MM/DD/YYYY", {}},
        {u"25:00", 3, u"MM/DD/YYYY", TextId::timeInvalid},
        {u"", 3, u"MM/DD/YYYY", TextId::timeInvalid},
        {u"anything", 4, u"", {}},
        {u"anything", -1, u"", {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(faultOfEntry(row.entry.toString(), row.kind, row.format.toString()), row.fault)
            << row.entry.toString().toStdString() << " of kind " << row.kind;
}

TEST_F(CustomDialogTest, TheThirtyFirstCharacterIsRefusedAsItIsTyped) {
    auto question = textQuestion();
    question.maxLength = 30;
    meet([](FormCustomDialog&, Controls controls) {
        QTest::keyClicks(&controls.field, u"1234567890123456789012345678901"_s);
        EXPECT_EQ(controls.field.text(), u"123456789012345678901234567890"_s);
        click(controls.ok);
    });
    EXPECT_EQ(ask(question).size(), 30);
}

TEST_F(CustomDialogTest, NoMaximumLengthSetsNoLimit) {
    const auto entry = u"x"_s.repeated(40000);
    meet([&](FormCustomDialog&, Controls controls) {
        controls.field.insert(entry);
        click(controls.ok);
    });
    EXPECT_EQ(ask(textQuestion()), entry);
}

TEST_F(CustomDialogTest, TheStartingTextIsShownSelectedSoThatTypingReplacesIt) {
    auto question = textQuestion();
    question.defaultText = u"STD-1"_s;
    meet([](FormCustomDialog&, Controls controls) {
        EXPECT_EQ(controls.field.selectedText(), u"STD-1"_s);
        QTest::keyClick(&controls.field, Qt::Key_Return);
    });
    EXPECT_EQ(ask(question), u"STD-1"_s);
    meet([](FormCustomDialog&, Controls controls) {
        QTest::keyClicks(&controls.field, u"STD-2"_s);
        QTest::keyClick(&controls.field, Qt::Key_Return);
    });
    EXPECT_EQ(ask(question), u"STD-2"_s);
}

TEST_F(CustomDialogTest, AListIsChosenFromWithItsFirstRowSelected) {
    meet([](FormCustomDialog&, Controls controls) {
        EXPECT_TRUE(controls.list.isVisible());
        EXPECT_FALSE(controls.field.isVisible());
        EXPECT_TRUE(controls.field.text().isEmpty());
        EXPECT_FALSE(controls.list.isEditable());
        EXPECT_TRUE(controls.list.hasFocus());
        EXPECT_EQ(controls.list.currentText(), u"one"_s);
        QTest::keyClick(&controls.list, Qt::Key_Down);
        QTest::keyClick(&controls.list, Qt::Key_Return);
    });
    EXPECT_EQ(ask(listQuestion({u"one"_s, u"two"_s})), u"two"_s);
}

TEST_F(CustomDialogTest, LongRowsWidenTheListThatDropsDownAndNotTheDialog) {
    meet([](FormCustomDialog& dialog, Controls controls) {
        EXPECT_EQ(dialog.size(), QSize(268, 157));
        controls.list.showPopup();
        EXPECT_GT(controls.list.view()->width(), 300);
        controls.list.hidePopup();
        click(controls.ok);
    });
    const auto row = u"a long row "_s.repeated(8);
    EXPECT_EQ(ask(listQuestion({row, u"two"_s})), row.trimmed());
}

TEST_F(CustomDialogTest, AListOfTheMaximumLengthIsOffered) {
    QStringList choices;
    for (int i = 1; i <= 2500; ++i)
        choices << u"row %1"_s.arg(i);
    meet([](FormCustomDialog& dialog, Controls controls) {
        EXPECT_EQ(controls.list.count(), 2500);
        answerDialog(dialog, u"row 2500"_s);
    });
    EXPECT_EQ(ask(listQuestion(choices)), u"row 2500"_s);
}

TEST(RowOfDefault, IsTheFirstThatBeginsWithItInCapitals) {
    const QStringList rows{u"Crane TorqueStar IVc"_s, u"Fluke 702"_s, u"fluke 743/744"_s};
    const struct {
        QStringView start;
        int expected;
    } cases[] = {{u"", 0},
                 {u"fluke", 1},
                 {u"FLUKE 74", 2},
                 {u"Fluke 702", 1},
                 {u"luke", -1},
                 {u"Fluke 7023", -1},
                 {u"crane torquestar ivc", 0}};
    for (const auto& testCase : cases)
        EXPECT_EQ(rowOfDefault(rows, testCase.start.toString()), testCase.expected)
            << testCase.start.toString().toStdString();
    EXPECT_EQ(rowOfDefault({}, QString()), -1);
}

TEST_F(CustomDialogTest, ADefaultThatBeginsNoRowLeavesNothingChosen) {
    simulatedOperator.expectDialog(u"A caption"_s, u"A prompt:"_s, [this](FormCustomDialog& dialog) {
        Controls controls(dialog);
        EXPECT_EQ(controls.list.currentIndex(), -1);
        simulatedOperator.expectBox(requiredMessage, title, box::warning);
        click(controls.ok);
        EXPECT_TRUE(controls.list.hasFocus());
        answerDialog(dialog, u"one"_s);
    });
    EXPECT_EQ(ask(listQuestion({u"one"_s, u"two"_s}, u"x"_s)), u"one"_s);
}

TEST_F(CustomDialogTest, AnEmptyListIsTypedInto) {
    meet([](FormCustomDialog&, Controls controls) {
        EXPECT_TRUE(controls.list.isEditable());
        QTest::keyClicks(&controls.list, u" typed "_s);
        QTest::keyClick(&controls.list, Qt::Key_Return);
    });
    EXPECT_EQ(ask(listQuestion({})), u"typed"_s);
}

TEST_F(CustomDialogTest, TextsAreShownAsTheyStand) {
    auto question = textQuestion();
    question.prompt = u"<b>Fish</b> & chips:"_s;
    question.caption = u"A <i>caption</i> & more"_s;
    simulatedOperator.expectDialog(question.caption, question.prompt, [](FormCustomDialog& dialog) {
        EXPECT_EQ(Controls(dialog).prompt.textFormat(), Qt::PlainText);
        answerDialog(dialog, u"x"_s);
    });
    ask(question);
}

} // namespace kelvane::testing
