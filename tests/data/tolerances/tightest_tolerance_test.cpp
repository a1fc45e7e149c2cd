#include "data/tolerances/tolerances.h"
#include "testkit/fixtures.h"
#include "testkit/scripted_params.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

using namespace ModuleGlobals;

const auto pointsQuery =
    u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = (select tp_name from "
    "mt.hvm_kv_tag_config where mtag = (select mtag from MT.inventory where i4201 = 'PT-1'))"_s;

const auto parametersQuery = calParamsStatement(u"MT"_s, u"PT-1"_s);

struct Side {
    QString fs = u"0"_s;
    QString span = u"0"_s;
    QString reading = u"0"_s;
    QString lsd = u"0"_s;
    QString units = u"0"_s;
};

struct Instrument {
    QString high;
    QString low;
    Side negative;
    Side positive;
};

/// A row of the parameters query; positions that play no part here hold a zero.
Row parameters(const Instrument& instrument) {
    constexpr int columns = 48;
    Row row(columns, u"0"_s);
    const struct {
        int column;
        QString value;
    } entries[] = {
        {2, u"0.1"_s},
        {5, instrument.high},
        {6, instrument.low},
        {9, instrument.negative.fs},
        {10, instrument.positive.fs},
        {11, instrument.negative.span},
        {12, instrument.positive.span},
        {13, instrument.negative.reading},
        {14, instrument.positive.reading},
        {15, instrument.negative.lsd},
        {16, instrument.positive.lsd},
        {17, instrument.negative.units},
        {18, instrument.positive.units},
    };
    for (const auto& entry : entries)
        row[entry.column] = entry.value;
    return row;
}

} // namespace

class TightestTolerance : public RecordedSession {
  protected:
    void instrument(const Instrument& instrument, const QStringList& points) {
        script.answers[parametersQuery] = {parameters(instrument)};
        auto& rows = script.answers[pointsQuery];
        rows.clear();
        for (const auto& point : points)
            rows << Row{point};
    }
};

TEST_F(TightestTolerance, TakesTheSmallestOverPointsAndSides) {
    const Side mixed{u"0.5"_s, u"0.25"_s, u"1"_s, u"2"_s, u"0.3"_s};
    const Side tighter{u"0.25"_s, u"0.25"_s, u"1"_s, u"2"_s, u"0.3"_s};
    const struct {
        const char* name;
        Instrument instrument;
        QStringList points;
        double of_full_scale;
        double of_span;
    } rows[] = {
        // 0.5 % + 0.25 % + 1 % of the reading + 0.5 units of 100 = 0.5 %
        {"reading terms make the lowest point the tightest",
         {u"100"_s, u"0"_s, mixed, mixed},
         {u"100"_s, u"0"_s, u"50"_s},
         1.25,
         1.25},
        {"one point only", {u"100"_s, u"0"_s, mixed, mixed}, {u"50"_s}, 1.75, 1.75},
        {"the positive side is the tighter one", {u"100"_s, u"0"_s, mixed, tighter}, {u"0"_s}, 1, 1},
        {"the negative side is the tighter one", {u"100"_s, u"0"_s, tighter, mixed}, {u"0"_s}, 1, 1},
        // Full scale is 200; span 100: fs 0.5 + span 0.125 + reading 0.5 + 0.25; span: 1 + 0.25 + 1 + 0.5
        {"a raised zero", {u"200"_s, u"100"_s, mixed, mixed}, {u"0"_s}, 1.375, 2.75},
        // Full scale -100, span 150. At 0 %, the reading point is -100:
        // negative 0.5 + 0.25*150/50 + 1 + 0.5/50 = 3.25, positive 0.5 - 0.375 + 1 - 0.5 = 0.625;
        // span 0.25 + 0.5*50/150 + 1*-100/150 + 0.5/150 = 0.08333 (in percent)
        {"a range that reaches further below zero than above it",
         {u"50"_s, u"-100"_s, mixed, mixed},
         {u"0"_s},
         0.625,
         0.25 + 25.0 / 150 - 100.0 / 150 + 50.0 / 150},
        {"its upper end, where the positive side comes out negative",
         {u"50"_s, u"-100"_s, mixed, mixed},
         {u"100"_s},
         0.5 - 0.375 - 0.5 - 0.5,
         0.25 + 25.0 / 150 + 50.0 / 150 + 50.0 / 150},
        // At equal distances from zero the bottom is full scale: -100.
        {"a symmetrical range refers to its bottom",
         {u"100"_s, u"-100"_s, mixed, mixed},
         {u"50"_s},
         0.5 - 0.5 + 0 - 0.5,
         0.25 + 0.25 + 0 + 0.25},
        {"equal ends: the span is the top",
         {u"100"_s, u"100"_s, mixed, mixed},
         {u"0"_s},
         0.5 + 0 + 1 + 0.5,
         0.25 + 0.5 + 1 + 0.5},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        instrument(row.instrument, row.points);
        EXPECT_NEAR(TranslateFSTestTolSingle(session, u"PT-1"_s), row.of_full_scale, 1E-6);
        EXPECT_NEAR(TranslateSpanTestTolSingle(session, u"PT-1"_s), row.of_span, 1E-6);
    }
}

