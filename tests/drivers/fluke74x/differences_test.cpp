// What the Fluke 743 and 744 take and the 702 does not, or the other way round, point by point.

#include "testkit/fluke_fixture.h"
#include "tests/drivers/fluke74x/acceptance_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class Fluke74xUnlikeThe702 : public Fluke74xAcceptance {
  protected:
    /// What the 702 says of the instrument that was asked about last.
    QString answerOf702() { return Module702Interface::Fluke702_acceptable(other_, u"A-1"_s); }
    bool needsStandardWith702() { return Module702Interface::Fluke702_requires_standard(other_, u"A-1"_s); }

    const QString accepted;

  private:
    RecordedLink otherLink_;
    Fluke702 other_{session, otherLink_};
};

TEST_F(Fluke74xUnlikeThe702, AnIndicatedInputIsNotLookedAt) {
    auto record = transmitter();
    record.input_indicated = true;
    EXPECT_EQ(answer(record), accepted);
    EXPECT_EQ(answerOf702(), u"Calibrator cannot calibrate instruments that have indicated inputs!"_s);
}

TEST_F(Fluke74xUnlikeThe702, AnIndicatedInputStillPassesThroughTheLimitsOfItsUnit) {
    auto record = instrument(u"V"_s, 0, 16, u"mA"_s, 4, 20);
    record.input_indicated = true;
    EXPECT_EQ(answer(record), u"Fluke 702 cannot source more than 11V DC!"_s);
    record.input_type = u"VAC"_s;
    EXPECT_EQ(answer(record), u"Fluke 702 cannot source AC Volts!"_s);
    record.input_type = u"%"_s;
    expectSourcedByHand();
    EXPECT_EQ(answer(record), accepted);
}

TEST_F(Fluke74xUnlikeThe702, AnOutputOf1To30000HzIsTakenAndFrom0HzRefused) {
    EXPECT_EQ(measured(u"Hz"_s, 1, 30000), accepted);
    EXPECT_EQ(answerOf702(), u"Fluke 702 cannot measure frequencies greater than 50KHz!"_s);
    EXPECT_EQ(measured(u"Hz"_s, 0, 30000), u"Fluke 702 cannot measure frequencies less than 1 Hz!"_s);
}

TEST_F(Fluke74xUnlikeThe702, AnOutputIsMeasuredUpTo50000Hz) {
    EXPECT_EQ(measured(u"Hz"_s, 1, 50000), accepted);
    EXPECT_EQ(measured(u"Hz"_s, 1, above(50000)),
              u"Fluke 702 cannot measure frequencies greater than 50KHz!"_s);
}

TEST_F(Fluke74xUnlikeThe702, ASourceOf12VoltsIsTakenAlthoughTheRefusalSpeaksOf11) {
    const struct {
        QString unit;
        float twelve, fifteen;
    } rows[] = {{u"V"_s, 12, 15}, {u"mV"_s, 12000, 15000}, {u"uV"_s, 12000000, 15000000}};
    const auto refused = u"Fluke 702 cannot source more than 11V DC!"_s;
    for (const auto& row : rows) {
        EXPECT_EQ(sourced(row.unit, 0, row.twelve), accepted) << row.unit.toStdString();
        EXPECT_EQ(answerOf702(), refused) << row.unit.toStdString();
        EXPECT_EQ(sourced(row.unit, 0, row.fifteen), accepted) << row.unit.toStdString();
        EXPECT_EQ(sourced(row.unit, 0, above(row.fifteen)), refused) << row.unit.toStdString();
    }
}

TEST_F(Fluke74xUnlikeThe702, ASourceOf50KilohmsInMegohmsIsTaken) {
    const auto refused = u"Fluke 702 cannot source more than 11KOhms!"_s;
    EXPECT_EQ(sourced(u"Mohms"_s, 0, 0.05F), accepted);
    EXPECT_EQ(answerOf702(), refused);
    EXPECT_EQ(sourced(u"Mohms"_s, 0, above(0.05F)), refused);
    EXPECT_EQ(sourced(u"KOhms"_s, 0, 12), refused) << "in this unit alone";
    EXPECT_EQ(measured(u"Mohms"_s, 0, 0.012F),
              u"Fluke 702 cannot measure resistances greater than 11KOhms!"_s);
}

