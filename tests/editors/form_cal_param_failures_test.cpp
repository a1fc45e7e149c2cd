#include "tests/editors/form_cal_param_fixture.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST_F(FormCalParamTest, ANullBeforeTheKeyIsReportedAndTheScreenKeepsWhatItShows) {
    store(storedRow({{5, std::nullopt}}));
    person.expectDialog(calParamTitle, enterInstrument, u"PT-1"_s);
    person.expectReport(94, u"ModuleGlobals,GetCalParams"_s);
    choose(u"mnuCalParameters"_s);
    EXPECT_EQ(shown(u"TextInputLow"_s), u"0.0"_s);
    EXPECT_EQ(shown(u"ListPreDisplay"_s), u"B,D"_s);
    EXPECT_TRUE(flag());
}

TEST_F(FormCalParamTest, ANullBehindTheKeyIsReportedAndWhatWasReadIsShown) {
    store(storedRow({{37, std::nullopt}}));
    person.expectDialog(calParamTitle, enterInstrument, u"PT-1"_s);
    person.expectReport(94, u"ModuleGlobals,GetCalParams"_s);
    choose(u"mnuCalParameters"_s);
    EXPECT_EQ(shown(u"TextInputLow"_s), u"-15.5"_s);
    EXPECT_EQ(shown(u"TextThresholdOut"_s), u"0"_s);
    EXPECT_EQ(shown(u"ComboTSName"_s), QString());
}

TEST_F(FormCalParamTest, WithoutASavedSumNoChangeIsAskedAbout) {
    script.failures.insert(selectStrategies(), Error{208, u"no such table"_s});
    person.expectDialog(calParamTitle, enterInstrument, u"PT-1"_s);
    person.expectReport(208, u"FormCalParam,LoadControls"_s);
    choose(u"mnuCalParameters"_s);
    EXPECT_TRUE(flag());
    type(u"TextInputHigh"_s, u"250"_s);
    // Neither by Select ...
    select(u"PT-2"_s, [this] { person.expectReport(208, u"FormCalParam,LoadControls"_s); });
    // ... nor at the end.
    form().close();
    EXPECT_FALSE(isOpen());
}

TEST_F(FormCalParamTest, AReportThatCanNotBeWrittenLeavesItOpenWithItsInstrument) {
    QDir().mkdir(u"errors.log"_s);
    script.failures.insert(selectStrategies(), Error{208, u"no such table"_s});
    person.expectDialog(calParamTitle, enterInstrument, u"PT-1"_s);
    person.expectBox(
        u"The error report could not be written to \"errors.log\" in the working folder. Please check "
        "that the folder can be written to and that the disk is not full."_s,
        u"Kelvane"_s, box::stop);
    choose(u"mnuCalParameters"_s);
    EXPECT_TRUE(isOpen());
    EXPECT_TRUE(flag());
    EXPECT_EQ(form().windowTitle(), u"Calibration Parameters (PT-1)"_s);
    script.failures.clear();
    select(u"PT-1"_s);
    EXPECT_EQ(shown(u"TextInputLow"_s), u"-15.5"_s);
}

TEST_F(FormCalParamTest, AnErrorInEachStatementIsReportedAndTheOthersGoOn) {
    const struct {
        QString statement;
        QString routine;
        /// What is run nevertheless.
        QStringList statements;
    } rows[] = {
        {selectStrategies(), u"FormCalParam,LoadControls"_s, loading(u"PT-1"_s).mid(0, 1)},
        {calParamsStatement(u"MT"_s, u"PT-1"_s), u"ModuleGlobals,GetCalParams"_s, loading(u"PT-1"_s)},
        {selectAvailable(u"PRE"_s, u"PT-1"_s), u"FormCalParam,LoadPrompts"_s, loading(u"PT-1"_s).mid(0, 3)},
        {selectAvailable(u"PST"_s, u"PT-1"_s), u"FormCalParam,LoadPrompts"_s, loading(u"PT-1"_s).mid(0, 4)},
        {selectDisplayed(u"PRE"_s, u"PT-1"_s), u"FormCalParam,LoadPrompts"_s, loading(u"PT-1"_s).mid(0, 5)},
        {selectDisplayed(u"PST"_s, u"PT-1"_s), u"FormCalParam,LoadPrompts"_s, loading(u"PT-1"_s)},
    };
    open(u"PT-2"_s);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.statement.toStdString());
        script.failures.insert(row.statement, Error{208, u"no such table"_s});
        script.statements.clear();
        select(u"PT-1"_s, [&] { person.expectReport(208, row.routine); });
        EXPECT_EQ(script.statements.mid(1), row.statements);
        EXPECT_EQ(form().windowTitle(), u"Calibration Parameters (PT-1)"_s);
        EXPECT_FALSE(QApplication::overrideCursor());
        script.failures.clear();
        select(u"PT-2"_s);
    }
    EXPECT_TRUE(folder.read(u"errors.log"_s).contains(selectDisplayed(u"PST"_s, u"PT-1"_s)));
}

