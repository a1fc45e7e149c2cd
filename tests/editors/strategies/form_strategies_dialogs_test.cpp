// The screen in the whole workstation, with the real dialogs.
#include "testkit/program_screen.h"
#include "tests/editors/strategies/strategies_screen.h"
#include "ui/form_custom_dialog.h"
#include "ui/list_rows.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString newStrategy = u"Add new test strategy"_s;
const QString namePrompt = u"Enter a name for the new test strategy (30 chars max!):"_s;
const QString pointPrompt = u"Enter the test point to add: (%)"_s;

} // namespace

class StrategiesInTheProgram : public ProgramScreen {
  protected:
    StrategiesInTheProgram() : ProgramScreen(u"FormStrategies"_s, u"mnuStrategies"_s) {
        startLoggedIn(4);
        script.answers[selectNames()] = {Row{u"FIVE"_s}};
        script.answers[selectPoints(u"FIVE"_s)] = {Row{u"0"_s}, Row{u"100"_s}};
        open();
    }
    QStringList points() { return rowsOf(controlNamed<QListWidget>(u"ListPoints"_s)); }
    QString name() { return controlNamed<QComboBox>(u"ComboTSNames"_s).currentText(); }

    static QLineEdit& field(FormCustomDialog& dialog) {
        return control<QLineEdit>(dialog, u"TextCustomDialog"_s);
    }
    /// Puts a text into the dialog's field by way of the clipboard.
    static void paste(FormCustomDialog& dialog, const QString& text) {
        QApplication::clipboard()->setText(text);
        field(dialog).selectAll();
        field(dialog).paste();
    }
    /// Presses Return; whatever the dialog then says has to be expected.
    static void accept(FormCustomDialog& dialog) { QTest::keyClick(&field(dialog), Qt::Key_Return); }
    void addWithPaste(const QString& text) {
        simulatedOperator.expectDialog(newStrategy, namePrompt, [text](FormCustomDialog& dialog) {
            paste(dialog, text);
            accept(dialog);
        });
        press(u"CommandAdd"_s);
    }
};

TEST_F(StrategiesInTheProgram, TheFocusStaysOnThePointThatReturnModifies) {
    simulatedOperator.expectDialog(newStrategy, namePrompt, u"NEW"_s);
    button(u"CommandAdd"_s).setFocus();
    QTest::keyClick(&button(u"CommandAdd"_s), Qt::Key_Space);
    auto& predefined = control<QComboBox>(form(), u"ComboPreDef"_s);
    EXPECT_TRUE(predefined.hasFocus());
    for (int row = 0; row < 3; ++row)
        QTest::keyClick(&predefined, Qt::Key_Down);
    QTest::keyClick(&predefined, Qt::Key_Tab);
    auto& list = control<QListWidget>(form(), u"ListPoints"_s);
    ASSERT_TRUE(list.hasFocus());
    QTest::keyClick(&list, Qt::Key_Home);
    simulatedOperator.expectDialog(u"Kelvane"_s, u"Enter the new test point: (%)"_s, u"5"_s);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(points(), (QStringList{u"5"_s, u"100.00"_s}));
    EXPECT_TRUE(list.hasFocus()) << qPrintable(QApplication::focusWidget()->objectName());
}

TEST_F(StrategiesInTheProgram, AnEmptyNameIsRefusedByTheDialogAndNeverReachesTheDatabase) {
    simulatedOperator.expectDialog(newStrategy, namePrompt, [this](FormCustomDialog& dialog) {
        simulatedOperator.expectBox(u"Required Field - must provide an entry!"_s, u"Kelvane"_s, box::warning);
        accept(dialog);
        EXPECT_TRUE(dialog.isOpen());
        EXPECT_TRUE(script.statements.isEmpty());
        cancel(dialog);
    });
    press(u"CommandAdd"_s);
    EXPECT_EQ(script.statements, loadOf(u"FIVE"_s, u"FIVE"_s));
    EXPECT_EQ(name(), u"FIVE"_s);
}

