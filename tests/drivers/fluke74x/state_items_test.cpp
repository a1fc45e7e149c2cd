// The items of an instrument's state that the calibrator handles on both sides.

#include "tests/drivers/fluke74x/download_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class Fluke74xStateItems : public Fluke74xDownload {
  protected:
    static CalParamRecord thermometer(const QString& units, const QString& sensor, qint16 wires = 3) {
        return withSensors(instrument(units, 0, 100, u"V"_s, 0, 5), sensor, {}, wires);
    }
    static CalParamRecord degreesOutput(const QString& units, const QString& sensor, qint16 wires = 3) {
        return withSensors(instrument(u"V"_s, 0, 5, units, 0, 100), {}, sensor, wires);
    }
    /// The items that follow those of the sensors.
    static QStringList rest(const QString& temperature, const QStringList& ranges) {
        return QStringList{u"Unit defaultPres psi"_s, u"Unit defaultTemp "_s + temperature,
                           u"Mapped mcDamping On"_s, u"Mapped scDamping On"_s} +
               ranges + QStringList{u"Float tol 0.5"_s, u"Mapped cError Normal"_s};
    }
};

TEST_F(Fluke74xStateItems, OfAThermocoupleThatIsSourced) {
    load({thermometer(u"F"_s, u"TC J"_s)});
    EXPECT_EQ(stateItems(),
              (QStringList{u"Mapped mcMode DCV"_s, u"Mapped scMode TC"_s, u"Mapped loop Disabled"_s,
                           u"Mapped tempstd ITS-90"_s, u"Mapped sTcType J"_s, u"Mapped scTref Internal"_s} +
               rest(u"Fahrenheit"_s, {u"Float mUutZero 0"_s, u"Float mUutFS 5"_s, u"Float sUutZero 0"_s,
                                      u"Float sUutFS 100"_s})));
    EXPECT_EQ(flags(), u"00"_s);
}

TEST_F(Fluke74xStateItems, OfAThermocoupleThatIsMeasured) {
    load({degreesOutput(u"C"_s, u"TC S"_s)});
    EXPECT_EQ(stateItems(),
              (QStringList{u"Mapped mcMode TC"_s, u"Mapped scMode DCV"_s, u"Mapped loop Disabled"_s,
                           u"Mapped tempstd ITS-90"_s, u"Mapped mTcType S"_s, u"Mapped mcTref Internal"_s} +
               rest(u"Celsius"_s, {u"Float mUutZero 0"_s, u"Float mUutFS 100"_s, u"Float sUutZero 0"_s,
                                   u"Float sUutFS 5"_s})));
}

TEST_F(Fluke74xStateItems, OfAResistanceThermometerThatIsSourced) {
    load({thermometer(u"C"_s, u"RTD NI120 672"_s, 4)});
    EXPECT_EQ(stateItems(), (QStringList{u"Mapped mcMode DCV"_s, u"Mapped scMode 4 Wire RTD"_s,
                                         u"Mapped loop Disabled"_s, u"Mapped tempstd ITS-90"_s,
                                         u"Mapped sRtdType Ni120 (672)"_s, u"Mapped scTref Internal"_s} +
                             rest(u"Celsius"_s, {u"Float mUutZero 0"_s, u"Float mUutFS 5"_s,
                                                 u"Float sUutZero 0"_s, u"Float sUutFS 100"_s})));
}

TEST_F(Fluke74xStateItems, OfAResistanceThermometerThatIsMeasured) {
    load({degreesOutput(u"C"_s, u"RTD PT100 3926"_s, 2)});
    EXPECT_EQ(stateItems(), (QStringList{u"Mapped mcMode 2 Wire RTD"_s, u"Mapped scMode DCV"_s,
                                         u"Mapped loop Disabled"_s, u"Mapped tempstd ITS-90"_s,
                                         u"Mapped mRtdType Pt100 (3926)"_s, u"Mapped mcTref Internal"_s} +
                             rest(u"Celsius"_s, {u"Float mUutZero 0"_s, u"Float mUutFS 100"_s,
                                                 u"Float sUutZero 0"_s, u"Float sUutFS 5"_s})));
}

