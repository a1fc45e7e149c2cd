#include "data/parameters/prompt_macros.h"

#include "data/tolerances/tolerances.h"
#include "platform/values/numbers.h"
#include "testkit/fixtures.h"
#include "testkit/scripted_params.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleGlobals;

namespace {

const auto noAsset = QString();
const auto asset = u"PT-1"_s;

class PromptMacros : public RecordedSession {
  protected:
    PromptMacros() { script.answers[calParamsStatement(u"MT"_s, asset)] = {calParamsRow()}; }
    QString expand(const QString& text, const QString& assetNumber = asset) {
        return UUTPromptTextPrepare(session, text, assetNumber);
    }
    /// The column of the instrument's inventory row holds this.
    void answerInventory(const QString& column, const std::optional<QString>& value) {
        script.answers[u"select "_s + column + u" from MT.inventory where i4201 = 'PT-1'"_s] = {{value}};
    }
};

struct MacroCase {
    QString text;
    QString result;
};

} // namespace

TEST_F(PromptMacros, ATextWithoutMarksStaysAsItIsAndAsksNothing) {
    for (const auto& text : {u""_s, u"Open the valve"_s, u"100 % 'x'"_s}) {
        EXPECT_EQ(expand(text), text);
        EXPECT_EQ(script.statements, QStringList());
    }
}

TEST_F(PromptMacros, MarksComeInPairsAndALoneOneIsDropped) {
    const MacroCase cases[] = {
        {u"cost 5$"_s, u"cost 5"_s},
        {u"$5 a piece"_s, u"5 a piece"_s},
        {u"$foo$"_s, u"foo"_s},
        {u"$FoO bar$"_s, u"FoO bar"_s},
        {u"$$"_s, u""_s},
        {u"$"_s, u""_s},
        {u"$$$"_s, u""_s},
        {u"$$U_NAM$"_s, u"U_NAM"_s},
        {u"$U_NAM$$U_NAM$"_s, u"jdoejdoe"_s},
        {u"a$U_NAM$b$c"_s, u"ajdoebc"_s},
        {u"$ U_NAM$"_s, u" U_NAM"_s},
        {u"溫度 $U_NAM$ é"_s, u"溫度 jdoe é"_s},
    };
    for (const auto& testCase : cases) {
        EXPECT_EQ(expand(testCase.text, noAsset), testCase.result) << testCase.text.toStdString();
        EXPECT_EQ(expand(testCase.text, asset), testCase.result) << testCase.text.toStdString();
    }
}

TEST_F(PromptMacros, NamesAreComparedInCapitals) {
    EXPECT_EQ(expand(u"$today$ $u_Nam$ $inputUnits$"_s), u"03/18/2026 jdoe psi"_s);
}

TEST_F(PromptMacros, GiveTheUserAndTheTime) {
    const MacroCase cases[] = {
        {u"$U_NAM$"_s, u"jdoe"_s},
        {u"$U_SEG$"_s, u"MT"_s},
        {u"$NOW$"_s, u"09:30:00"_s},
        {u"$TODAY$"_s, u"03/18/2026"_s},
    };
    for (const auto& testCase : cases) {
        EXPECT_EQ(expand(testCase.text, noAsset), testCase.result);
        EXPECT_EQ(expand(testCase.text, asset), testCase.result);
    }
}

