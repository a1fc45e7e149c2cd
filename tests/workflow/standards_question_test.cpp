#include "tests/workflow/download_list_fixture.h"

#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST_F(DownloadList, AnInstrumentIsAddedWithItsStandardByExactStatements) {
    expectQuestion(u"W-1"_s, u"X-1"_s);
    expectQuestion(u"W-1"_s, QString(), false);
    add(u"W-1"_s);
    EXPECT_EQ(screen.list, QStringList{u"W-1"_s});
    EXPECT_EQ(screen.events, ended);
    EXPECT_EQ(ui.events.last(), u"normal"_s);
    const auto config = u"select mtag from mt.hvm_kv_tag_config where mtag = "_s;
    const QStringList expected{
        selectPackage(u"W-1"_s),
        selectMtag(u"W-1"_s),
        selectConfig(u"W-1"_s),
        selectPoints(u"W-1"_s),
        selectParams(u"W-1"_s),
        freeStandards(u"W-1"_s),
        selectLast(u"W-1"_s),
        forgetLast(u"W-1"_s),
        selectConfig(u"X-1"_s),
        selectPoints(u"X-1"_s),
        selectQualification(u"X-1"_s, u"W-1"_s),
        u"select sum(locate(tracecodes,(select i4209 from MT.inventory where i4201 = 'W-1')) - locate(tracecodes,(select i4209 from MT.inventory where i4201 = 'X-1')) - trace_delta) from mt.dbconfig"_s,
        useStandard(u"X-1"_s, u"W-1"_s),
        forgetLast(u"W-1"_s),
        rememberLast(u"X-1"_s, u"W-1"_s),
    };
    EXPECT_EQ(script.statements, expected);
    EXPECT_TRUE(script.firstRowOnly.contains(selectLast(u"W-1"_s)));
}

TEST_F(DownloadList, FurtherStandardsAreAskedForUntilAnEmptyAnswerAndOnlyTheFirstIsRemembered) {
    expectQuestion(u"W-1"_s, u"X-1"_s);
    expectQuestion(u"W-1"_s, u"X-2"_s, false);
    expectQuestion(u"W-1"_s, QString(), false);
    add(u"W-1"_s);
    EXPECT_EQ(writes(), (QStringList{freeStandards(u"W-1"_s), forgetLast(u"W-1"_s),
                                     useStandard(u"X-1"_s, u"W-1"_s), forgetLast(u"W-1"_s),
                                     rememberLast(u"X-1"_s, u"W-1"_s), useStandard(u"X-2"_s, u"W-1"_s)}));
}

TEST_F(DownloadList, TheLastStandardIsProposedAndForgottenBeforeTheAnswer) {
    script.answers.insert(selectLast(u"W-1"_s), {{u"X-2"_s}});
    expectQuestion(u"W-1"_s, u"*CANCEL*"_s, true, u"X-2"_s);
    add(u"W-1"_s);
    EXPECT_EQ(screen.list, QStringList());
    EXPECT_EQ(screen.events, ended);
    EXPECT_EQ(writes(), (QStringList{freeStandards(u"W-1"_s), forgetLast(u"W-1"_s)}));
}

TEST_F(DownloadList, ALastStandardWithoutAssetNumberIsReportedAndEndsTheAddition) {
    script.answers.insert(selectLast(u"W-1"_s), {{std::nullopt}});
    ui.expectReport(94, u"FormDockingDown,CommandAdd"_s);
    add(u"W-1"_s);
    EXPECT_EQ(screen.list, QStringList());
    EXPECT_FALSE(ui.busy);
}

TEST_F(DownloadList, ARequiredNameOfBlanksCountsAsCancelled) {
    expectQuestion(u"W-1"_s, QString());
    add(u"W-1"_s);
    EXPECT_EQ(screen.list, QStringList());
}