TEST_F(FormCalParamTest, AConnectionLostInAnyStatementKeepsTheScreenAndWhatIsTyped) {
    const auto statements = loading(u"PT-1"_s);
    const auto all = QStringList{findAsset(u"PT-1"_s)} + statements;
    for (const auto& statement : all) {
        SCOPED_TRACE(statement.toStdString());
        open(u"PT-2"_s);
        type(u"TextThresholdOut"_s, u"12.5"_s);
        expectDiscard(BoxAnswer::yes);
        script.failures.insert(statement, Error{10054, u"Connection lost"_s, u"08S01"_s, true});
        person.expectDialog(calParamTitle, enterInstrument, u"PT-1"_s);
        if (statement == findAsset(u"PT-1"_s)) {
            person.expectReport(10054, u"MDIFormMain,GetAsset"_s);
            person.expectReport(10054, u"FormCalParam,LoadControls"_s);
        } else if (statement == statements[0]) {
            person.expectReport(10054, u"FormCalParam,LoadControls"_s);
        } else {
            if (statement == statements[1])
                person.expectReport(10054, u"ModuleGlobals,GetCalParams"_s);
            person.expectReport(10054, u"FormCalParam,LoadPrompts"_s);
        }
        press(u"CommandSelect"_s);
        EXPECT_FALSE(session.SessionConnected);
        EXPECT_TRUE(isOpen());
        // What the database did not give leaves the screen as it is.
        const bool recordCame = statements.indexOf(statement) > 1;
        EXPECT_EQ(shown(u"TextThresholdOut"_s), recordCame ? u"2.75"_s : u"12.5"_s);
        script.failures.clear();
        script.lost = false;
        session.SessionConnected = true;
        if (statements.indexOf(statement) < 1)
            expectDiscard(BoxAnswer::yes);
        form().close();
        EXPECT_FALSE(isOpen());
    }
}

TEST_F(FormCalParamTest, AMessageWithoutANameIsReported) {
    script.answers.insert(selectDisplayed(u"PRE"_s, u"PT-1"_s), {Row{u"B"_s}, Row{std::nullopt}});
    person.expectDialog(calParamTitle, enterInstrument, u"PT-1"_s);
    person.expectReport(94, u"FormCalParam,LoadPrompts"_s);
    choose(u"mnuCalParameters"_s);
    EXPECT_EQ(shown(u"ListPreAvail"_s), u"C,A"_s);
    EXPECT_EQ(shown(u"ListPreDisplay"_s), u"B"_s) << "what was read before it";
    EXPECT_EQ(shown(u"ListPostDisplay"_s), QString());
}

TEST_F(FormCalParamTest, AStrategyWithoutANameIsReported) {
    script.answers.insert(selectStrategies(), {Row{u"FIVE"_s}, Row{std::nullopt}});
    person.expectDialog(calParamTitle, enterInstrument, u"PT-1"_s);
    person.expectReport(94, u"FormCalParam,LoadControls"_s);
    choose(u"mnuCalParameters"_s);
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(control<QComboBox>(form(), u"ComboTSName"_s).count(), 1);
    EXPECT_EQ(shown(u"ComboTSName"_s), QString());
}

TEST_F(FormCalParamTest, AfterALoadThatFailedNothingOfTheInstrumentBeforeCanBeSaved) {
    open(u"PT-1"_s);
    script.failures.insert(selectStrategies(), Error{208, u"no such table"_s});
    select(u"PT-2"_s, [this] { person.expectReport(208, u"FormCalParam,LoadControls"_s); });
    person.expectBox(u"Must specify a test strategy!"_s, calParamTitle, box::warning);
    press(u"CommandSave"_s);
    EXPECT_EQ(script.statements.last(), selectStrategies());
}

TEST_F(FormCalParamTest, AfterMessagesThatFailedNoListShowsThoseOfTheInstrumentBefore) {
    open(u"PT-1"_s);
    script.failures.insert(selectAvailable(u"PST"_s, u"PT-2"_s), Error{208, u"no such table"_s});
    select(u"PT-2"_s, [this] { person.expectReport(208, u"FormCalParam,LoadPrompts"_s); });
    for (const auto& name :
         {u"ListPreAvail"_s, u"ListPostAvail"_s, u"ListPreDisplay"_s, u"ListPostDisplay"_s})
        EXPECT_EQ(shown(name), QString()) << name.toStdString();
}

} // namespace kelvane::testing
