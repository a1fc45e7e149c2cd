#include "data/journal/journal.h"
#include "testkit/program_screen.h"
#include "ui/form_custom_dialog.h"
#include "ui/list_rows.h"

#include <QListWidget>
#include <QMdiArea>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const auto title = u"Results Without a Record"_s;

QString discardQuestion(const QString& asset) {
    return u"Discard the results of %1? No calibration record will be made of them."_s.arg(asset);
}

} // namespace

/// A workstation whose journal holds the results of two instruments.
class FormUnfinishedResultsTest : public ProgramScreen {
  protected:
    FormUnfinishedResultsTest() : ProgramScreen(u"FormUnfinishedResults"_s) {
        session.SessionDataSource = u"Calibration Data"_s;
        add(u"TW-1001"_s, u"2026-03-17"_s);
        add(u"TW-1002"_s, u"2026-03-18"_s);
    }

    void add(const QString& asset, const QString& date) {
        JournalEntry entry;
        entry.driver = u"nobody"_s;
        entry.calibrator = u"Crane TorqueStar IVc"_s;
        entry.serial = u"48213"_s;
        entry.asset = asset;
        entry.date = date;
        entry.time = u"10:20:30"_s;
        entry.readings = {asset + u" first"_s, asset + u" second"_s};
        entry.why = u"The connection was lost."_s;
        Journal(session).add(entry);
    }

    QTreeWidget& results() { return controlNamed<QTreeWidget>(u"ListResults"_s); }
    QStringList readings() { return rowsOf(controlNamed<QListWidget>(u"ListReadings"_s)); }
    QStringList rowTexts(int row) {
        QStringList texts;
        for (int column = 0; column < results().columnCount(); ++column)
            texts << results().topLevelItem(row)->text(column);
        return texts;
    }
    QStringList unfinishedAssets() {
        QStringList assets;
        for (const auto& entry : Journal(session).unfinished())
            assets << entry.asset;
        return assets;
    }
};

TEST_F(FormUnfinishedResultsTest, ComesAfterALoginWhileThereAreResultsOfTheDataSource) {
    startLoggedIn(4);
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(form().windowTitle(), title);
    EXPECT_EQ(results().topLevelItemCount(), 2);
    EXPECT_EQ(rowTexts(0), (QStringList{u"TW-1001"_s, u"2026-03-17 10:20:30"_s, u"Crane TorqueStar IVc"_s,
                                        u"The connection was lost."_s}));
    EXPECT_EQ(readings(), (QStringList{u"TW-1001 first"_s, u"TW-1001 second"_s}));
    EXPECT_TRUE(results().hasFocus());
}

TEST_F(FormUnfinishedResultsTest, DoesNotComeForResultsOfAnotherDataSource) {
    settings.setValue(u"Workstation"_s, u"ODBC"_s, u"Site B"_s);
    startLoggedIn(4);
    EXPECT_EQ(session.SessionDataSource, u"Site B");
    EXPECT_FALSE(isOpen());
}

TEST_F(FormUnfinishedResultsTest, ShowsTheReadingsOfTheChosenResult) {
    startLoggedIn(4);
    QTest::keyClick(&results(), Qt::Key_Down);
    EXPECT_EQ(readings(), (QStringList{u"TW-1002 first"_s, u"TW-1002 second"_s}));
    EXPECT_EQ(rowTexts(1).at(0), u"TW-1002");
}

TEST_F(FormUnfinishedResultsTest, DiscardAsksAndKeepsTheResultOnNo) {
    startLoggedIn(4);
    simulatedOperator.expectBox(discardQuestion(u"TW-1001"_s), title, box::question, BoxAnswer::no);
    press(u"CommandDiscard"_s);
    EXPECT_EQ(unfinishedAssets(), (QStringList{u"TW-1001"_s, u"TW-1002"_s}));
    EXPECT_EQ(results().topLevelItemCount(), 2);
}

TEST_F(FormUnfinishedResultsTest, DiscardEndsTheResultAndChoosesTheNextOne) {
    startLoggedIn(4);
    simulatedOperator.expectBox(discardQuestion(u"TW-1001"_s), title, box::question, BoxAnswer::yes);
    press(u"CommandDiscard"_s);
    EXPECT_EQ(unfinishedAssets(), QStringList{u"TW-1002"_s});
    EXPECT_EQ(readings().first(), u"TW-1002 first");
}

TEST_F(FormUnfinishedResultsTest, ClosesWhenNothingIsLeft) {
    startLoggedIn(4);
    for (const auto& asset : {u"TW-1001"_s, u"TW-1002"_s}) {
        simulatedOperator.expectBox(discardQuestion(asset), title, box::question, BoxAnswer::yes);
        press(u"CommandDiscard"_s);
    }
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(unfinishedAssets().isEmpty());
}

TEST_F(FormUnfinishedResultsTest, StaysOpenWhileItsQuestionIsOnTheScreen) {
    startLoggedIn(4);
    simulatedOperator.expectBox(discardQuestion(u"TW-1001"_s), title, box::question,
                                [this](QMessageBox& box) {
                                    form().close();
                                    EXPECT_TRUE(isOpen());
                                    box.reject();
                                });
    press(u"CommandDiscard"_s);
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(unfinishedAssets().size(), 2);
}

TEST_F(FormUnfinishedResultsTest, WhileAnotherScreensQuestionIsOpenACommandOnlyBringsItForward) {
    startLoggedIn(4);
    simulatedOperator.expectDialog(
        u"Download"_s, u"Select Calibrator To Use:"_s, [this](FormCustomDialog& dialog) {
            for (const auto& name : {u"CommandMakeRecord"_s, u"CommandDiscard"_s}) {
                program.window.area().setActiveSubWindow(&form());
                press(name);
                EXPECT_EQ(program.window.area().activeSubWindow(), &dialog);
            }
            cancel(dialog);
        });
    choose(u"mnuDownload"_s);
    EXPECT_EQ(unfinishedAssets().size(), 2);
}

TEST_F(FormUnfinishedResultsTest, EscapeClosesAndKeepsTheResults) {
    startLoggedIn(4);
    QTest::keyClick(&results(), Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(unfinishedAssets().size(), 2);
}

TEST_F(FormUnfinishedResultsTest, LogOutWaitsUntilItIsClosed) {
    startLoggedIn(4);
    simulatedOperator.expectBox(
        u"One or more windows are still open! Please close open windows before logging out..."_s,
        u"Kelvane"_s, box::warning);
    choose(u"mnuLogout"_s);
    EXPECT_TRUE(session.SessionConnected);
}

} // namespace kelvane::testing