TEST_F(Fluke74xStateItems, OfSensorsOnBothSidesComeMeasuredFirst) {
    const QStringList ranges{u"Float mUutZero 10"_s, u"Float mUutFS 90"_s, u"Float sUutZero 0"_s,
                             u"Float sUutFS 100"_s};
    const auto record = instrument(u"C"_s, 0, 100, u"C"_s, 10, 90);
    load({withSensors(record, u"TC K"_s, u"TC T"_s)});
    EXPECT_EQ(stateItems(),
              (QStringList{u"Mapped mcMode TC"_s, u"Mapped scMode TC"_s, u"Mapped loop Disabled"_s,
                           u"Mapped tempstd ITS-90"_s, u"Mapped mTcType T"_s, u"Mapped sTcType K"_s,
                           u"Mapped mcTref Internal"_s, u"Mapped scTref Internal"_s} +
               rest(u"Celsius"_s, ranges)));
    load({withSensors(record, u"RTD CU10 427"_s, u"RTD PT200 385"_s)});
    EXPECT_EQ(stateItems(), (QStringList{u"Mapped mcMode 3 Wire RTD"_s, u"Mapped scMode 3 Wire RTD"_s,
                                         u"Mapped loop Disabled"_s, u"Mapped tempstd ITS-90"_s,
                                         u"Mapped mRtdType Pt200 (385)"_s, u"Mapped sRtdType Cu10 (427)"_s,
                                         u"Mapped mcTref Internal"_s, u"Mapped scTref Internal"_s} +
                             rest(u"Celsius"_s, ranges)));
    load({withSensors(record, u"RTD CU10 427"_s, u"TC U"_s)});
    EXPECT_EQ(stateItems().sliced(4, 4),
              (QStringList{u"Mapped mTcType U"_s, u"Mapped sRtdType Cu10 (427)"_s,
                           u"Mapped mcTref Internal"_s, u"Mapped scTref Internal"_s}));
}

TEST_F(Fluke74xStateItems, OfASensorWithoutAModeHaveNoTypeAndNoReference) {
    load({thermometer(u"C"_s, u"TC Q"_s)});
    EXPECT_EQ(item(u"scMode"_s), QString());
    EXPECT_EQ(stateItems().size(), 14);
    EXPECT_EQ(item(u"scTref"_s), u"-"_s);
    EXPECT_EQ(item(u"defaultTemp"_s), u"Celsius"_s);
}

TEST_F(Fluke74xStateItems, EachQuantityHasItsModeOnBothSides) {
    const struct {
        QString unit;
        QString mode;
    } rows[] = {
        {u"V"_s, u"DCV"_s},        {u"mV"_s, u"DCV"_s},        {u"uV"_s, u"DCV"_s},
        {u"mA"_s, u"Current"_s},   {u"uA"_s, u"Current"_s},    {u"A"_s, u"Current"_s},
        {u"Hz"_s, u"Freq"_s},      {u"KHz"_s, u"Freq"_s},      {u"MHz"_s, u"Freq"_s},
        {u"psi"_s, u"Pressure"_s}, {u"mbar"_s, u"Pressure"_s},
    };
    for (const auto& row : rows) {
        const auto other = row.mode == u"DCV" ? u"mA"_s : u"V"_s;
        load({instrument(other, 0, 5, row.unit, 0, 5)});
        EXPECT_EQ(item(u"mcMode"_s), row.mode) << row.unit.toStdString();
        EXPECT_EQ(flags(), u"00"_s);
        load({instrument(row.unit, 0, 5, other, 0, 5)});
        EXPECT_EQ(item(u"scMode"_s), row.mode) << row.unit.toStdString();
        EXPECT_EQ(flags(), u"00"_s);
    }
}

// Single values.

