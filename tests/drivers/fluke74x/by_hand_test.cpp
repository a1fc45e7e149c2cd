// Who supplies the readings, and the state of an instrument whose sides are the user's.

#include "tests/drivers/fluke74x/download_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QStringList conditions{u"Unit defaultPres psi"_s, u"Unit defaultTemp Celsius"_s,
                             u"Mapped mcDamping On"_s, u"Mapped scDamping On"_s};

QStringList modes(const QString& measured, const QString& sourced) {
    return {u"Mapped mcMode "_s + measured, u"Mapped scMode "_s + sourced, u"Mapped loop Disabled"_s,
            u"Mapped tempstd ITS-90"_s};
}

QStringList measured(const QString& low, const QString& high) {
    return {u"Float mUutZero "_s + low, u"Float mUutFS "_s + high};
}
QStringList measuredByHand(const QString& low, const QString& high, const QString& unit) {
    return {u"Float mCustomZero "_s + low, u"Float mUutZero "_s + low, u"Float mZero 0"_s,
            u"Float mCustomFS "_s + high,  u"Float mUutFS "_s + high,  u"Float mFS 10"_s,
            u"Unit mCustomUnit "_s + unit, u"Mapped mcScale Linear"_s, u"Int mcRangeLocked 1"_s,
            u"Float mcRange 10"_s};
}
QStringList sourced(const QString& low, const QString& high) {
    return {u"Float sUutZero "_s + low, u"Float sUutFS "_s + high};
}
QStringList sourcedByHand(const QString& low, const QString& high, const QString& unit) {
    return {u"Float sCustomZero "_s + low, u"Float sUutZero "_s + low, u"Float sZero 0"_s,
            u"Float sCustomFS "_s + high,  u"Float sUutFS "_s + high,  u"Float sFS 10"_s,
            u"Unit sCustomUnit "_s + unit, u"Mapped scScale Linear"_s};
}
QStringList judgedAs(const QString& word) {
    return {u"Float tol 0.5"_s, u"Mapped cError "_s + word};
}

} // namespace

class Fluke74xByHand : public Fluke74xDownload {
  protected:
    static CalParamRecord indicated(CalParamRecord record, bool output, bool input) {
        record.output_indicated = output;
        record.input_indicated = input;
        return record;
    }
    static CalParamRecord volts() { return instrument(u"V"_s, 1, 5, u"V"_s, 2, 6); }
};

TEST_F(Fluke74xByHand, NeitherSide) {
    load({volts()});
    EXPECT_EQ(stateItems(), modes(u"DCV"_s, u"DCV"_s) + conditions + measured(u"2"_s, u"6"_s) +
                                sourced(u"1"_s, u"5"_s) + judgedAs(u"Normal"_s));
    EXPECT_EQ(flags(), u"00"_s);
}

TEST_F(Fluke74xByHand, AnIndicatedOutputIsAFalseChannelOf0To10Volts) {
    load({indicated(volts(), true, false)});
    EXPECT_EQ(stateItems(), modes(u"DCV"_s, u"DCV"_s) + conditions + measuredByHand(u"2"_s, u"6"_s, u"V"_s) +
                                sourced(u"1"_s, u"5"_s) + judgedAs(u"UEV Measure"_s));
    EXPECT_EQ(flags(), u"10"_s);
}

TEST_F(Fluke74xByHand, AnIndicatedInputIsAFalseChannelOf0To10Volts) {
    load({indicated(volts(), false, true)});
    EXPECT_EQ(stateItems(), modes(u"DCV"_s, u"DCV"_s) + conditions + measured(u"2"_s, u"6"_s) +
                                sourcedByHand(u"1"_s, u"5"_s, u"V"_s) + judgedAs(u"UEV Source"_s));
    EXPECT_EQ(flags(), u"01"_s);
}