TEST_F(PromptMacros, KnowTheBoundsOfTheMonths) {
    const struct {
        QDate today;
        QString firstThis, lastThis, firstNext, lastNext, firstLast, lastLast;
    } cases[] = {
        {{2026, 3, 18},
         u"03/01/2026"_s,
         u"03/31/2026"_s,
         u"04/01/2026"_s,
         u"04/30/2026"_s,
         u"02/01/2026"_s,
         u"02/28/2026"_s},
        {{2026, 1, 31},
         u"01/01/2026"_s,
         u"01/31/2026"_s,
         u"02/01/2026"_s,
         u"02/28/2026"_s,
         u"12/01/2025"_s,
         u"12/31/2025"_s},
        {{2024, 2, 29},
         u"02/01/2024"_s,
         u"02/29/2024"_s,
         u"03/01/2024"_s,
         u"03/31/2024"_s,
         u"01/01/2024"_s,
         u"01/31/2024"_s},
        {{2026, 11, 30},
         u"11/01/2026"_s,
         u"11/30/2026"_s,
         u"12/01/2026"_s,
         u"12/31/2026"_s,
         u"10/01/2026"_s,
         u"10/31/2026"_s},
    };
    for (const auto& testCase : cases) {
        clock.set(testCase.today.year(), testCase.today.month(), testCase.today.day());
        EXPECT_EQ(expand(u"$FIRSTDAYTHISMONTH$"_s), testCase.firstThis);
        EXPECT_EQ(expand(u"$LASTDAYTHISMONTH$"_s), testCase.lastThis);
        EXPECT_EQ(expand(u"$FIRSTDAYNEXTMONTH$"_s), testCase.firstNext);
        EXPECT_EQ(expand(u"$LASTDAYNEXTMONTH$"_s), testCase.lastNext);
        EXPECT_EQ(expand(u"$FIRSTDAYLASTMONTH$"_s), testCase.firstLast);
        EXPECT_EQ(expand(u"$LASTDAYLASTMONTH$"_s), testCase.lastLast);
    }
}

TEST_F(PromptMacros, InDecemberTheNextMonthBeginsInJanuaryOfTheYearThatEnds) {
    clock.set(2026, 12, 31);
    EXPECT_EQ(expand(u"$FIRSTDAYNEXTMONTH$"_s), u"01/01/2026"_s);
    EXPECT_EQ(expand(u"$LASTDAYNEXTMONTH$"_s), u"01/31/2027"_s);
    EXPECT_EQ(expand(u"$LASTDAYTHISMONTH$"_s), u"12/31/2026"_s);
    EXPECT_EQ(expand(u"$FIRSTDAYLASTMONTH$"_s), u"11/01/2026"_s);
}

TEST_F(PromptMacros, AllMacrosOfATextSeeTheSameMoment) {
    clock.set(2026, 12, 31, 23, 59, 59);
    clock.tick = 1;
    EXPECT_EQ(expand(u"$NOW$ $TODAY$ $NOW$ $FIRSTDAYTHISMONTH$ $LASTDAYLASTMONTH$"_s, noAsset),
              u"23:59:59 12/31/2026 23:59:59 12/01/2026 11/30/2026"_s);
}

TEST_F(PromptMacros, DatesAreBuiltFromTheirPartsWhateverTheOrderOfDayAndMonth) {
    session.SessionDateFormat = u"DD/MM/YYYY"_s;
    EXPECT_EQ(expand(u"$FIRSTDAYTHISMONTH$ $FIRSTDAYNEXTMONTH$"_s, noAsset), u"01/03/2026 01/04/2026"_s);
    session.SessionDateFormat = u"YYYY/MM/DD"_s;
    EXPECT_EQ(expand(u"$FIRSTDAYTHISMONTH$"_s, noAsset), u"2026/03/01"_s);
}

TEST_F(PromptMacros, DatesWithoutADateFormatAreEmpty) {
    session.SessionDateFormat.clear();
    EXPECT_EQ(expand(u"[$TODAY$$PASSCALDATE$] $NOW$"_s, noAsset), u"[] 09:30:00"_s);
}

TEST_F(PromptMacros, GiveValuesOfTheInstrument) {
    QList<MacroCase> cases{{u"$INPUTCJ$"_s, u"Internal"_s}, {u"$OUTPUTCJ$"_s, u"External 22.5mA"_s}};
    for (const auto& param : givenParams) {
        if (!param.macro.isEmpty())
            cases << MacroCase{u'$' + param.macro.toString() + u'$',
                               (param.expanded.isEmpty() ? param.stored : param.expanded).toString()};
    }
    EXPECT_GT(cases.size(), 36);
    for (const auto& testCase : cases) {
        EXPECT_EQ(expand(testCase.text), testCase.result) << testCase.text.toStdString();
        const auto name = testCase.text.mid(1, testCase.text.size() - 2);
        EXPECT_EQ(expand(testCase.text, noAsset), name) << "without an asset a macro stands as its own name";
        EXPECT_EQ(expand(testCase.text.toLower(), noAsset), name.toLower()) << "as it was written";
    }
}

