#include "tests/drivers/fluke702/acceptance_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString accepted;

const QStringList pressures{u"psi"_s,  u"psig"_s, u"inHg"_s, u"inH2O"_s,
                            u"mmHg"_s, u"kPa"_s,  u"bar"_s,  u"mbar"_s};

/// A range and what the answer to it must be, by the message's id; 0 when it passes.
struct Range {
    float low;
    float high;
    int message;
};

/// Each end on a limit of the absolute value, and next to it, the other end being zero or the same.
QList<Range> magnitudeRanges(float limit, int message) {
    return {{-limit, limit, 0},
            {limit, -limit, 0},
            {0, limit, 0},
            {limit, 0, 0},
            {0, -limit, 0},
            {-limit, 0, 0},
            {0, below(limit), 0},
            {below(limit), 0, 0},
            {0, above(limit), message},
            {above(limit), 0, message},
            {0, -above(limit), message},
            {-above(limit), 0, message},
            {-above(limit), above(limit), message}};
}

/// Each end on each limit, and next to it, the other end lying at `middle`.
QList<Range> rangesAround(float bottom, float top, float middle, int tooLow, int tooHigh) {
    return {{bottom, top, 0},
            {top, bottom, 0},
            {bottom, bottom, 0},
            {top, top, 0},
            {above(bottom), below(top), 0},
            {middle, above(top), tooHigh},
            {above(top), middle, tooHigh},
            {below(bottom), middle, tooLow},
            {middle, below(bottom), tooLow}};
}

} // namespace

class FlukeLimitsOf : public FlukeAcceptance {
  protected:
    void expectMeasured(const QString& unit, const QList<Range>& ranges) {
        for (const auto& range : ranges) {
            EXPECT_EQ(measured(unit, range.low, range.high), range.message ? text(range.message) : accepted)
                << "output of " << range.low << " to " << range.high << " " << unit.toStdString();
        }
    }
    void expectSourced(const QString& unit, const QList<Range>& ranges) {
        for (const auto& range : ranges) {
            EXPECT_EQ(sourced(unit, range.low, range.high), range.message ? text(range.message) : accepted)
                << "input of " << range.low << " to " << range.high << " " << unit.toStdString();
        }
    }
};

TEST_F(FlukeLimitsOf, VoltagesAndCurrentsThatAreMeasuredHoldForTheAbsoluteValue) {
    const struct {
        QString unit;
        float limit;
        int message;
    } rows[] = {
        {u"V"_s, 300, 354},        {u"VAC"_s, 300, 354}, {u"mV"_s, 300000, 354}, {u"mVAC"_s, 300000, 354},
        {u"uV"_s, 300000000, 354}, {u"mA"_s, 110, 361},  {u"uA"_s, 110000, 361}, {u"A"_s, 0.11F, 361},
    };
    for (const auto& row : rows)
        expectMeasured(row.unit, magnitudeRanges(row.limit, row.message));
}

TEST_F(FlukeLimitsOf, FrequenciesAndResistancesThatAreMeasuredHaveABottomAndATop) {
    const struct {
        QString unit;
        float bottom, top, middle;
        int tooLow, tooHigh;
    } rows[] = {
        {u"Hz"_s, 1, 20000, 1000, 358, 357},
        {u"KHz"_s, 0.001F, 50, 1, 358, 357},
        {u"MHz"_s, 0.000001F, 0.05F, 0.001F, 358, 357},
        {u"Ohms"_s, 0, 11000, 100, 359, 360},
        {u"KOhms"_s, 0, 11, 1, 359, 360},
        {u"Mohms"_s, 0, 0.011F, 0.001F, 359, 360},
    };
    for (const auto& row : rows) {
        expectMeasured(row.unit, rangesAround(row.bottom, row.top, row.middle, row.tooLow, row.tooHigh));
        // With both ends outside, the high end's being above comes first, then the low end's being below.
        expectMeasured(row.unit, {{below(row.bottom), above(row.top), row.tooHigh},
                                  {above(row.top), above(row.top), row.tooHigh},
                                  {below(row.bottom), below(row.bottom), row.tooLow},
                                  {above(row.top), below(row.bottom), row.tooHigh}});
    }
}

TEST_F(FlukeLimitsOf, MeasuringInHzEndsAt20000AlthoughTheWordsSay50KHz) {
    const auto words = u"Fluke 702 cannot measure frequencies greater than 50KHz!"_s;
    EXPECT_EQ(measured(u"Hz"_s, 0, 30000), words);
    EXPECT_EQ(measured(u"Hz"_s, 1, 30000), words);
    EXPECT_EQ(measured(u"KHz"_s, 0.001F, 30), accepted);
    EXPECT_EQ(measured(u"KHz"_s, 0, 30), u"Fluke 702 cannot measure frequencies less than 1 Hz!"_s);
}

TEST_F(FlukeLimitsOf, AnOutputOf0To100KHzIsToldAsTooHigh) {
    EXPECT_EQ(measured(u"KHz"_s, 0, 100), text(357));
    EXPECT_EQ(measured(u"KHz"_s, 0.001F, 100), text(357));
    EXPECT_EQ(measured(u"KHz"_s, 0, 50), text(358));
}