TEST_F(Fluke74xByHand, BothSides) {
    load({indicated(volts(), true, true)});
    EXPECT_EQ(stateItems(), modes(u"DCV"_s, u"DCV"_s) + conditions + measuredByHand(u"2"_s, u"6"_s, u"V"_s) +
                                sourcedByHand(u"1"_s, u"5"_s, u"V"_s) + judgedAs(u"UEV Measure Source"_s));
    EXPECT_EQ(flags(), u"11"_s);
}

TEST_F(Fluke74xByHand, AllItemsOfBothSidesToTheLetter) {
    load({indicated(volts(), true, true)});
    const auto state = link.calls.sliced(link.calls.indexOf(u"STA3beginOps()"_s), 33);
    EXPECT_EQ(state, (QStringList{
                         u"STA3beginOps()"_s,
                         u"STA3initOp()"_s,
                         u"STA3setMappedOp(\"root\", \"mcMode\", \"DCV\")"_s,
                         u"STA3setMappedOp(\"root\", \"scMode\", \"DCV\")"_s,
                         u"STA3setMappedOp(\"root\", \"loop\", \"Disabled\")"_s,
                         u"STA3setMappedOp(\"root\", \"tempstd\", \"ITS-90\")"_s,
                         u"STA3setUnitOp(\"root\", \"defaultPres\", \"psi\")"_s,
                         u"STA3setUnitOp(\"root\", \"defaultTemp\", \"Celsius\")"_s,
                         u"STA3setMappedOp(\"root\", \"mcDamping\", \"On\")"_s,
                         u"STA3setMappedOp(\"root\", \"scDamping\", \"On\")"_s,
                         u"STA3setFloatOp(\"root\", \"mCustomZero\", 2)"_s,
                         u"STA3setFloatOp(\"root\", \"mUutZero\", 2)"_s,
                         u"STA3setFloatOp(\"root\", \"mZero\", 0)"_s,
                         u"STA3setFloatOp(\"root\", \"mCustomFS\", 6)"_s,
                         u"STA3setFloatOp(\"root\", \"mUutFS\", 6)"_s,
                         u"STA3setFloatOp(\"root\", \"mFS\", 10)"_s,
                         u"STA3setUnitOp(\"root\", \"mCustomUnit\", \"V\")"_s,
                         u"STA3setMappedOp(\"root\", \"mcScale\", \"Linear\")"_s,
                         u"STA3setIntOp(\"root\", \"mcRangeLocked\", 1)"_s,
                         u"STA3setFloatOp(\"root\", \"mcRange\", 10)"_s,
                         u"STA3setFloatOp(\"root\", \"sCustomZero\", 1)"_s,
                         u"STA3setFloatOp(\"root\", \"sUutZero\", 1)"_s,
                         u"STA3setFloatOp(\"root\", \"sZero\", 0)"_s,
                         u"STA3setFloatOp(\"root\", \"sCustomFS\", 5)"_s,
                         u"STA3setFloatOp(\"root\", \"sUutFS\", 5)"_s,
                         u"STA3setFloatOp(\"root\", \"sFS\", 10)"_s,
                         u"STA3setUnitOp(\"root\", \"sCustomUnit\", \"V\")"_s,
                         u"STA3setMappedOp(\"root\", \"scScale\", \"Linear\")"_s,
                         u"STA3setFloatOp(\"root\", \"tol\", 0.5)"_s,
                         u"STA3setMappedOp(\"root\", \"cError\", \"UEV Measure Source\")"_s,
                         u"STA3evalOp()"_s,
                         u"STA3saveOps()"_s,
                         u"STA3freeOps()"_s,
                     }));
}

