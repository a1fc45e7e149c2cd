#include "tests/editors/cal_param/form_cal_param_fixture.h"

#include "ui/form_custom_dialog.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const Error noTable{208, u"no such table"_s};

} // namespace

/// The statements that load an instrument, failing one by one.
class HalfLoad : public FormCalParamTest {
  protected:
    struct Step {
        QString statement;
        QString routine;
        /// How many of the loading statements run nevertheless.
        int statements;
    };
    static QList<Step> stepsOf(const QString& asset) {
        const auto statements = loading(asset);
        return {{statements[0], u"FormCalParam,LoadControls"_s, 1},
                {statements[1], u"ModuleGlobals,GetCalParams"_s, 6},
                {statements[2], u"FormCalParam,LoadPrompts"_s, 3},
                {statements[3], u"FormCalParam,LoadPrompts"_s, 4},
                {statements[4], u"FormCalParam,LoadPrompts"_s, 5},
                {statements[5], u"FormCalParam,LoadPrompts"_s, 6}};
    }
    /// All that the screen shows, its title and the rows of its strategies among it.
    QStringList whole() {
        QStringList all = allShown(form()) << form().windowTitle();
        auto& strategies = control<QComboBox>(form(), u"ComboTSName"_s);
        for (int row = 0; row < strategies.count(); ++row)
            all << strategies.itemText(row);
        return all;
    }
    /// The instrument whose parameters the next save deletes.
    QString saved() {
        script.statements.clear();
        press(u"CommandSave"_s);
        const auto first = script.statements.value(0);
        return first.mid(first.indexOf(u"i4201 = '"_s) + 9, 4);
    }
};

TEST_F(HalfLoad, AtTheFirstOpeningClosesTheScreen) {
    for (const auto& step : stepsOf(u"PT-1"_s)) {
        SCOPED_TRACE(step.statement.toStdString());
        script.statements.clear();
        script.failures = {{step.statement, noTable}};
        simulatedOperator.expectDialog(calParamTitle, enterInstrument, u"PT-1"_s);
        simulatedOperator.expectReport(208, step.routine);
        choose(u"mnuCalParameters"_s);
        EXPECT_FALSE(isOpen());
        EXPECT_FALSE(flag());
        EXPECT_EQ(script.statements.mid(2), loading(u"PT-1"_s).mid(0, step.statements));
        EXPECT_FALSE(QApplication::overrideCursor());
    }
    EXPECT_TRUE(folder.read(u"errors.log"_s).contains(selectDisplayed(u"PST"_s, u"PT-1"_s)));
}

TEST_F(HalfLoad, OfAnotherInstrumentLeavesTheScreenExactlyAsItWas) {
    open(u"PT-1"_s);
    const auto before = whole();
    for (const auto& step : stepsOf(u"PT-2"_s)) {
        SCOPED_TRACE(step.statement.toStdString());
        script.statements.clear();
        script.failures = {{step.statement, noTable}};
        select(u"PT-2"_s, [&] { simulatedOperator.expectReport(208, step.routine); });
        EXPECT_EQ(script.statements.mid(1), loading(u"PT-2"_s).mid(0, step.statements));
        EXPECT_EQ(whole(), before);
        EXPECT_FALSE(QApplication::overrideCursor());
    }
    script.failures.clear();
    // What a save stores is the instrument that the screen shows.
    EXPECT_EQ(saved(), u"PT-1"_s);
    form().close();
    EXPECT_FALSE(isOpen()) << "nothing was changed";
}

TEST_F(HalfLoad, KeepsWhatWasTypedAndThatItIsChanged) {
    open(u"PT-1"_s);
    type(u"TextThresholdOut"_s, u"12.5"_s);
    const auto before = whole();
    for (const auto& step : stepsOf(u"PT-2"_s)) {
        SCOPED_TRACE(step.statement.toStdString());
        script.failures = {{step.statement, noTable}};
        expectDiscard(BoxAnswer::yes);
        select(u"PT-2"_s, [&] { simulatedOperator.expectReport(208, step.routine); });
        EXPECT_EQ(whole(), before);
        expectDiscard(BoxAnswer::no);
        form().close();
        EXPECT_TRUE(isOpen());
    }
}

TEST_F(HalfLoad, OfTheCurrentInstrumentKeepsItsEdits) {
    open(u"PT-1"_s);
    type(u"TextThresholdOut"_s, u"12.5"_s);
    script.failures = {{selectDisplayed(u"PRE"_s, u"PT-1"_s), noTable}};
    expectDiscard(BoxAnswer::yes);
    simulatedOperator.expectDialog(calParamTitle, enterInstrument, [this](FormCustomDialog& dialog) {
        cancel(dialog);
        simulatedOperator.expectReport(208, u"FormCalParam,LoadPrompts"_s);
    });
    press(u"CommandSelect"_s);
    EXPECT_EQ(displayText(u"TextThresholdOut"_s), u"12.5"_s);
    EXPECT_EQ(form().windowTitle(), u"Calibration Parameters (PT-1)"_s);
}