TEST_F(Fluke74xUnlikeThe702, ATypeKGoesDownToMinus270CelsiusButToMinus328Fahrenheit) {
    const auto tooCold = TextId::cannotMeasureTemperatureBelow;
    expectTemperature(u"C"_s, u"TC K"_s, {-270, 100, {}});
    EXPECT_EQ(answerOf702(), text(tooCold));
    expectTemperature(u"C"_s, u"TC K"_s, {below(-270), 100, tooCold});
    expectTemperature(u"F"_s, u"TC K"_s, {-328, 100, {}});
    expectTemperature(u"F"_s, u"TC K"_s, {below(-328), 100, tooCold});
}

TEST_F(Fluke74xUnlikeThe702, TypesRAndSGoDownToMinus20CelsiusAndMinus4Fahrenheit) {
    const auto tooCold = TextId::cannotMeasureTemperatureBelow;
    for (const auto& sensor : {u"TC R"_s, u"TC S"_s}) {
        expectTemperature(u"C"_s, sensor, {-20, 100, {}});
        EXPECT_EQ(answerOf702(), text(tooCold));
        expectTemperature(u"C"_s, sensor, {below(-20), 100, tooCold});
        expectTemperature(u"F"_s, sensor, {-4, 100, {}});
        EXPECT_EQ(answerOf702(), text(tooCold));
        expectTemperature(u"F"_s, sensor, {below(-4), 100, tooCold});
    }
}

TEST_F(Fluke74xUnlikeThe702, AnInputThatCannotBeSourcedGetsABoxAndIsTaken) {
    const auto refused = u"Calibrator cannot output (input to UUT) selected units requested!"_s;
    for (const auto& unit : {u"%"_s, u""_s, u"ft/lb"_s, u"ma"_s, u"c"_s, u"PSI"_s}) {
        expectSourcedByHand();
        EXPECT_EQ(answer(instrument(unit, 0, 100, u"mA"_s, 4, 20)), accepted) << unit.toStdString();
        EXPECT_TRUE(ui.hasMetAll());
        EXPECT_EQ(answerOf702(), refused) << unit.toStdString();
    }
}

TEST_F(Fluke74xUnlikeThe702, EachSideNeedsAStandardByItself) {
    auto record = instrument(u"%"_s, 0, 100, u"mA"_s, 4, 20);
    EXPECT_TRUE(needsStandard(record)) << "nothing sources the input";
    EXPECT_FALSE(needsStandardWith702());
    record.output_indicated = true;
    EXPECT_TRUE(needsStandard(record)) << "an indicated output does not help it";
    EXPECT_FALSE(needsStandardWith702());
    record.input_indicated = true;
    EXPECT_FALSE(needsStandard(record));

    record = instrument(u"mA"_s, 4, 20, u"%"_s, 0, 100);
    EXPECT_TRUE(needsStandard(record));
    record.input_indicated = true;
    EXPECT_TRUE(needsStandard(record));
    record.output_indicated = true;
    EXPECT_FALSE(needsStandard(record));
}

TEST_F(Fluke74xUnlikeThe702, ACombinationNeedsAStandardUnlessBothSidesAreIndicated) {
    auto record = instrument(u"psi"_s, 0, 100, u"psi"_s, 0, 100);
    EXPECT_TRUE(needsStandard(record));
    record.output_indicated = true;
    EXPECT_TRUE(needsStandard(record));
    EXPECT_FALSE(needsStandardWith702());
    record.output_indicated = false;
    record.input_indicated = true;
    EXPECT_TRUE(needsStandard(record));
    record.output_indicated = true;
    EXPECT_FALSE(needsStandard(record));
}

} // namespace kelvane::testing