TEST_F(Fluke74xByHand, FollowsFromTheClassOfEachUnit) {
    const struct {
        QString unit;
        bool byHand;
    } rows[] = {
        {u"C"_s, false},    {u"F"_s, false},   {u"psi"_s, false},  {u"mbar"_s, false}, {u"mA"_s, false},
        {u"uA"_s, false},   {u"A"_s, false},   {u"V"_s, false},    {u"mV"_s, false},   {u"uV"_s, false},
        {u"Hz"_s, false},   {u"KHz"_s, false}, {u"MHz"_s, false},  {u"Ohms"_s, true},  {u"KOhms"_s, true},
        {u"Mohms"_s, true}, {u"VAC"_s, true},  {u"mVAC"_s, true},  {u"%"_s, true},     {u""_s, true},
        {u"ft/lb"_s, true}, {u"ma"_s, true},   {u"in/oz"_s, true},
    };
    for (const auto& row : rows) {
        const auto sensor = u"TC K"_s;
        load({withSensors(instrument(u"V"_s, 0, 5, row.unit, 1, 6), {}, sensor)});
        EXPECT_EQ(flags(), row.byHand ? u"10"_s : u"00"_s) << "output " << row.unit.toStdString();
        EXPECT_EQ(item(u"cError"_s), row.byHand ? u"UEV Measure"_s : u"Normal"_s);
        load({withSensors(instrument(row.unit, 1, 6, u"V"_s, 0, 5), sensor, {})});
        EXPECT_EQ(flags(), row.byHand ? u"01"_s : u"00"_s) << "input " << row.unit.toStdString();
        EXPECT_EQ(item(u"cError"_s), row.byHand ? u"UEV Source"_s : u"Normal"_s);
        if (row.byHand) {
            EXPECT_EQ(item(u"scMode"_s), u"DCV"_s) << row.unit.toStdString();
            EXPECT_EQ(item(u"sCustomUnit"_s), row.unit);
        }
    }
}

TEST_F(Fluke74xByHand, AnInputInOhmsIsSourcedByHandThroughVolts) {
    load({instrument(u"Ohms"_s, 100, 400, u"mA"_s, 4, 20)});
    EXPECT_EQ(stateItems(), modes(u"Current"_s, u"DCV"_s) + conditions + measured(u"0.004"_s, u"0.02"_s) +
                                sourcedByHand(u"100"_s, u"400"_s, u"Ohms"_s) + judgedAs(u"UEV Source"_s));
}

TEST_F(Fluke74xByHand, RangesInKilohmsGoDownUnscaled) {
    load({instrument(u"KOhms"_s, 1, 4, u"KOhms"_s, 2, 3)});
    EXPECT_EQ(stateItems(),
              modes(u"DCV"_s, u"DCV"_s) + conditions + measuredByHand(u"2"_s, u"3"_s, u"KOhms"_s) +
                  sourcedByHand(u"1"_s, u"4"_s, u"KOhms"_s) + judgedAs(u"UEV Measure Source"_s));
}

TEST_F(Fluke74xByHand, APressureOnBothSidesIsMeasuredByHandAndItsSourceStaysAPressure) {
    load({instrument(u"psi"_s, 0, 100, u"mbar"_s, 0, 7000)});
    auto bar = conditions;
    bar[0] = u"Unit defaultPres bar"_s;
    EXPECT_EQ(stateItems(), modes(u"DCV"_s, u"Pressure"_s) + bar + measuredByHand(u"0"_s, u"7"_s, u"mbar"_s) +
                                sourced(u"0"_s, u"100"_s) + judgedAs(u"UEV Measure"_s));
    EXPECT_EQ(flags(), u"10"_s);
}

TEST_F(Fluke74xByHand, OtherCombinationsThatTheCalibratorCannotDoAreNot) {
    load({instrument(u"mA"_s, 4, 20, u"mA"_s, 4, 20)});
    EXPECT_EQ(flags(), u"00"_s);
    load({withSensors(instrument(u"C"_s, 0, 5, u"C"_s, 0, 5), u"TC K"_s, u"TC J"_s)});
    EXPECT_EQ(flags(), u"00"_s);
}