TEST_F(HalfLoad, ByANullInTheRecordShowsNothingOfIt) {
    for (const int column : {5, 19, 37, 41}) {
        SCOPED_TRACE(column);
        store(storedRow({{column, std::nullopt}}));
        simulatedOperator.expectDialog(calParamTitle, enterInstrument, u"PT-1"_s);
        simulatedOperator.expectReport(94, u"ModuleGlobals,GetCalParams"_s);
        choose(u"mnuCalParameters"_s);
        EXPECT_FALSE(isOpen());

        open(u"PT-2"_s);
        const auto before = whole();
        select(u"PT-1"_s, [this] { simulatedOperator.expectReport(94, u"ModuleGlobals,GetCalParams"_s); });
        EXPECT_EQ(whole(), before);
        form().close();
        EXPECT_FALSE(isOpen());
    }
}

TEST_F(HalfLoad, ByAStrategyOrAMessageWithoutANameShowsNothing) {
    const QPair<QString, QString> cases[] = {
        {selectStrategies(), u"FormCalParam,LoadControls"_s},
        {selectDisplayed(u"PRE"_s, u"PT-1"_s), u"FormCalParam,LoadPrompts"_s},
    };
    for (const auto& [statement, routine] : cases) {
        open(u"PT-2"_s);
        const auto before = whole();
        const auto stored = script.answers.value(statement);
        script.answers.insert(statement, {Row{u"B"_s}, Row{std::nullopt}});
        select(u"PT-1"_s, [&, name = routine] { simulatedOperator.expectReport(94, name); });
        EXPECT_EQ(whole(), before);
        script.answers.insert(statement, stored);
        form().close();
        EXPECT_FALSE(isOpen());
    }
}

TEST_F(HalfLoad, WithAReportThatCanNotBeWrittenClosesAScreenThatShowsNothingYet) {
    const QString unwritable =
        u"The error report could not be written to \"errors.log\" in the working folder. Please check "
        "that the folder can be written to and that the disk is not full."_s;
    QDir().mkdir(u"errors.log"_s);
    script.failures.insert(selectStrategies(), noTable);
    simulatedOperator.expectDialog(calParamTitle, enterInstrument, u"PT-1"_s);
    simulatedOperator.expectBox(unwritable, u"Kelvane"_s, box::stop);
    choose(u"mnuCalParameters"_s);
    EXPECT_FALSE(isOpen());
    EXPECT_FALSE(flag());

    script.failures.clear();
    open(u"PT-1"_s);
    const auto before = whole();
    script.failures.insert(calParamsStatement(u"MT"_s, u"PT-2"_s), noTable);
    select(u"PT-2"_s, [&] { simulatedOperator.expectBox(unwritable, u"Kelvane"_s, box::stop); });
    EXPECT_EQ(whole(), before);
}

TEST_F(HalfLoad, OverALostConnectionKeepsTheScreenAndWhatIsTyped) {
    const auto statements = loading(u"PT-1"_s);
    const auto all = QStringList{findAsset(u"PT-1"_s)} + statements;
    for (const auto& statement : all) {
        SCOPED_TRACE(statement.toStdString());
        open(u"PT-2"_s);
        type(u"TextThresholdOut"_s, u"12.5"_s);
        const auto before = whole();
        expectDiscard(BoxAnswer::yes);
        script.failures.insert(statement, Error{10054, u"Connection lost"_s, u"08S01"_s, true});
        simulatedOperator.expectDialog(calParamTitle, enterInstrument, u"PT-1"_s);
        if (statement == findAsset(u"PT-1"_s)) {
            simulatedOperator.expectReport(10054, u"MDIFormMain,GetAsset"_s);
            simulatedOperator.expectReport(10054, u"FormCalParam,LoadControls"_s);
        } else if (statement == statements[0]) {
            simulatedOperator.expectReport(10054, u"FormCalParam,LoadControls"_s);
        } else {
            if (statement == statements[1])
                simulatedOperator.expectReport(10054, u"ModuleGlobals,GetCalParams"_s);
            simulatedOperator.expectReport(10054, u"FormCalParam,LoadPrompts"_s);
        }
        press(u"CommandSelect"_s);
        EXPECT_FALSE(session.SessionConnected);
        EXPECT_EQ(whole(), before);
        script.failures.clear();
        script.lost = false;
        session.SessionConnected = true;
        expectDiscard(BoxAnswer::yes);
        form().close();
        EXPECT_FALSE(isOpen());
    }
}

} // namespace kelvane::testing
