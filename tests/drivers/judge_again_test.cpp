#include "drivers/judge_again.h"

#include "data/field_dictionary.h"
#include "drivers/fluke702/run_results.h"
#include "drivers/torquestar/tool_results.h"
#include "tests/support/fixtures.h"

#include <gtest/gtest.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class ResultsJudgedAgain : public RecordedSession {
  protected:
    QStringList standardsOf(const JournalEntry& entry, const QStringList& inUseNow) {
        session.RecordStandards.erase();
        for (int row = 0; row < inUseNow.size(); ++row)
            session.RecordStandards[row] = inUseNow[row];
        takeStandardsOf(session, entry);
        return entriesOf(session.RecordStandards);
    }
};

TEST_F(ResultsJudgedAgain, TakesTheStandardsThatWereFoundWhenTheResultsWereRead) {
    EXPECT_EQ(standardsOf({.prepared = true, .standards = {u"S-1"_s, u"S-2"_s}}, {u"S-9"_s}),
              (QStringList{u"S-1"_s, u"S-2"_s}));
}

TEST_F(ResultsJudgedAgain, AddsTheStandardsInUseNowWhenThePreparationFailed) {
    EXPECT_EQ(standardsOf({.prepared = false, .standards = {u"S-1"_s}}, {u"S-9"_s}),
              (QStringList{u"S-1"_s, u"S-9"_s}));
    EXPECT_EQ(standardsOf({.prepared = false}, {}), QStringList());
}

TEST_F(ResultsJudgedAgain, RefusesReadingsThatAreNotOneForEachPoint) {
    EXPECT_EQ(countMismatch(u"PT-1"_s, 3, 3), QString());
    EXPECT_EQ(countMismatch(u"PT-1"_s, 3, 5), u"The test strategy or the repetitions of PT-1 have been "
                                              u"changed: there are 3 readings, and 5 are asked "
                                              "for now. The results are kept."_s);
}

TEST(ToolResultsInTheJournal, ComeBackByteForByte) {
    using namespace ModuleTSInterface;
    ToolResults results;
    for (int length : {0, 1, 12, 300}) {
        QByteArray reply;
        for (int i = 0; i < length; ++i)
            reply += static_cast<char>(i);
        results.points << reply;
    }
    results.comment = QByteArray("t1F\xE4\x00\xFF", 6);
    results.tech = u"jdöe"_s;
    const auto again = resultsOf(toJson(results));
    EXPECT_EQ(again.points, results.points);
    EXPECT_EQ(again.comment, results.comment);
    EXPECT_EQ(again.tech, results.tech);
    EXPECT_TRUE(resultsOf({}).points.isEmpty());
}

TEST(RunResultsInTheJournal, ComeBackBitForBit) {
    using namespace Module702Interface;
    RunResults run;
    run.kind = asLeftRun;
    run.tag = {u"PT-1"_s, u"S'1"_s, u"ä"_s};
    run.comesAgain = true;
    run.pressureModule = u"9001"_s;
    run.inUseTech = u"jdoe"_s;
    const float values[] = {0.1F, -0.0F, 1e-45F, 3.4028235e38F, 1.0F / 3.0F};
    for (const float value : values)
        run.entries << RunEntry{value, -value, value / 2};
    const auto again = runOf(toJson(run));
    EXPECT_EQ(again.kind, run.kind);
    EXPECT_EQ(again.tag.tag, run.tag.tag);
    EXPECT_EQ(again.tag.serial, run.tag.serial);
    EXPECT_EQ(again.tag.technician, run.tag.technician);
    EXPECT_TRUE(again.comesAgain);
    EXPECT_EQ(again.pressureModule, run.pressureModule);
    EXPECT_EQ(again.inUseTech, run.inUseTech);
    ASSERT_EQ(again.entries.size(), run.entries.size());
    for (qsizetype i = 0; i < run.entries.size(); ++i) {
        EXPECT_EQ(again.entries[i].reading, run.entries[i].reading) << i;
        EXPECT_EQ(again.entries[i].applied, run.entries[i].applied) << i;
        EXPECT_EQ(again.entries[i].calibratorError, run.entries[i].calibratorError) << i;
    }
}

} // namespace kelvane::testing