TEST_F(Fluke74xStateItems, TheReferenceOfASideCountsWhenTheOtherSideIsATemperature) {
    const struct {
        QString inputType;
        QString outputType;
        QString typeIn;
        QString typeOut;
        QString reference;
    } rows[] = {
        {u"C"_s, u"V"_s, u"INT"_s, u"INT"_s, u"Internal"_s},
        {u"C"_s, u"V"_s, u"EXT"_s, u"INT"_s, u"Internal"_s},
        {u"C"_s, u"V"_s, u"INT"_s, u"EXT"_s, u"External"_s},
        {u"C"_s, u"V"_s, u"INT"_s, u"ext"_s, u"Internal"_s},
        {u"V"_s, u"C"_s, u"INT"_s, u"EXT"_s, u"Internal"_s},
        {u"V"_s, u"C"_s, u"EXT"_s, u"INT"_s, u"External"_s},
        {u"V"_s, u"F"_s, u"EXT"_s, u"EXT"_s, u"External"_s},
        {u"F"_s, u"F"_s, u"INT"_s, u"EXT"_s, u"External"_s},
        {u"F"_s, u"F"_s, u"EXT"_s, u"INT"_s, u"External"_s},
        {u"F"_s, u"F"_s, u"INT"_s, u"INT"_s, u"Internal"_s},
    };
    for (const auto& row : rows) {
        auto record = withSensors(instrument(row.inputType, 0, 5, row.outputType, 0, 10), u"RTD PT100 385"_s,
                                  u"TC K"_s);
        record.cj_ref_type_in = row.typeIn;
        record.cj_ref_type_out = row.typeOut;
        record.cj_ref_temp_in = -1.1F;
        record.cj_ref_temp_out = 22.5F;
        load({record});
        const auto where = (row.inputType + row.outputType + row.typeIn + row.typeOut).toStdString();
        EXPECT_EQ(item(u"scTref"_s), row.inputType == u"V" ? u"-"_s : row.reference) << where;
        EXPECT_EQ(item(u"mcTref"_s), row.outputType == u"V" ? u"-"_s : row.reference) << where;
    }
}

TEST_F(Fluke74xStateItems, TheTemperatureStandardIsTheOutputsWhateverTheInputs) {
    const struct {
        QString scaleIn;
        QString scaleOut;
        QString standard;
    } rows[] = {
        {u"IPTS-68"_s, u"ITS-90"_s, u"ITS-90"_s},
        {u"IPTS-68"_s, u""_s, u"ITS-90"_s},
        {u"ITS-90"_s, u"IPTS-68"_s, u"IPTS-68"_s},
        {u""_s, u"ipts-68"_s, u"IPTS-68"_s},
        {u""_s, u""_s, u"ITS-90"_s},
        {u""_s, u"IPTS-68 "_s, u"ITS-90"_s},
        {u""_s, u"IPTS68"_s, u"ITS-90"_s},
    };
    for (const auto& row : rows) {
        auto record = transmitter();
        record.temp_scale_in = row.scaleIn;
        record.temp_scale_out = row.scaleOut;
        load({record});
        EXPECT_EQ(item(u"tempstd"_s), row.standard) << (row.scaleIn + u' ' + row.scaleOut).toStdString();
    }
}

TEST_F(Fluke74xStateItems, UnitsAreNotThoseOfTheInstrumentBefore) {
    load({instrument(u"kPa"_s, 0, 5, u"V"_s, 0, 5), thermometer(u"F"_s, u"TC K"_s), transmitter()});
    EXPECT_EQ(item(u"defaultPres"_s, 1), u"kpa"_s);
    EXPECT_EQ(item(u"defaultPres"_s, 2), u"psi"_s);
    EXPECT_EQ(item(u"defaultTemp"_s, 2), u"Fahrenheit"_s);
    EXPECT_EQ(item(u"defaultTemp"_s, 3), u"Celsius"_s);
}

TEST_F(Fluke74xStateItems, MillimetresOfMercuryHaveM_hg) {
    load({instrument(u"mmHg"_s, 0, 10, u"V"_s, 0, 5)});
    EXPECT_EQ(item(u"defaultPres"_s), u"m_hg"_s);
}