TEST_F(DownloadList, CancellingAfterOneStandardWasAcceptedLeavesThatStandardsRow) {
    expectQuestion(u"W-1"_s, u"X-1"_s);
    expectQuestion(u"W-1"_s, u"*CANCEL*"_s, false);
    add(u"W-1"_s);
    EXPECT_EQ(screen.list, QStringList());
    EXPECT_EQ(writes().filter(useStandard(u"X-1"_s, u"W-1"_s)).size(), 1);
    EXPECT_EQ(writes().last(), rememberLast(u"X-1"_s, u"W-1"_s));
}

TEST_F(DownloadList, EachRefusalOfAStandardAsksAgain) {
    addInstrument(u"LOW"_s, u"1"_s, transducer());
    qualify(u"LOW"_s, u"W-1"_s, {}, u"-1"_s);
    addInstrument(u"OLD"_s, u"2"_s, transducer());
    qualify(u"OLD"_s, u"W-1"_s, u"2026-03-17"_s);
    addInstrument(u"NONE"_s, u"3"_s, transducer()); // without a row in the inventory of standards
    addInstrument(u"TRACE"_s, u"4"_s, transducer());
    script.answers.insert(selectQualification(u"TRACE"_s, u"W-1"_s), {{u"A"_s, {}, {}, {}, u"N"_s, u"N"_s}});
    const auto ask = [&](const QString& answer) { expectQuestion(u"W-1"_s, answer, true, u"X-2"_s); };
    script.answers.insert(selectLast(u"W-1"_s), {{u"X-2"_s}});
    ask(u"w-1"_s);
    expectWarning(u"W-1: An asset cannot calibrate itself!"_s);
    ask(u"unconfigured"_s);
    expectWarning(u"W-1: "_s + incomplete);
    ask(u"LOW"_s);
    expectWarning(u"Standard is not of a high enough trace level to calibrate: W-1"_s, standardRequired);
    ask(u"OLD"_s);
    expectWarning(u"Standard is overdue for calibration!"_s, standardRequired);
    ask(u"NONE"_s); // neither these two say a word
    ask(u"TRACE"_s);
    ask(u"X-1"_s);
    expectQuestion(u"W-1"_s, u"W-1"_s, false);
    expectWarning(u"W-1: An asset cannot calibrate itself!"_s);
    expectQuestion(u"W-1"_s, QString(), false);
    add(u"W-1"_s);
    EXPECT_EQ(screen.list, QStringList{u"W-1"_s});
    EXPECT_EQ(writes().filter(u"insert"_s).size(), 2);
}

TEST_F(DownloadList, OnlyTheTorqueStarWantsCalibrationParametersOfTheStandard) {
    addInstrument(u"L-1"_s, u"KL-1"_s, lamp());
    for (const auto& asset : {u"L-1"_s, u"W-1"_s})
        qualify(u"PLAIN"_s, asset); // in the inventory, without parameters
    screen.name = u"Fluke 702"_s;
    ui.expectBox(u"L-1: "_s + text(TextId::outputNotMeasurable), title, box::information);
    expectQuestion(u"L-1"_s, u"PLAIN"_s);
    expectQuestion(u"L-1"_s, QString(), false);
    add(u"L-1"_s);
    EXPECT_EQ(screen.list, QStringList{u"L-1"_s});
    EXPECT_EQ(writes().filter(useStandard(u"PLAIN"_s, u"L-1"_s)).size(), 1);
    EXPECT_EQ(script.statements.filter(selectConfig(u"PLAIN"_s)), QStringList());

    screen.name = u"Crane TorqueStar IVc"_s;
    expectQuestion(u"W-1"_s, u"PLAIN"_s);
    expectWarning(u"W-1: "_s + incomplete);
    expectQuestion(u"W-1"_s, u"*CANCEL*"_s);
    add(u"W-1"_s);
    EXPECT_EQ(screen.list, QStringList{u"L-1"_s});
    EXPECT_EQ(script.statements.filter(selectConfig(u"PLAIN"_s)).size(), 1);
}