TEST_F(PromptMacros, AnExternalColdJunctionIsRecognizedByItsExactWord) {
    auto row = calParamsRow();
    row[23] = u"EXT"_s;
    row[24] = u"Ext"_s;
    script.answers[calParamsStatement(u"MT"_s, asset)] = {row};
    EXPECT_EQ(expand(u"$INPUTCJ$, $OUTPUTCJ$"_s), u"External 21.5psi, Internal"_s);
}

TEST_F(PromptMacros, TheParametersAreReadOnceForAllMacrosOfAText) {
    expand(u"$INPUTLOW$ $INPUTHIGH$ $U_NAM$"_s);
    EXPECT_EQ(script.statements, QStringList{calParamsStatement(u"MT"_s, asset)});
    expand(u"$INPUTLOW$ $INPUTHIGH$ $U_NAM$"_s, noAsset);
    EXPECT_EQ(script.statements.size(), 1);
}

TEST_F(PromptMacros, TheTightestTolerancesAreGivenInPercent) {
    script.answers
        [u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = (select tp_name from "
         "mt.hvm_kv_tag_config where mtag = (select mtag from MT.inventory where i4201 = 'PT-1'))"_s] = {
        {u"0"_s}, {u"100"_s}};
    const auto fullScale = TranslateFSTestTolSingle(session, asset);
    const auto span = TranslateSpanTestTolSingle(session, asset);
    EXPECT_NEAR(fullScale, 1.339, 1e-6);
    EXPECT_EQ(expand(u"$TRANSLATEDFSTOL$"_s), plainText(fullScale) + u'%');
    EXPECT_EQ(expand(u"$TRANSLATEDSPANTOL$"_s), plainText(span) + u'%');
    EXPECT_EQ(expand(u"$TRANSLATEDFSTOL$"_s, noAsset), u"TRANSLATEDFSTOL"_s);
}

TEST_F(PromptMacros, APassedCalibrationFallsDueAfterTheInstrumentsInterval) {
    answerInventory(u"I4229"_s, u"12"_s);
    answerInventory(u"I4228"_s, u"M"_s);
    EXPECT_EQ(expand(u"Due $PASSCALDATE$ by $U_NAM$"_s), u"Due 03/18/2027 by jdoe"_s);
}

TEST_F(PromptMacros, APassedCalibrationOfNoInstrumentFallsDueTodayOrOnTheWorkingDayBefore) {
    EXPECT_EQ(expand(u"$PASSCALDATE$"_s, noAsset), u"03/18/2026"_s);
    script.answers[u"select dayofweek from mt.nonworkdays"_s] = {{u"Wednesday"_s}};
    EXPECT_EQ(expand(u"$PASSCALDATE$"_s, noAsset), u"03/17/2026"_s);
    script.answers[u"select holiday from mt.holidays"_s] = {{u"2026-03-17"_s}};
    EXPECT_EQ(expand(u"$PASSCALDATE$"_s, noAsset), u"03/16/2026"_s);
}

TEST_F(PromptMacros, ADueDateThatFailsGivesAnEmptyText) {
    answerInventory(u"I4229"_s, u"12"_s);
    answerInventory(u"I4228"_s, u"moons"_s);
    ui.expectReport(5, u"ModuleGlobals,calcDueDate"_s);
    EXPECT_EQ(expand(u"Due $PASSCALDATE$ by $U_NAM$"_s), u"Due  by jdoe"_s);
}

TEST_F(PromptMacros, ACharacterIsGivenByItsCode) {
    const MacroCase cases[] = {
        {u"$CHR:65$"_s, u"A"_s},          {u"$chr: 66 $"_s, u"B"_s},
        {u"$CHR:36$"_s, u"$"_s},          {u"$CHR:176$"_s, u"°"_s},
        {u"$CHR:128$"_s, u"€"_s},         {u"$CHR:13$"_s, u"\r"_s},
        {u"$CHR:65.5$"_s, u"B"_s},        {u"$CHR:66.5$"_s, u"B"_s},
        {u"$CHR:6.5e1$"_s, u"A"_s},       {u"$CHR:0$"_s, QString(QChar(u'\0'))},
        {u"$CHR:x$"_s, u"CHR:x"_s},       {u"$CHR:$"_s, u"CHR:"_s},
        {u"$CHR:65 A$"_s, u"CHR:65 A"_s}, {u"$CHR:256$"_s, u"Ā"_s},
        {u"$CHR:937$"_s, u"Ω"_s},         {u"$CHR:128512$"_s, u"😀"_s},
    };
    for (const auto& testCase : cases)
        EXPECT_EQ(expand(testCase.text), testCase.result) << testCase.text.toStdString();
}

TEST_F(PromptMacros, ACharacterNeedsAnAsset) {
    EXPECT_EQ(expand(u"$CHR:65$"_s, noAsset), u"CHR:65"_s);
}

TEST_F(PromptMacros, ACodeThatIsNoCharacterIsReportedAndGivesAnEmptyText) {
    for (const auto& macro : {u"$CHR:-1$"_s, u"$CHR:55296$"_s, u"$CHR:1114112$"_s}) {
        ui.expectReport(5, u"ModuleGlobals,UUTPromptTextPrepare"_s);
        EXPECT_EQ(expand(u"before "_s + macro), QString());
    }
    ui.expectReport(6, u"ModuleGlobals,UUTPromptTextPrepare"_s);
    EXPECT_EQ(expand(u"$CHR:1e12$"_s), QString());
}

TEST_F(PromptMacros, AColumnIsGivenByTheLastFiveCharactersAsWritten) {
    answerInventory(u"I4203"_s, u"3051C"_s);
    answerInventory(u"i4204"_s, u"Pressure transmitter"_s);
    EXPECT_EQ(expand(u"$DB:I4203$"_s), u"3051C"_s);
    EXPECT_EQ(expand(u"$db:i4204$"_s), u"Pressure transmitter"_s);
    EXPECT_EQ(expand(u"$DB:inventory.I4203$"_s), u"3051C"_s);
    EXPECT_EQ(expand(u"$DB:I4203$"_s, noAsset), u"DB:I4203"_s);
}

TEST_F(PromptMacros, ABareFieldNumberTakesTheColonWithItAndGivesNothing) {
    answerInventory(u"I4203"_s, u"3051C"_s);
    EXPECT_EQ(expand(u"[$DB:4203$]"_s), u"[]"_s);
    EXPECT_EQ(expand(u"[$DB:$]"_s), u"[]"_s);
}

TEST_F(PromptMacros, ANullColumnGivesNothing) {
    answerInventory(u"I4203"_s, std::nullopt);
    EXPECT_EQ(expand(u"[$DB:I4203$]"_s), u"[]"_s);
}

TEST_F(PromptMacros, ValuesAreNotScannedAgain) {
    session.SessionUser = u"a$TODAY$b"_s;
    EXPECT_EQ(expand(u"$U_NAM$"_s), u"a$TODAY$b"_s);
}

TEST_F(PromptMacros, GoOnWithWhatCouldBeReadOfTheParameters) {
    script.failures[calParamsStatement(u"MT"_s, asset)] = Error{-210, u"Locked"_s};
    ui.expectReport(-210, u"ModuleGlobals,GetCalParams"_s);
    EXPECT_EQ(expand(u"[$STRATEGYNAME$] $INPUTLOW$ $U_NAM$"_s), u"[] 0 jdoe"_s);
}

TEST_F(PromptMacros, ALongTextIsExpandedToItsEnd) {
    EXPECT_EQ(expand(u"$U_SEG$,"_s.repeated(100000)), u"MT,"_s.repeated(100000));
}

} // namespace kelvane::testing