TEST_F(StrategiesInTheProgram, OddNamesAreTakenAsTheyAreAndAtMostThirtyCharactersOfThem) {
    const struct {
        QString pasted;
        QString name;
        QString inStatement;
    } rows[] = {
        {u"  padded  "_s, u"padded"_s, u"padded"_s},
        {u"'; drop table mt.inventory;commit --"_s, u"'; drop table mt.inventory;com"_s,
         u"''; drop table mt.inventory;com"_s},
        {u"\"Ωmega\" 温度 100%"_s, u"\"Ωmega\" 温度 100%"_s, u"\"Ωmega\" 温度 100%"_s},
        {u"x"_s.repeated(1'000'000), u"x"_s.repeated(30), u"x"_s.repeated(30)},
        {u"&Mnemonic & <b>bold</b>"_s, u"&Mnemonic & <b>bold</b>"_s, u"&Mnemonic & <b>bold</b>"_s},
        {u"two\nlines"_s, u"two\nlines"_s, u"two\nlines"_s},
        {u"NaN"_s, u"NaN"_s, u"NaN"_s},
        {u"1e400"_s, u"1e400"_s, u"1e400"_s},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name.toStdString());
        addWithPaste(row.pasted);
        EXPECT_EQ(script.statements, QStringList{selectName(row.inStatement)});
        EXPECT_EQ(name(), row.name);
        simulatedOperator.expectBox(u"Are you sure you want to discard any changes made since last save?"_s,
                                    u"Kelvane"_s, box::warningYesNo, BoxAnswer::yes);
        form().close();
        open();
    }
}

TEST_F(StrategiesInTheProgram, WhatIsNoNumberIsRefusedByTheDialogItself) {
    for (const auto& entry : {u"abc"_s, u"12 V"_s, u"1e400"_s, u"NaN"_s, u"'5'"_s, u"٥٠"_s, u"0x10"_s,
                              u"9"_s.repeated(1'000'000)}) {
        SCOPED_TRACE(entry.left(20).toStdString());
        simulatedOperator.expectDialog(u"Kelvane"_s, pointPrompt, [&](FormCustomDialog& dialog) {
            EXPECT_EQ(field(dialog).text(), u"0.0"_s);
            simulatedOperator.expectBox(u"Invalid Numeric Format!"_s, u"Kelvane"_s, box::warning);
            paste(dialog, entry);
            accept(dialog);
            cancel(dialog);
        });
        press(u"CommandAddTP"_s);
        EXPECT_TRUE(simulatedOperator.hasMetAll());
        EXPECT_EQ(points(), (QStringList{u"0"_s, u"100"_s}));
        EXPECT_FALSE(button(u"CommandSave"_s).isEnabled());
    }
}

TEST_F(StrategiesInTheProgram, ANumberOfAMillionDigitsIsAPointLikeAnyOther) {
    const auto longPoint = u"0."_s + u"1"_s.repeated(1'000'000);
    simulatedOperator.expectDialog(u"Kelvane"_s, pointPrompt, [&](FormCustomDialog& dialog) {
        paste(dialog, longPoint);
        accept(dialog);
    });
    press(u"CommandAddTP"_s);
    EXPECT_EQ(points(), (QStringList{u"0"_s, u"100"_s, longPoint}));
}

TEST_F(StrategiesInTheProgram, PointsAreAddedByKeyboardAlone) {
    auto& add = button(u"CommandAddTP"_s);
    add.setFocus();
    for (const auto& point : {u"25"_s, u"75"_s}) {
        simulatedOperator.expectDialog(u"Kelvane"_s, pointPrompt, point);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_TRUE(add.hasFocus());
    }
    EXPECT_EQ(points(), (QStringList{u"0"_s, u"100"_s, u"25"_s, u"75"_s}));
}

TEST_F(StrategiesInTheProgram, TheMenusCommandMeanwhileOnlyBringsTheScreenForward) {
    const auto* before = &form();
    simulatedOperator.expectDialog(u"Kelvane"_s, pointPrompt, [&](FormCustomDialog& dialog) {
        choose(u"mnuStrategies"_s);
        EXPECT_EQ(&form(), before);
        form().close();
        EXPECT_EQ(&form(), before);
        press(u"CommandSave"_s);
        press(u"CommandAdd"_s);
        EXPECT_TRUE(dialog.isOpen());
        answerDialog(dialog, u"50"_s);
    });
    press(u"CommandAddTP"_s);
    EXPECT_EQ(points(), (QStringList{u"0"_s, u"100"_s, u"50"_s}));
    EXPECT_TRUE(script.statements.isEmpty());
}

TEST_F(StrategiesInTheProgram, LogOutIsRefusedWhileTheScreenIsOpen) {
    simulatedOperator.expectBox(
        u"One or more windows are still open! Please close open windows before logging out..."_s,
        u"Kelvane"_s, box::warning);
    choose(u"mnuLogout"_s);
    EXPECT_TRUE(session.SessionConnected);
}

} // namespace kelvane::testing
