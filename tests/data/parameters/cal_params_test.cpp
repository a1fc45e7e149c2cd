#include "data/parameters/cal_params.h"

#include "testkit/fixtures.h"
#include "testkit/scripted_params.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleGlobals;

namespace {

const auto statement = calParamsStatement(u"MT"_s, u"PT-1"_s);

std::string name(const GivenParam& param) {
    return param.column.toString().toStdString();
}

class CalParams : public RecordedSession {
  protected:
    CalParamRecord read(const Row& row) {
        script.answers[statement] = {row};
        const auto record = GetCalParams(session, u"PT-1"_s);
        EXPECT_FALSE(ui.busy);
        return record;
    }
    CalParamRecord readWith(int position, const std::optional<QString>& value) {
        auto row = calParamsRow();
        row[position] = value;
        return read(row);
    }
};

} // namespace

TEST_F(CalParams, AreReadByOneStatementOfWhichOneRowIsWanted) {
    read(calParamsRow());
    EXPECT_EQ(script.statements, QStringList{statement});
    EXPECT_EQ(script.firstRowOnly, QStringList{statement});
    EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"normal"_s}));
}

TEST_F(CalParams, EveryValueGoesIntoItsOwnField) {
    const auto record = read(calParamsRow());
    const auto expected = givenRecord(&GivenParam::stored);
    for (const auto& param : givenParams)
        std::visit([&](auto member) { EXPECT_EQ(record.*member, expected.*member) << name(param); },
                   param.member);
}

TEST_F(CalParams, TheIndicatedFlagsAreNotSwapped) {
    const struct {
        std::optional<QString> input, output;
        bool inputIndicated, outputIndicated;
    } cases[] = {
        {u"Y"_s, u"N"_s, true, false},       {u"N"_s, u"Y"_s, false, true},
        {u"y"_s, std::nullopt, true, false}, {std::nullopt, u"y"_s, false, true},
        {u"YES"_s, u"1"_s, false, false},
    };
    for (const auto& testCase : cases) {
        auto row = calParamsRow();
        row[46] = testCase.input;
        row[47] = testCase.output;
        const auto record = read(row);
        EXPECT_EQ(record.input_indicated, testCase.inputIndicated);
        EXPECT_EQ(record.output_indicated, testCase.outputIndicated);
    }
}

TEST_F(CalParams, TheAssetAndTheOwnerGoInAsTheyAre) {
    session.SessionOwner = u"ABC"_s;
    GetCalParams(session, u"O''B"_s);
    EXPECT_EQ(script.statements, QStringList{calParamsStatement(u"ABC"_s, u"O''B"_s)});
}

TEST_F(CalParams, AreReadAnewAtEachCall) {
    read(calParamsRow());
    EXPECT_EQ(readWith(40, u"Five up"_s).tp_name, u"Five up"_s);
    EXPECT_EQ(script.statements.size(), 2);
}

TEST_F(CalParams, OfAnInstrumentWithoutAnyAreTheZeroedRecordAndNoError) {
    const auto record = GetCalParams(session, u"PT-1"_s);
    EXPECT_EQ(record.mtag, QString());
    EXPECT_EQ(record.tp_name, QString());
    EXPECT_EQ(record.loop_pwr, QString());
    EXPECT_EQ(record.input_high, 0.0F);
    EXPECT_EQ(record.repetitions, 0);
    EXPECT_FALSE(record.input_indicated || record.output_indicated);
    EXPECT_FALSE(ui.busy);
}

TEST_F(CalParams, NullsReadAsZeroWhereTheRecordProvidesForThem) {
    int position = -1;
    for (const auto& param : givenParams) {
        ++position;
        if (param.null != u'0')
            continue;
        const auto record = readWith(position, std::nullopt);
        EXPECT_EQ(record.*std::get<float CalParamRecord::*>(param.member), 0.0F) << name(param);
        EXPECT_TRUE(record.input_indicated) << "the last columns are read too: " << name(param);
    }
}

TEST_F(CalParams, ANullLoopPowerReadsAsOff) {
    EXPECT_EQ(readWith(43, std::nullopt).loop_pwr, u"OFF"_s);
}

TEST_F(CalParams, ANullInAnyOtherColumnIsReportedAndEndsTheReadingThere) {
    int position = -1;
    for (const auto& param : givenParams) {
        ++position;
        if (!param.null.isEmpty())
            continue;
        ui.expectReport(94, u"ModuleGlobals,GetCalParams"_s);
        const auto record = readWith(position, std::nullopt);
        EXPECT_FALSE(record.input_indicated) << "read on behind " << name(param);
        EXPECT_TRUE(ui.hasMetAll()) << "no report for " << name(param);
    }
}