TEST_F(DownloadList, AFluke702AsksForAStandardOnlyWhereItCannotMeasure) {
    addInstrument(u"V-1"_s, u"KV-1"_s, isolator());
    screen.name = u"Fluke 702"_s;
    add(u"V-1"_s);
    EXPECT_EQ(screen.list, QStringList{u"V-1"_s});
    EXPECT_EQ(writes(), QStringList{freeStandards(u"V-1"_s)});
}

TEST_F(DownloadList, OnlyTheFirstStandardOfAPackageIsRequiredProposedAndRemembered) {
    script.answers.insert(selectLast(u"W-1"_s), {{u"X-1"_s}});
    script.answers.insert(selectLast(u"W-2"_s), {{u"X-2"_s}});
    addPackage(u"PACK"_s, {u"W-1"_s, u"W-2"_s, u"W-3"_s});
    expectQuestion(u"W-1"_s, u"X-1"_s, true, u"X-1"_s);
    expectQuestion(u"W-1"_s, QString(), false);
    expectQuestion(u"W-2"_s, u"X-2"_s, false);
    expectQuestion(u"W-2"_s, QString(), false);
    expectQuestion(u"W-3"_s, QString(), false);
    add(u"PACK"_s);
    EXPECT_EQ(screen.list, (QStringList{u"W-1"_s, u"W-2"_s, u"W-3"_s}));
    EXPECT_EQ(writes(),
              (QStringList{freeStandards(u"W-1"_s), forgetLast(u"W-1"_s), useStandard(u"X-1"_s, u"W-1"_s),
                           forgetLast(u"W-1"_s), rememberLast(u"X-1"_s, u"W-1"_s), freeStandards(u"W-2"_s),
                           forgetLast(u"W-2"_s), useStandard(u"X-2"_s, u"W-2"_s), freeStandards(u"W-3"_s),
                           forgetLast(u"W-3"_s)}));
    EXPECT_TRUE(script.statements.contains(selectLast(u"W-2"_s))) << "looked up, and not proposed";
}

TEST_F(DownloadList, AfterACancelledMemberTheNextOneIsStillRequiredWithItsOwnProposal) {
    script.answers.insert(selectLast(u"W-1"_s), {{u"X-1"_s}});
    addPackage(u"PACK"_s, {u"W-1"_s, u"W-2"_s});
    expectQuestion(u"W-1"_s, u"*CANCEL*"_s, true, u"X-1"_s);
    expectQuestion(u"W-2"_s, u"X-2"_s, true, QString());
    expectQuestion(u"W-2"_s, QString(), false);
    add(u"PACK"_s);
    EXPECT_EQ(screen.list, QStringList{u"W-2"_s});
}

TEST_F(DownloadList, AnAnswerWithAQuoteBreaksItsStatementAndIsReported) {
    const auto quoted = u"O'Neil"_s;
    addInstrument(quoted, u"9"_s, transducer());
    script.answers.insert(
        u"select mtag from mt.hvm_kv_tag_config where mtag = (select mtag from MT.inventory where i4201 = 'O''Neil')"_s,
        {{u"9"_s}});
    script.answers.insert(
        u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = (select tp_name from mt.hvm_kv_tag_config where mtag = (select mtag from MT.inventory where i4201 = 'O''Neil'))"_s,
        {{u"1"_s}});
    script.answers.insert(selectQualification(u"O''Neil"_s, u"W-1"_s),
                          {{u"A"_s, {}, {}, u"B"_s, u"Y"_s, u"Y"_s}});
    expectQuestion(u"W-1"_s, quoted);
    ui.expectReport(1, u"FormDockingDown,CommandAdd"_s);
    add(u"W-1"_s);
    EXPECT_FALSE(script.statements.contains(useStandard(quoted, u"W-1"_s)));
    EXPECT_EQ(screen.list, QStringList());
}

} // namespace kelvane::testing
