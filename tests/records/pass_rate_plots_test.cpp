#include "records/pass_rate_plots.h"

#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

PassRates someRates() {
    PassRates rates;
    rates.byMonth = {{u"2025-12"_s, {3, 1}}, {u"2026-01"_s, {}}, {u"2026-02"_s, {0, 2}}};
    rates.byModel = {{u""_s, {1, 0}}, {u"P100"_s, {2, 1}}};
    rates.byGroup = {{u"PROD"_s, {3, 3}}};
    return rates;
}

/// Models M00, M01, ... with one, two, ... records.
PassRates manyModels(int count) {
    PassRates rates;
    for (int model = 0; model < count; ++model)
        rates.byModel.insert(u"M%1"_s.arg(model, 2, 10, QChar(u'0')), {model, 1});
    return rates;
}

} // namespace

TEST(PassRatePlots, HaveABarForEachMonthWithRecords) {
    const auto plot = passRatePlot(someRates(), PassRateKind::month);
    EXPECT_EQ(plot.x.title, text(TextId::passRateMonth));
    EXPECT_EQ(plot.x.names, (QStringList{u"2025-12"_s, u"2026-01"_s, u"2026-02"_s}));
    EXPECT_EQ(plot.y.least, 0);
    EXPECT_EQ(plot.y.most, 100);
    ASSERT_EQ(plot.series.size(), 1);
    EXPECT_TRUE(plot.series[0].isBars);
    const auto& bars = plot.series[0].points;
    ASSERT_EQ(bars.size(), 2);
    EXPECT_EQ(bars[0].x, 0);
    EXPECT_EQ(bars[0].y, 75);
    EXPECT_EQ(bars[0].note, u"2025-12: 75.0 %, "_s + text(TextId::passRateOf).arg(3).arg(4));
    EXPECT_EQ(bars[1].x, 2);
    EXPECT_EQ(bars[1].y, 0);
    EXPECT_TRUE(plot.notes.isEmpty());
}

TEST(PassRatePlots, SayWhichDaysAreCounted) {
    auto rates = someRates();
    EXPECT_EQ(passRatePlot(rates, PassRateKind::month).title, text(TextId::passRateTab));
    rates.since = QDate(2025, 3, 18);
    rates.until = QDate(2026, 3, 18);
    EXPECT_EQ(passRatePlot(rates, PassRateKind::month).title,
              text(TextId::passRateTab) + u", 2025-03-18 – 2026-03-18"_s);
}

TEST(PassRatePlots, NameWhatHasNoModelInWords) {
    EXPECT_EQ(passRatePlot(someRates(), PassRateKind::model).x.names,
              (QStringList{text(TextId::notStated), u"P100"_s}));
    EXPECT_EQ(passRatePlot(someRates(), PassRateKind::group).x.names, QStringList(u"PROD"_s));
}

TEST(PassRatePlots, JoinTheModelsWithTheFewestRecords) {
    EXPECT_EQ(passRatePlot(manyModels(24), PassRateKind::model).x.names.size(), 24);
    const auto plot = passRatePlot(manyModels(30), PassRateKind::model);
    ASSERT_EQ(plot.x.names.size(), 24);
    EXPECT_EQ(plot.x.names.constFirst(), u"M07"_s);
    EXPECT_EQ(plot.x.names.constLast(), text(TextId::plotFurther));
    // 0 to 6 passed, and one failed each.
    EXPECT_EQ(plot.series[0].points.constLast().y, 21 * 100.0 / 28);
    EXPECT_EQ(passRatesBy(manyModels(30), PassRateKind::model).size(), 30);
}

TEST(PassRatePlots, JoinTheLastOfModelsWithAsManyRecords) {
    PassRates rates;
    for (int model = 10; model < 40; ++model)
        rates.byModel.insert(u"M%1"_s.arg(model), {1, 1});
    const auto plot = passRatePlot(rates, PassRateKind::model);
    ASSERT_EQ(plot.x.names.size(), 24);
    EXPECT_EQ(plot.x.names[22], u"M32"_s);
    EXPECT_TRUE(plot.series[0].points.constLast().note.contains(text(TextId::passRateOf).arg(7).arg(14)));
}

TEST(PassRatePlots, LeaveNoMonthOut) {
    PassRates rates;
    for (int month = 1; month <= 12; ++month) {
        for (const auto year : {2024, 2025, 2026})
            rates.byMonth.insert(u"%1-%2"_s.arg(year).arg(month, 2, 10, QChar(u'0')), {1, 0});
    }
    EXPECT_EQ(passRatePlot(rates, PassRateKind::month).x.names.size(), 36);
}

TEST(PassRatePlots, SayWhatIsLeftOut) {
    auto rates = someRates();
    rates.undated = 1;
    rates.inFuture = 2;
    rates.otherState = 3;
    rates.otherResult = 4;
    EXPECT_EQ(passRatePlot(rates, PassRateKind::month).notes,
              QStringList(text(TextId::passRateLeftOut).arg(1).arg(2).arg(3).arg(4)));
}

TEST(PassRatePlots, OfNothingAreEmpty) {
    EXPECT_TRUE(passRatePlot({}, PassRateKind::month).isEmpty());
    EXPECT_TRUE(passRatesBy({}, PassRateKind::group).isEmpty());
}

} // namespace kelvane::testing
