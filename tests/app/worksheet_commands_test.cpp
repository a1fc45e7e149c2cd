#include "testkit/program_fixture.h"
#include "ui/form_custom_dialog.h"

#include <QAction>
#include <QMdiArea>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString entryTitle = u"Enter Test Results From Worksheet(s)"_s;
const QString instrumentPrompt = u"Enter instrument #: (or press CANCEL to quit)"_s;

} // namespace

class WithoutWorksheets : public ProgramTest {};

class WorksheetCommands : public ProgramTest {
  protected:
    WorksheetCommands() : ProgramTest(true) {}
};

TEST_F(WithoutWorksheets, NeitherEntryNorShortcutOpensTheScreens) {
    startLoggedIn(4);
    EXPECT_FALSE(action(u"mnuPrint"_s)->isVisible());
    EXPECT_FALSE(action(u"mnuEnter"_s)->isVisible());
    pressKeys(u"Ctrl+W"_s);
    pressKeys(u"Ctrl+R"_s);
    EXPECT_TRUE(openChildren().isEmpty());
}

TEST_F(WorksheetCommands, PrintOpensItsScreenOnce) {
    startLoggedIn(1);
    pressKeys(u"Ctrl+W"_s);
    const auto* before = &child(u"FormWorksheetPrint"_s);
    choose(u"mnuODBC"_s);
    choose(u"mnuPrint"_s);
    EXPECT_EQ(&child(u"FormWorksheetPrint"_s), before);
    EXPECT_EQ(program.window.area().activeSubWindow(), before);
}

TEST_F(WorksheetCommands, EnterOpensItsScreenAndAsksForTheInstrument) {
    startLoggedIn(1);
    expectCancelledDialog(entryTitle, instrumentPrompt);
    pressKeys(u"Ctrl+R"_s);
    EXPECT_TRUE(simulatedOperator.hasMetAll());
    const auto* before = &child(u"FormWorkEntry"_s);
    // A second time nothing is asked.
    choose(u"mnuODBC"_s);
    choose(u"mnuEnter"_s);
    EXPECT_EQ(&child(u"FormWorkEntry"_s), before);
    EXPECT_EQ(program.window.area().activeSubWindow(), before);
}

TEST_F(WorksheetCommands, EnterBringsAnOpenQuestionForward) {
    startLoggedIn(1);
    simulatedOperator.expectDialog(u"Download"_s, u"Select Calibrator To Use:"_s,
                                   [&](FormCustomDialog& dialog) {
                                       choose(u"mnuEnter"_s);
                                       EXPECT_EQ(findChild(u"FormWorkEntry"_s), nullptr);
                                       cancel(dialog);
                                   });
    choose(u"mnuDownload"_s);
    EXPECT_TRUE(simulatedOperator.hasMetAll());
}

TEST_F(WorksheetCommands, ALogOutTakesTheEntriesAwayAndTheNextLoginBringsThem) {
    startLoggedIn(1);
    EXPECT_TRUE(action(u"mnuPrint"_s)->isVisible());
    choose(u"mnuLogout"_s);
    EXPECT_FALSE(action(u"mnuPrint"_s)->isVisible());
    EXPECT_FALSE(action(u"mnuEnter"_s)->isVisible());
    answerLogin(u"jdoe"_s, u"MT"_s, u"0"_s);
    typeLogin(u"jdoe"_s, u"kelvane"_s);
    EXPECT_TRUE(action(u"mnuPrint"_s)->isVisible());
    EXPECT_FALSE(action(u"mnuEnter"_s)->isVisible());
}

TEST_F(WorksheetCommands, ALoginOfTheOwnerShowsNoMenuOfThem) {
    startLoggedIn(6);
    pressKeys(u"Ctrl+W"_s);
    pressKeys(u"Ctrl+R"_s);
    EXPECT_TRUE(openChildren().isEmpty());
}

} // namespace kelvane::testing