TEST_F(CalParams, ANullTopOfTheOutputLeavesTheRecordFilledUpToThere) {
    ui.expectReport(94, u"ModuleGlobals,GetCalParams"_s);
    const auto record = readWith(7, std::nullopt);
    EXPECT_EQ(record.input_low, -15.5F);
    EXPECT_EQ(record.output_high, 0.0F);
    EXPECT_EQ(record.output_low, 0.0F);
    EXPECT_EQ(record.mtag, QString());
}

TEST_F(CalParams, NumbersAreReadFromTheirTexts) {
    EXPECT_EQ(readWith(5, u" 1.5E2 "_s).input_high, 150.0F);
    EXPECT_EQ(readWith(5, u"abc"_s).input_high, 0.0F);
    EXPECT_EQ(readWith(5, QString()).input_high, 0.0F);
    EXPECT_EQ(readWith(0, u"2.5"_s).repetitions, 2) << "halves go to the even neighbour";
    EXPECT_EQ(readWith(0, u"3.5"_s).repetitions, 4);
    EXPECT_EQ(readWith(37, u"4 wires"_s).temp_sens_wires_in, 4);
}

TEST_F(CalParams, ValuesOutsideTheirTypesAreReported) {
    ui.expectReport(6, u"ModuleGlobals,GetCalParams"_s);
    EXPECT_EQ(readWith(0, u"32768"_s).repetitions, 0);
    ui.expectReport(6, u"ModuleGlobals,GetCalParams"_s);
    EXPECT_EQ(readWith(5, u"1e39"_s).input_high, 0.0F);
}

TEST_F(CalParams, AFailedStatementIsReportedWithItsText) {
    script.failures[statement] = Error{-141, u"Table not found"_s};
    ui.expectReport(-141, u"ModuleGlobals,GetCalParams"_s);
    EXPECT_EQ(GetCalParams(session, u"PT-1"_s).mtag, QString());
    EXPECT_TRUE(folder.read(u"errors.log"_s).contains(statement));
    EXPECT_FALSE(ui.busy);
}

namespace {

const auto hasRow =
    u"select mtag from mt.hvm_kv_tag_config where mtag = (select mtag from MT.inventory where i4201 = 'PT-1')"_s;
const auto points =
    u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = (select tp_name from "
    "mt.hvm_kv_tag_config where mtag = (select mtag from MT.inventory where i4201 = 'PT-1'))"_s;
const auto repetitionsOf = u"select repetitions from mt.hvm_kv_tag_config where mtag = (select mtag from "
                           "MT.inventory where i4201 = 'PT-1')"_s;

} // namespace

TEST_F(CalParams, ConfigurationIsCompleteWithParametersAndAPoint) {
    script.answers = {{hasRow, {{u"4711"_s}}}, {points, {{u"0"_s}, {u"50"_s}}}};
    EXPECT_TRUE(HasConfigData(session, u"PT-1"_s));
    EXPECT_EQ(script.statements, (QStringList{hasRow, points}));
    EXPECT_EQ(script.firstRowOnly, script.statements);
}

TEST_F(CalParams, ConfigurationWithoutParametersIsIncompleteAndThePointsAreNotAskedFor) {
    EXPECT_FALSE(HasConfigData(session, u"PT-1"_s));
    EXPECT_EQ(script.statements, QStringList{hasRow});
}

TEST_F(CalParams, ConfigurationWhoseStrategyWasDeletedIsIncompleteWhileTheRecordIsThere) {
    script.answers = {{hasRow, {{u"4711"_s}}}};
    EXPECT_FALSE(HasConfigData(session, u"PT-1"_s));
    auto row = calParamsRow();
    row[1] = u"0"_s;
    row[42] = std::nullopt;
    const auto record = read(row);
    EXPECT_EQ(record.test_point_count, 0);
    EXPECT_EQ(record.max_test_point_pct, 0.0F);
    EXPECT_EQ(record.mtag, u"4711"_s);
}

TEST_F(CalParams, ConfigurationIsAskedForWithASafeAssetNumber) {
    const auto safe =
        u"select mtag from mt.hvm_kv_tag_config where mtag = (select mtag from MT.inventory where "
        "i4201 = 'O''B')"_s;
    script.answers = {{safe, {{u"4711"_s}}}};
    HasConfigData(session, u"O'B"_s);
    EXPECT_EQ(script.statements,
              (QStringList{safe, u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = (select "
                                 "tp_name from mt.hvm_kv_tag_config where mtag = (select mtag from "
                                 "MT.inventory where i4201 = 'O''B'))"_s}));
}

TEST_F(CalParams, ConfigurationThatCannotBeReadCountsAsIncomplete) {
    script.answers = {{hasRow, {{u"4711"_s}}}};
    script.failures = {{points, Error{-210, u"Locked"_s}}};
    ui.expectReport(-210, u"ModuleGlobals,HasConfigData"_s);
    EXPECT_FALSE(HasConfigData(session, u"PT-1"_s));
}

namespace {

class TestPoints : public CalParams {
  protected:
    /// The asset PT-1 has these percentages; gives its points.
    QList<float> pointsOf(const std::optional<QString>& repetitions, const QStringList& percentages) {
        script.answers[repetitionsOf] = {{repetitions}};
        auto& rows = script.answers[points + u" order by test_point_seq asc"_s];
        rows.clear();
        for (const auto& percentage : percentages)
            rows << Row{percentage};
        const auto fractions = GetTestPointList(session, u"PT-1"_s);
        EXPECT_FALSE(ui.busy);
        return fractions;
    }
};

} // namespace

TEST_F(TestPoints, AreFractionsEachRepeatedAtOnce) {
    EXPECT_EQ(pointsOf(u"2"_s, {u"0"_s, u"50"_s, u"100"_s}), (QList<float>{0, 0, 0.5F, 0.5F, 1, 1}));
    EXPECT_EQ(script.statements, (QStringList{repetitionsOf, points + u" order by test_point_seq asc"_s}));
    EXPECT_EQ(script.firstRowOnly, QStringList{repetitionsOf});
    EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"normal"_s}));
}

