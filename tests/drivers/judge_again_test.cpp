#include "drivers/judge_again.h"

#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class JudgedAgain : public RecordedSession {
  protected:
    CalRecord record;
};

TEST_F(JudgedAgain, ReadingsMustBeAsManyAsThePoints) {
    EXPECT_EQ(countMismatch(u"PT-1"_s, 3, 3), QString());
    const auto format =
        u"The test strategy or the repetitions of PT-1 have been changed: there are %1 readings, "
        "and %2 are asked for now. The results are kept."_s;
    EXPECT_EQ(countMismatch(u"PT-1"_s, 3, 2), format.arg(3).arg(2));
    EXPECT_EQ(countMismatch(u"PT-1"_s, 0, 1), format.arg(0).arg(1));
}

TEST_F(JudgedAgain, TheStandardsOfThenCountAndThoseOfNowForAFailedPreparationAlone) {
    JournalEntry entry;
    entry.standards = QStringList{u"F702-01"_s};
    entry.prepared = true;
    record.RecordStandards[0] = u"X-1"_s;
    takeStandardsOf(record, entry);
    EXPECT_EQ(entriesOf(record.RecordStandards), QStringList{u"F702-01"_s});
    entry.prepared = false;
    record.RecordStandards[0] = u"X-1"_s;
    record.RecordStandards[1] = u"X-2"_s;
    takeStandardsOf(record, entry);
    EXPECT_EQ(entriesOf(record.RecordStandards), (QStringList{u"F702-01"_s, u"X-1"_s, u"X-2"_s}));
}

TEST_F(JudgedAgain, BeginsWithEmptyListsAndAsksForWhatTheInstrumentIsNow) {
    record.RecordResults[0] = u"left over"_s;
    record.RecordStandards[0] = u"left over"_s;
    script.answers.insert(
        u"select count(ctag) from MT.calibration where mtag = (select mtag from MT.inventory where i4201 = 'PT-1')"_s,
        {{u"0"_s}});
    const auto begun = beginRejudgement(session, record, u"PT-1"_s);
    EXPECT_EQ(begun.points, QList<float>());
    EXPECT_EQ(begun.instrument.mtag, QString());
    EXPECT_EQ(entriesOf(record.RecordResults) + entriesOf(record.RecordStandards), QStringList());
    EXPECT_FALSE(script.statements.filter(u"from mt.customiz"_s).isEmpty());
    EXPECT_FALSE(script.statements.filter(u"mt.hvm_kv_tag_config"_s).isEmpty());
}

} // namespace kelvane::testing
