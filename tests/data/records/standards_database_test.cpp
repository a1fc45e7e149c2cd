#include "data/records/standards.h"

#include "testkit/database_session.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleGlobals;

namespace {

class StandardsOnDatabase : public DatabaseSession {
  protected:
    qint16 check(const QString& standard, const QString& instrument = u"TW-101"_s) {
        return CheckStandard(session, standard, instrument);
    }
    /// The due moment of the current calibration of a standard of owner MT.
    void setDue(const QString& standard, const QString& date, const QString& time) {
        execute(u"update MT.calibration set c2303 = "_s + date + u", c2334 = "_s + time +
                u" where c2339 = 1 and mtag = (select mtag from MT.inventory where i4201 = '"_s + standard +
                u"')"_s);
    }
    void setTrace(const QString& asset, const QString& code) {
        execute(u"update MT.inventory set i4209 = "_s + code + u" where i4201 = '"_s + asset + u"'"_s);
    }
};

} // namespace

TEST_F(StandardsOnDatabase, GetTheirVerdict) {
    const struct {
        QString standard, instrument;
        qint16 code;
    } cases[] = {
        {u"TT-0300F"_s, u"TW-101"_s, 0},  {u"TT-0200F"_s, u"TW-101"_s, 2}, {u"TT-TRAIN"_s, u"TW-101"_s, 1},
        {u"TT-NONE"_s, u"TW-101"_s, 3},   {u"TT-0300F"_s, u"UC-903"_s, 4}, {u"TT-0200F"_s, u"UC-903"_s, 4},
        {u"DWT-01"_s, u"PT-101"_s, 0},    {u"PM-030"_s, u"PT-101"_s, 2},   {u"PM-300"_s, u"PT-101"_s, 0},
        {u""_s, u"TW-101"_s, 3},          {u"TT-0300F"_s, u""_s, 3},       {u"UC-903"_s, u"TW-101"_s, 3},
        {u"TT-0300F"_s, u"TW-NONE"_s, 4},
    };
    for (const auto& testCase : cases)
        EXPECT_EQ(check(testCase.standard, testCase.instrument), testCase.code)
            << testCase.standard.toStdString() << " for " << testCase.instrument.toStdString();
}

TEST_F(StandardsOnDatabase, OfAnotherOwnersSessionAreThoseOfSTD) {
    logIn(users::editorOfAbc);
    EXPECT_EQ(check(u"STD-REF-1"_s, u"ABC-PT-1"_s), 0);
    EXPECT_EQ(check(u"STD-OLD-1"_s, u"ABC-PT-1"_s), 2);
    EXPECT_EQ(check(u"STD-LOW-1"_s, u"ABC-PT-1"_s), 1);
    EXPECT_EQ(check(u"TT-0300F"_s, u"ABC-PT-1"_s), 3);
    EXPECT_EQ(check(u"F702-11"_s, u"ABC-PT-1"_s), 3) << "one's own calibrator is not looked for";
    EXPECT_EQ(folder.read(u"errors.log"_s), QString());
}

TEST_F(StandardsOnDatabase, TheSwitchForOverdueOnesCountsByAnExplicitNOnly) {
    const struct {
        QString value;
        qint16 code;
    } cases[] = {{u"'N'"_s, 2}, {u"'n'"_s, 2}, {u"'Y'"_s, 0}, {u"null"_s, 0}};
    for (const auto& testCase : cases) {
        execute(u"update mt.hvm_kv_sysconfig set allow_ooc_stds = "_s + testCase.value);
        EXPECT_EQ(check(u"TT-0200F"_s), testCase.code) << testCase.value.toStdString();
    }
}