TEST_F(Fluke74xStateItems, TheToleranceIsTheTightestOfSpanOverAllPointsIn32Bits) {
    auto record = transmitter();
    record.neg_span_pct = 0.3F;
    record.pos_span_pct = 0.7F;
    load({record});
    EXPECT_EQ(item(u"tol"_s), u"0.3"_s);
}

// Ranges.

TEST_F(Fluke74xStateItems, RangesComeInTheUnitsOfTheTableAndAllOthersAsTheyAre) {
    const struct {
        QString unit;
        QString low;
        QString high;
    } rows[] = {
        {u"V"_s, u"-1.5"_s, u"6"_s},
        {u"mV"_s, u"-0.0015"_s, u"0.006"_s},
        {u"uV"_s, u"-0.0000015"_s, u"0.000006"_s},
        {u"A"_s, u"-1.5"_s, u"6"_s},
        {u"mA"_s, u"-0.0015"_s, u"0.006"_s},
        {u"uA"_s, u"-0.0000015"_s, u"0.000006"_s},
        {u"VAC"_s, u"-1.5"_s, u"6"_s},
        {u"mVAC"_s, u"-0.0015"_s, u"0.006"_s},
        {u"mbar"_s, u"-0.0015"_s, u"0.006"_s},
        {u"bar"_s, u"-1.5"_s, u"6"_s},
        {u"psi"_s, u"-1.5"_s, u"6"_s},
        {u"kPa"_s, u"-1.5"_s, u"6"_s},
        {u"Hz"_s, u"-1.5"_s, u"6"_s},
        {u"KHz"_s, u"-1.5"_s, u"6"_s},
        {u"MHz"_s, u"-1.5"_s, u"6"_s},
        {u"Ohms"_s, u"-1.5"_s, u"6"_s},
        {u"KOhms"_s, u"-1.5"_s, u"6"_s},
        {u"Mohms"_s, u"-1.5"_s, u"6"_s},
        {u"%"_s, u"-1.5"_s, u"6"_s},
        {u"C"_s, u"-1.5"_s, u"6"_s},
    };
    for (const auto& row : rows) {
        load({withSensors(instrument(u"V"_s, 0, 5, row.unit, -1.5F, 6), {}, u"TC K"_s),
              withSensors(instrument(row.unit, -1.5F, 6, u"V"_s, 0, 5), u"TC K"_s, {})});
        EXPECT_EQ(item(u"mUutZero"_s, 1), row.low) << row.unit.toStdString();
        EXPECT_EQ(item(u"mUutFS"_s, 1), row.high) << row.unit.toStdString();
        EXPECT_EQ(item(u"sUutZero"_s, 2), row.low) << row.unit.toStdString();
        EXPECT_EQ(item(u"sUutFS"_s, 2), row.high) << row.unit.toStdString();
    }
}

TEST_F(Fluke74xStateItems, TheRangeOfAnIndicatedSideIsNotScaled) {
    for (const auto& unit : {u"mA"_s, u"uA"_s, u"mV"_s, u"uV"_s, u"mVAC"_s, u"mbar"_s}) {
        auto out = instrument(u"mV"_s, 0, 5, unit, 1, 6);
        out.output_indicated = true;
        auto in = instrument(unit, 1, 6, u"mV"_s, 0, 5);
        in.input_indicated = true;
        load({out});
        EXPECT_EQ(item(u"mUutZero"_s) + u' ' + item(u"mUutFS"_s), u"1 6"_s) << unit.toStdString();
        EXPECT_EQ(item(u"sUutFS"_s), u"0.005"_s);
        load({in});
        EXPECT_EQ(item(u"sUutZero"_s) + u' ' + item(u"sUutFS"_s), u"1 6"_s) << unit.toStdString();
        EXPECT_EQ(item(u"mUutFS"_s), u"0.005"_s);
    }
}

} // namespace kelvane::testing