TEST_F(FlukeLimitsOf, VoltagesAndCurrentsThatAreSourcedHoldForTheAbsoluteValue) {
    const struct {
        QString unit;
        float limit;
        int message;
    } rows[] = {
        {u"V"_s, 11, 543},  {u"mV"_s, 11000, 543}, {u"uV"_s, 11000000, 543},
        {u"mA"_s, 22, 545}, {u"uA"_s, 22000, 545}, {u"A"_s, 0.022F, 545},
    };
    for (const auto& row : rows)
        expectSourced(row.unit, magnitudeRanges(row.limit, row.message));
}

TEST_F(FlukeLimitsOf, AnInputOf4To20MilliamperesPassesAndOneFromMinus23Fails) {
    EXPECT_EQ(sourced(u"mA"_s, 4, 20), accepted);
    EXPECT_EQ(sourced(u"mA"_s, -23, 0), u"Fluke 702 cannot source more than 22 mA!"_s);
}

TEST_F(FlukeLimitsOf, FrequenciesThatAreSourcedHaveOneMessageForBothEnds) {
    const struct {
        QString unit;
        float bottom, top, middle;
    } rows[] = {{u"Hz"_s, 2, 50000, 1000}, {u"KHz"_s, 0.002F, 50, 1}, {u"MHz"_s, 0.000002F, 0.05F, 0.001F}};
    for (const auto& row : rows) {
        expectSourced(row.unit, rangesAround(row.bottom, row.top, row.middle, 540, 540));
        expectSourced(row.unit, {{below(row.bottom), above(row.top), 540}, {0, 0, 540}});
    }
}

TEST_F(FlukeLimitsOf, TheAmplitudeOfASourcedFrequencyEndsAt20AlthoughItHoldsMillivolts) {
    const auto words =
        u"Fluke 702 cannot source less than 1mV or more than 10V peak in frequency output mode! "_s;
    const struct {
        float amplitude;
        bool passes;
    } rows[] = {{2, true},          {above(2), true}, {10, true},        {below(20), true}, {20, true},
                {above(20), false}, {20000, false},   {below(2), false}, {0, false},        {-10, false}};
    for (const auto& unit : {u"Hz"_s, u"KHz"_s, u"MHz"_s}) {
        for (const auto& row : rows) {
            auto record = instrument(unit, 0.02F, 0.04F, u"V"_s, 0, 10);
            if (unit == u"Hz")
                record.input_low = record.input_high = 1000;
            record.freq_ptpamp_in = row.amplitude;
            EXPECT_EQ(answer(record), row.passes ? accepted : words)
                << unit.toStdString() << " at " << row.amplitude;
        }
    }
}

TEST_F(FlukeLimitsOf, TheRangeOfASourcedFrequencyIsLookedAtBeforeItsAmplitude) {
    auto record = instrument(u"Hz"_s, 1, 1000, u"V"_s, 0, 10);
    record.freq_ptpamp_in = 0;
    EXPECT_EQ(answer(record), text(540));
}

TEST_F(FlukeLimitsOf, TheAmplitudeCountsForSourcedFrequenciesOnly) {
    auto record = transmitter();
    record.freq_ptpamp_in = record.freq_ptpamp_out = 1000;
    EXPECT_EQ(answer(record), accepted);
    record = instrument(u"V"_s, 0, 10, u"Hz"_s, 1, 1000);
    record.freq_ptpamp_in = record.freq_ptpamp_out = 0;
    EXPECT_EQ(answer(record), accepted);
}

TEST_F(FlukeLimitsOf, AlternatingVoltagesAreNeverSourced) {
    for (const auto& unit : {u"VAC"_s, u"mVAC"_s})
        expectSourced(unit, {{0, 0, 542}, {0, 1, 542}, {-1E38F, 1E38F, 542}});
}

TEST_F(FlukeLimitsOf, ResistancesThatAreSourcedHaveATopOnly) {
    const struct {
        QString unit;
        float top;
    } rows[] = {{u"Ohms"_s, 11000}, {u"KOhms"_s, 11}, {u"Mohms"_s, 0.011F}};
    for (const auto& row : rows) {
        expectSourced(row.unit, {{0, row.top, 0},
                                 {row.top, 0, 0},
                                 {below(row.top), below(row.top), 0},
                                 {-1E38F, -1E38F, 0},
                                 {0, above(row.top), 544},
                                 {above(row.top), 0, 544},
                                 {-1E38F, above(row.top), 544}});
    }
}

TEST_F(FlukeLimitsOf, PressuresHaveNone) {
    for (const auto& unit : pressures) {
        expectSourced(unit, {{-1E38F, 1E38F, 0}, {0, 0, 0}});
        EXPECT_EQ(answer(instrument(u"V"_s, 0, 10, unit, -1E38F, 1E38F)), accepted) << unit.toStdString();
    }
}

TEST_F(FlukeLimitsOf, NoUnitIsConverted) {
    // 100 mV would be a tenth of a volt; what counts is the number in the record.
    EXPECT_EQ(sourced(u"V"_s, 0, 100), text(543));
    EXPECT_EQ(sourced(u"mV"_s, 0, 100), accepted);
    EXPECT_EQ(measured(u"A"_s, 0, 1), text(361));
    EXPECT_EQ(measured(u"mA"_s, 0, 1), accepted);
}

} // namespace kelvane::testing