TEST_F(StandardsOnDatabase, TheSwitchForLowRanksCountsByANullToo) {
    const struct {
        QString value;
        qint16 code;
    } cases[] = {{u"'N'"_s, 1}, {u"'n'"_s, 1}, {u"null"_s, 1}, {u"'Y'"_s, 0}};
    for (const auto& testCase : cases) {
        execute(u"update mt.hvm_kv_sysconfig set allow_poor_trace_stds = "_s + testCase.value);
        EXPECT_EQ(check(u"TT-TRAIN"_s), testCase.code) << testCase.value.toStdString();
    }
}

TEST_F(StandardsOnDatabase, WithoutTheRowOfSwitchesOnlyTheRankCounts) {
    execute(u"delete from mt.hvm_kv_sysconfig"_s);
    EXPECT_EQ(check(u"TT-0200F"_s), 0);
    EXPECT_EQ(check(u"TT-TRAIN"_s), 1);
}

TEST_F(StandardsOnDatabase, AnOverdueOneOfTooLowARankIsOverdue) {
    setDue(u"TT-TRAIN"_s, u"'2020-01-01'"_s, u"null"_s);
    EXPECT_EQ(check(u"TT-TRAIN"_s), 2);
}

TEST_F(StandardsOnDatabase, TheOrderOfTraceCodesRanks) {
    execute(u"update mt.dbconfig set tracecodes = 'ABC', trace_delta = 1"_s);
    const struct {
        QString standard, instrument;
        qint16 code;
    } cases[] = {
        {u"A"_s, u"B"_s, 0},
        {u"A"_s, u"C"_s, 0},
        {u"B"_s, u"C"_s, 0},
        {u"B"_s, u"B"_s, 1},
        {u"C"_s, u"B"_s, 1},
        {u"A"_s, u"A"_s, 1},
        // A code that isn't in the order counts as place 0.
        {u"X"_s, u"A"_s, 0},
        {u"X"_s, u"X"_s, 1},
        {u"A"_s, u"X"_s, 1},
    };
    for (const auto& testCase : cases) {
        setTrace(u"TT-0300F"_s, u"'"_s + testCase.standard + u"'"_s);
        setTrace(u"TW-101"_s, u"'"_s + testCase.instrument + u"'"_s);
        EXPECT_EQ(check(u"TT-0300F"_s), testCase.code)
            << testCase.standard.toStdString() << " for " << testCase.instrument.toStdString();
    }
    setTrace(u"TT-0300F"_s, u"null"_s);
    EXPECT_EQ(check(u"TT-0300F"_s), 3);
}

TEST_F(StandardsOnDatabase, WithoutAnOrderOfTraceCodesNoRankIsTooLow) {
    execute(u"update mt.dbconfig set tracecodes = null"_s);
    EXPECT_EQ(check(u"TT-TRAIN"_s), 0);
}

TEST_F(StandardsOnDatabase, TheDueMomentIsReadFromItsColumns) {
    const auto today = clock.now().toString(u"''yyyy-MM-dd''"_s);
    setDue(u"TT-0300F"_s, today, u"'00:00:00'"_s);
    EXPECT_EQ(check(u"TT-0300F"_s), 2);
    setDue(u"TT-0300F"_s, u"'2020-01-01'"_s, u"null"_s);
    EXPECT_EQ(check(u"TT-0300F"_s), 2);
    setDue(u"TT-0300F"_s, u"'2999-12-31'"_s, u"null"_s);
    EXPECT_EQ(check(u"TT-0300F"_s), 0);
    setDue(u"TT-0300F"_s, u"null"_s, u"null"_s);
    EXPECT_EQ(check(u"TT-0300F"_s), 0);
}

TEST_F(StandardsOnDatabase, ANameWithAQuoteIsSafeInTheFirstStatementAndBreaksTheSecond) {
    EXPECT_EQ(check(u"O'Brien"_s), 3);
    execute(u"update MT.inventory set i4201 = 'O''Brien' where i4201 = 'TT-0300F'"_s);
    ui.expectReport(1, u"ModuleGlobals,CheckStandard"_s);
    EXPECT_EQ(check(u"O'Brien"_s), 0);
}

} // namespace kelvane::testing