TEST_F(Fluke74xByHand, AnAlternatingVoltageHasItsRangeScaledBeforeItBecomesVolts) {
    load({instrument(u"V"_s, 0, 5, u"mVAC"_s, 1000, 6000)});
    EXPECT_EQ(stateItems(), modes(u"DCV"_s, u"DCV"_s) + conditions +
                                measuredByHand(u"1"_s, u"6"_s, u"mVAC"_s) + sourced(u"0"_s, u"5"_s) +
                                judgedAs(u"UEV Measure"_s));
}

TEST_F(Fluke74xByHand, ASensorOfASideByHandHasNoTypeAndNoReference) {
    auto record = withSensors(instrument(u"C"_s, 0, 5, u"C"_s, 0, 5), u"TC K"_s, u"RTD PT100 385"_s);
    load({indicated(record, true, true)});
    EXPECT_EQ(stateItems(), modes(u"DCV"_s, u"DCV"_s) + conditions + measuredByHand(u"0"_s, u"5"_s, u"C"_s) +
                                sourcedByHand(u"0"_s, u"5"_s, u"C"_s) + judgedAs(u"UEV Measure Source"_s));
}

// From one instrument to the next.

TEST_F(Fluke74xByHand, OnceSetAFlagStaysForTheRestOfTheList) {
    load({volts(), indicated(volts(), true, false), volts(), indicated(volts(), false, true), volts()});
    QStringList all;
    QStringList words;
    for (int n = 1; n <= 5; ++n) {
        all << flags(n);
        words << item(u"cError"_s, n);
    }
    EXPECT_EQ(all, (QStringList{u"00"_s, u"10"_s, u"10"_s, u"11"_s, u"11"_s}));
    EXPECT_EQ(words, (QStringList{u"Normal"_s, u"UEV Measure"_s, u"UEV Measure"_s, u"UEV Measure Source"_s,
                                  u"UEV Measure Source"_s}));
}

TEST_F(Fluke74xByHand, AnInstrumentBehindAnIndicatedOneIsMeasuredThroughVoltsWithItsScaledRange) {
    load({indicated(volts(), true, false), instrument(u"V"_s, 1, 5, u"mA"_s, 4, 20)});
    EXPECT_EQ(stateItems(2), modes(u"DCV"_s, u"DCV"_s) + conditions +
                                 measuredByHand(u"0.004"_s, u"0.02"_s, u"mA"_s) + sourced(u"1"_s, u"5"_s) +
                                 judgedAs(u"UEV Measure"_s));
}

TEST_F(Fluke74xByHand, AThermometerBehindAnIndicatedInputIsSourcedThroughVolts) {
    load({indicated(volts(), false, true),
          withSensors(instrument(u"C"_s, 0, 100, u"V"_s, 2, 6), u"TC K"_s, {})});
    EXPECT_EQ(stateItems(2), modes(u"DCV"_s, u"DCV"_s) + conditions + measured(u"2"_s, u"6"_s) +
                                 sourcedByHand(u"0"_s, u"100"_s, u"C"_s) + judgedAs(u"UEV Source"_s));
}

TEST_F(Fluke74xByHand, ANewDownloadBeginsWithoutFlags) {
    load({indicated(volts(), true, true)});
    EXPECT_EQ(flags(), u"11"_s);
    load({volts()});
    EXPECT_EQ(flags(), u"00"_s);
}

TEST_F(Fluke74xByHand, AnInstrumentThatIsNotConfiguredIsByHandOnBothSidesAndIsNotTransferred) {
    addList({transmitter()});
    script.answers.remove(selectParams(u"I-1"_s));
    ui.expectReport(11, u"ModuleGlobals,TranslateSpanTestTolSingle"_s); // a span of zero
    EXPECT_EQ(download(), instrumentUnread);
    EXPECT_EQ(argumentsOf(u"DPC3dnlStart"_s), QStringList());
    EXPECT_EQ(writes(), QStringList());
    EXPECT_FALSE(ui.progressShown);
}

} // namespace kelvane::testing