TEST_F(TestPoints, AreStoredIn32Bits) {
    EXPECT_EQ(pointsOf(u"1"_s, {u"33.3"_s, u"-10"_s, u"110"_s, u"0.7"_s}),
              (QList<float>{static_cast<float>(33.3 / 100), -0.1F, 1.1F, 0.007F}))
        << "divided in 64 bits before";
}

TEST_F(TestPoints, OfASecondCallAreItsOwnAlone) {
    const auto earlier = pointsOf(u"1"_s, {u"0"_s, u"50"_s, u"100"_s});
    EXPECT_EQ(pointsOf(u"1"_s, {u"25"_s}), QList<float>{0.25F});
    EXPECT_EQ(earlier, (QList<float>{0, 0.5F, 1}));
}

TEST_F(TestPoints, AreTakenOnceWhenTheInstrumentHasNoParameters) {
    script.answers[points + u" order by test_point_seq asc"_s] = {{u"50"_s}};
    EXPECT_EQ(GetTestPointList(session, u"PT-1"_s), QList<float>{0.5F});
}

TEST_F(TestPoints, AreNoneWithoutRepetitions) {
    EXPECT_EQ(pointsOf(u"0"_s, {u"0"_s, u"50"_s}), QList<float>());
    EXPECT_EQ(pointsOf(u"-3"_s, {u"0"_s, u"50"_s}), QList<float>());
}

TEST_F(TestPoints, TakeARoundedCountOfRepetitions) {
    EXPECT_EQ(pointsOf(u"1.5"_s, {u"50"_s}), (QList<float>{0.5F, 0.5F}));
    EXPECT_EQ(pointsOf(u"2.5"_s, {u"50"_s}), (QList<float>{0.5F, 0.5F}));
}

TEST_F(TestPoints, Of101PercentagesWithTwoRepetitionsAreReportedAndNone) {
    QStringList percentages;
    for (int i = 0; i < 101; ++i)
        percentages << QString::number(i);
    ui.expectReport(9, u"ModuleGlobals,GetTestPointList"_s);
    EXPECT_EQ(pointsOf(u"2"_s, percentages), QList<float>());
    percentages.removeLast();
    EXPECT_EQ(pointsOf(u"2"_s, percentages).size(), 200);
}

TEST_F(TestPoints, AreAsManyAs201) {
    QStringList percentages;
    for (int i = 0; i < 201; ++i)
        percentages << QString::number(i);
    const auto fractions = pointsOf(u"1"_s, percentages);
    ASSERT_EQ(fractions.size(), 201);
    EXPECT_EQ(fractions[200], 2.0F);
    percentages << u"201"_s;
    ui.expectReport(9, u"ModuleGlobals,GetTestPointList"_s);
    EXPECT_EQ(pointsOf(u"1"_s, percentages), QList<float>());
}

TEST_F(TestPoints, WithNullsAreReported) {
    ui.expectReport(94, u"ModuleGlobals,GetTestPointList"_s);
    EXPECT_EQ(pointsOf(std::nullopt, {u"50"_s}), QList<float>());
    script.answers[repetitionsOf] = {{u"1"_s}};
    script.answers[points + u" order by test_point_seq asc"_s] = {{u"50"_s}, {std::nullopt}};
    ui.expectReport(94, u"ModuleGlobals,GetTestPointList"_s);
    EXPECT_EQ(GetTestPointList(session, u"PT-1"_s), QList<float>());
}