TEST_F(TightestTolerance, IsExactToTheLastBitSinceEachTermIsDividedWhereItsRuleSays) {
    // The figures were worked out apart from the program; any other order of a term or of the sum misses one.
    const struct {
        Instrument instrument;
        QString point;
        double of_full_scale;
        double of_span;
    } rows[] = {
        {{u"250"_s, u"0.7"_s, {}, {u"0.1"_s, u"0.1"_s, u"0.2"_s, u"3"_s, u"0.7"_s}},
         u"33.3"_s,
         0.666693519204079,
         0.6685655025794217},
        {{u"87.3"_s, u"0.7"_s, {}, {u"0.7"_s, u"1.3"_s, u"1.3"_s, u"3"_s, u"0.3"_s}},
         u"90"_s,
         3.8479036680101713,
         3.879006813812093},
        {{u"250"_s, u"4"_s, {}, {u"1.1"_s, u"0.1"_s, u"0.15"_s, u"1"_s, u"0.7"_s}},
         u"66.7"_s,
         1.6192492245471475,
         1.645578480230841},
    };
    for (const auto& row : rows) {
        auto same = row.instrument;
        same.negative = same.positive;
        instrument(same, {row.point});
        EXPECT_EQ(TranslateFSTestTolSingle(session, u"PT-1"_s), row.of_full_scale);
        EXPECT_EQ(TranslateSpanTestTolSingle(session, u"PT-1"_s), row.of_span);
    }
}

TEST_F(TightestTolerance, ResolutionCountsByWayOfItsText) {
    Side counts;
    counts.lsd = u"3"_s;
    instrument({u"1"_s, u"0"_s, counts, counts}, {u"0"_s});
    EXPECT_EQ(TranslateFSTestTolSingle(session, u"PT-1"_s), 0.30000000000000004 * 100);
    EXPECT_EQ(TranslateSpanTestTolSingle(session, u"PT-1"_s), 0.30000000000000004 * 100);
}

TEST_F(TightestTolerance, WithoutTestPointsIsTenMillion) {
    instrument({u"100"_s, u"0"_s, {}, {}}, {});
    EXPECT_EQ(TranslateFSTestTolSingle(session, u"PT-1"_s), 10000000);
    EXPECT_EQ(TranslateSpanTestTolSingle(session, u"PT-1"_s), 10000000);
}

TEST_F(TightestTolerance, InstrumentWithoutConfigurationAndPointsIsTenMillionToo) {
    EXPECT_EQ(TranslateFSTestTolSingle(session, u"PT-1"_s), 10000000);
    EXPECT_EQ(TranslateSpanTestTolSingle(session, u"PT-1"_s), 10000000);
}

TEST_F(TightestTolerance, ReadsTheParametersAndThenThePointsInNoOrder) {
    instrument({u"100"_s, u"0"_s, {}, {}}, {u"50"_s});
    TranslateFSTestTolSingle(session, u"PT-1"_s);
    EXPECT_EQ(script.statements, (QStringList{parametersQuery, pointsQuery}));
    EXPECT_FALSE(ui.busy);
    EXPECT_TRUE(ui.events.contains(u"busy"_s));
}

TEST_F(TightestTolerance, EmptyRangeIsADivisionByZeroAndGivesZero) {
    instrument({u"0"_s, u"0"_s, {u"1"_s}, {u"1"_s}}, {u"0"_s});
    ui.expectReport(11, u"ModuleGlobals,TranslateFSTestTolSingle"_s);
    EXPECT_EQ(TranslateFSTestTolSingle(session, u"PT-1"_s), 0);
    ui.expectReport(11, u"ModuleGlobals,TranslateSpanTestTolSingle"_s);
    EXPECT_EQ(TranslateSpanTestTolSingle(session, u"PT-1"_s), 0);
    EXPECT_FALSE(ui.busy);
}

TEST_F(TightestTolerance, TopOfZeroAloneDividesByZeroInFullScaleButNotInSpan) {
    instrument({u"0"_s, u"-100"_s, {u"0"_s, u"1"_s}, {u"0"_s, u"1"_s}}, {u"0"_s});
    ui.expectReport(11, u"ModuleGlobals,TranslateFSTestTolSingle"_s);
    EXPECT_EQ(TranslateFSTestTolSingle(session, u"PT-1"_s), 0);
    EXPECT_NEAR(TranslateSpanTestTolSingle(session, u"PT-1"_s), 1, 1E-12);
}

TEST_F(TightestTolerance, NullPointIsReported) {
    instrument({u"100"_s, u"0"_s, {}, {}}, {u"50"_s});
    script.answers[pointsQuery] << Row{std::nullopt};
    ui.expectReport(94, u"ModuleGlobals,TranslateFSTestTolSingle"_s);
    EXPECT_EQ(TranslateFSTestTolSingle(session, u"PT-1"_s), 0);
}

TEST_F(TightestTolerance, LostDatabaseIsReportedByBothReadersAndGivesZero) {
    script.lost = true;
    ui.expectReport(10054, u"ModuleGlobals,GetCalParams"_s);
    ui.expectReport(10054, u"ModuleGlobals,TranslateSpanTestTolSingle"_s);
    EXPECT_EQ(TranslateSpanTestTolSingle(session, u"PT-1"_s), 0);
    EXPECT_FALSE(ui.busy);
    EXPECT_FALSE(session.SessionConnected);
}

} // namespace kelvane::testing