TEST_F(TestPoints, AskForTheRepetitionsOfTheRawAssetAndForThePointsOfTheSafeOne) {
    GetTestPointList(session, u"O''B"_s);
    EXPECT_TRUE(script.statements.at(0).endsWith(u"where i4201 = 'O''B')"_s));
    EXPECT_TRUE(script.statements.at(1).endsWith(u"where i4201 = 'O''''B')) order by test_point_seq asc"_s));
}

namespace {

const auto promptsOfAsset = [](const QString& type) {
    return u"select pname,(select prompt from mt.hvm_kv_prompts where mt.hvm_kv_prompts.pname = "
           "mt.hvm_kv_proc_prompts.pname),prompt_type from mt.hvm_kv_proc_prompts where mtag = (select mtag "
           "from "
           "MT.inventory where i4201 = 'PT-1') "_s +
           type + u"order by prompt_seq asc"_s;
};
const auto promptsOfPackage =
    u"select pname,prompt,(select max(prompt_type) from mt.hvm_kv_proc_prompts where "
    "mt.hvm_kv_proc_prompts.pname = mt.hvm_kv_prompts.pname) from mt.hvm_kv_prompts where pname in (select "
    "distinct(pname) from mt.hvm_kv_proc_prompts where mtag in (select mtag from mt.hvm_kv_task_assets where "
    "tptag = 'T1'))"_s;

class Prompts : public RecordedSession {};

} // namespace

TEST_F(Prompts, OfAnAssetAreChosenByKind) {
    const struct {
        qint16 kind;
        QString type;
    } cases[] = {{0, u"and prompt_type = 'PRE' "_s}, {1, u"and prompt_type = 'PST' "_s}, {2, {}}, {-1, {}}};
    for (const auto& testCase : cases) {
        script.statements.clear();
        script.answers[promptsOfAsset(testCase.type)] = {{u"M1"_s, u"Open the valve"_s, u"PRE"_s},
                                                         {u"M2"_s, std::nullopt, u"PST"_s}};
        const auto prompts = GetPrompts(session, u"PT-1"_s, testCase.kind, u"T1"_s);
        EXPECT_EQ(script.statements, QStringList{promptsOfAsset(testCase.type)}) << testCase.kind;
        ASSERT_EQ(prompts.size(), 2) << testCase.kind;
        EXPECT_EQ(prompts[0].pname, u"M1"_s);
        EXPECT_EQ(prompts[0].prompt, u"Open the valve"_s);
        EXPECT_EQ(prompts[0].prompt_type, u"PRE"_s);
        EXPECT_EQ(prompts[1].pname, u"M2"_s);
        EXPECT_EQ(prompts[1].prompt, QString()) << "a text that was never saved";
        EXPECT_EQ(prompts[1].prompt_type, u"PST"_s);
    }
    EXPECT_FALSE(ui.busy);
}

TEST_F(Prompts, OfAPackageIgnoreTheKind) {
    script.answers[promptsOfPackage] = {{u"M1"_s, u"Open the valve"_s, u"PST"_s}};
    for (const qint16 kind : {qint16{0}, qint16{1}, qint16{2}}) {
        const auto prompts = GetPrompts(session, {}, kind, u"T1"_s);
        EXPECT_EQ(script.statements.last(), promptsOfPackage);
        ASSERT_EQ(prompts.size(), 1);
        EXPECT_EQ(prompts[0].prompt_type, u"PST"_s);
    }
}

TEST_F(Prompts, AreAsManyAs251AndReportTheNext) {
    auto& rows = script.answers[promptsOfAsset({})];
    for (int i = 0; i < 251; ++i)
        rows << Row{u"M%1"_s.arg(i), u"text"_s, u"PRE"_s};
    const auto prompts = GetPrompts(session, u"PT-1"_s, 2, {});
    ASSERT_EQ(prompts.size(), 251);
    EXPECT_EQ(prompts[250].pname, u"M250"_s);
    rows << Row{u"M251"_s, u"text"_s, u"PRE"_s};
    ui.expectReport(9, u"ModuleGlobals,GetPrompts"_s);
    EXPECT_TRUE(GetPrompts(session, u"PT-1"_s, 2, {}).isEmpty());
    EXPECT_FALSE(ui.busy);
}

TEST_F(Prompts, WithoutNameOrTypeAreReported) {
    for (const auto& row : {Row{std::nullopt, u"text"_s, u"PRE"_s}, Row{u"M1"_s, u"text"_s, std::nullopt}}) {
        script.answers[promptsOfAsset({})] = {row};
        ui.expectReport(94, u"ModuleGlobals,GetPrompts"_s);
        EXPECT_TRUE(GetPrompts(session, u"PT-1"_s, 2, {}).isEmpty());
    }
}

} // namespace kelvane::testing
