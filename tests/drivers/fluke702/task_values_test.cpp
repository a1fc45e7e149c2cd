#include "drivers/fluke702/base_units.h"
#include "drivers/fluke702/task_values.h"
#include "platform/error.h"
#include "tests/drivers/fluke702/download_fixture.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class FlukeTaskValues : public FlukeDownload {
  protected:
    static CalParamRecord sensors(CalParamRecord record, const QString& in, const QString& out,
                                  qint16 wires = 3) {
        record.temp_sens_type_in = in;
        record.temp_sens_type_out = out;
        record.temp_sens_wires_in = record.temp_sens_wires_out = wires;
        return record;
    }
    static CalParamRecord pressureInstrument() { return instrument(u"psi"_s, 0, 100, u"kPa"_s, 0, 690); }
    static CalParamRecord frequency(const QString& units, float outputHigh, float amplitude) {
        auto record = instrument(units, 1, 2, u"V"_s, 0, outputHigh);
        record.freq_ptpamp_in = amplitude;
        return record;
    }
    /// What the calibrator measures, how the task takes it, and its range: "mode sensor, flag, range".
    QStringList measured() const {
        QStringList list;
        const auto inputs = argumentsOf(u"STAsetInput"_s);
        const auto templates = argumentsOf(u"MEMtemplate"_s);
        for (qsizetype i = 0; i < inputs.size(); ++i)
            list << inputs[i] + u", "_s + templates[i].section(u", "_s, 1, 1);
        return list;
    }
    bool manual() const { return argumentsOf(u"MEMtemplate"_s).last().section(u", "_s, 1, 1) == u"1"_s; }
};

} // namespace

TEST_F(FlukeTaskValues, EachOutputUnitIsMeasuredInItsBaseUnitWithTenPercentAbove) {
    const struct {
        QString unit;
        QString mode;
        QString scale;
        QString range;
    } rows[] = {
        {u"V"_s, u"dcv"_s, u"6, -1.5"_s, u"0, 6.6"_s},
        {u"mV"_s, u"dcv"_s, u"0.006, -0.0015"_s, u"0, 0.0066"_s},
        {u"uV"_s, u"dcv"_s, u"0.000006, -0.0000015"_s, u"0, 0.0000066000002"_s},
        {u"VAC"_s, u"acv"_s, u"6, 1.5"_s, u"0, 6.6"_s},
        {u"mVAC"_s, u"acv"_s, u"0.006, 0.0015"_s, u"0, 0.0066"_s},
        {u"A"_s, u"current"_s, u"6, -1.5"_s, u"0, 6.6"_s},
        {u"mA"_s, u"current"_s, u"0.006, -0.0015"_s, u"0, 0.0066"_s},
        {u"uA"_s, u"current"_s, u"0.000006, -0.0000015"_s, u"0, 0.0000066000002"_s},
        {u"Ohms"_s, u"2w_ohms"_s, u"6, -1.5"_s, u"0, 6.6"_s},
        {u"KOhms"_s, u"2w_ohms"_s, u"6000, -1500"_s, u"0, 6600"_s},
        {u"Mohms"_s, u"2w_ohms"_s, u"6000000, -1500000"_s, u"0, 6600000"_s},
        {u"psi"_s, u"pressure"_s, u"6, -1.5"_s, u"1, 0"_s},
        {u"psig"_s, u"pressure"_s, u"6, -1.5"_s, u"1, 0"_s},
        {u"inHg"_s, u"pressure"_s, u"6, -1.5"_s, u"1, 0"_s},
        {u"inH2O"_s, u"pressure"_s, u"6, -1.5"_s, u"1, 0"_s},
        {u"mmHg"_s, u"pressure"_s, u"6, -1.5"_s, u"1, 0"_s},
        {u"kPa"_s, u"pressure"_s, u"6, -1.5"_s, u"1, 0"_s},
        {u"bar"_s, u"pressure"_s, u"6, -1.5"_s, u"1, 0"_s},
        {u"mbar"_s, u"pressure"_s, u"0.006, -0.0015"_s, u"1, 0"_s},
        {u"C"_s, u"3w_rtd"_s, u"6, -1.5"_s, {}},
        {u"F"_s, u"3w_rtd"_s, u"6, -1.5"_s, {}},
    };
    for (const auto& row : rows) {
        load({sensors(instrument(u"V"_s, 0, 5, row.unit, -1.5F, 6), {}, u"RTD NI120 672"_s)});
        const auto sensor = row.mode == u"3w_rtd"_s ? u"rtd_ni120"_s : QString();
        EXPECT_EQ(argumentsOf(u"STAsetInput"_s), QStringList{u"\"%1\", \"%2\""_s.arg(row.mode, sensor)});
        EXPECT_EQ(argumentsOf(u"STAsetInputScale"_s), QStringList{row.scale}) << row.unit.toStdString();
        EXPECT_EQ(argumentsOf(u"STAsetInputRange"_s).join(u'|'), row.range) << row.unit.toStdString();
        EXPECT_FALSE(manual());
    }
}

TEST_F(FlukeTaskValues, AFrequencyThatIsMeasuredIsLowWhenEitherEndIsBelowTwentyHertzAndHasNoRange) {
    const struct {
        QString unit;
        float low;
        float high;
        QString mode;
        QString scale;
    } rows[] = {
        {u"Hz"_s, 20, 1000, u"freq"_s, u"1000, 20"_s},
        {u"Hz"_s, 19.99F, 1000, u"freq_low"_s, u"1000, 19.99"_s},
        {u"Hz"_s, 1000, 19.99F, u"freq_low"_s, u"19.99, 1000"_s},
        {u"KHz"_s, 0.02F, 5, u"freq"_s, u"5000, 20"_s},
        {u"KHz"_s, 0.0125F, 5, u"freq_low"_s, u"5000, 12.5"_s},
        {u"MHz"_s, 0.00002F, 0.05F, u"freq"_s, u"50000, 20"_s},
        {u"MHz"_s, 0, 0.05F, u"freq_low"_s, u"50000, 0"_s},
    };
    for (const auto& row : rows) {
        load({instrument(u"V"_s, 0, 5, row.unit, row.low, row.high)});
        EXPECT_EQ(argumentsOf(u"STAsetInput"_s), QStringList{u"\"%1\", \"\""_s.arg(row.mode)})
            << row.unit.toStdString();
        EXPECT_EQ(argumentsOf(u"STAsetInputScale"_s), QStringList{row.scale}) << row.unit.toStdString();
        EXPECT_EQ(argumentsOf(u"STAsetInputRange"_s), QStringList());
    }
}

TEST_F(FlukeTaskValues, EachInputUnitIsSourcedInItsBaseUnit) {
    const struct {
        QString unit;
        QString mode;
        QString scale;
    } rows[] = {
        {u"V"_s, u"dcv"_s, u"6, -1.5"_s},
        {u"mV"_s, u"dcv"_s, u"0.006, -0.0015"_s},
        {u"uV"_s, u"dcv"_s, u"0.000006, -0.0000015"_s},
        {u"A"_s, u"current"_s, u"6, -1.5"_s},
        {u"mA"_s, u"current"_s, u"0.006, -0.0015"_s},
        {u"uA"_s, u"current"_s, u"0.000006, -0.0000015"_s},
        {u"Ohms"_s, u"2w_ohms"_s, u"6, -1.5"_s},
        {u"KOhms"_s, u"2w_ohms"_s, u"6000, -1500"_s},
        {u"Mohms"_s, u"2w_ohms"_s, u"6000000, -1500000"_s},
        {u"psi"_s, u"pressure"_s, u"6, -1.5"_s},
        {u"psig"_s, u"pressure"_s, u"6, -1.5"_s},
        {u"inHg"_s, u"pressure"_s, u"6, -1.5"_s},
        {u"inH2O"_s, u"pressure"_s, u"6, -1.5"_s},
        {u"mmHg"_s, u"pressure"_s, u"6, -1.5"_s},
        {u"kPa"_s, u"pressure"_s, u"6, -1.5"_s},
        {u"bar"_s, u"pressure"_s, u"6, -1.5"_s},
        {u"mbar"_s, u"pressure"_s, u"0.006, -0.0015"_s},
        {u"C"_s, u"tc"_s, u"6, -1.5"_s},
        {u"F"_s, u"tc"_s, u"6, -1.5"_s},
        {u"%"_s, u""_s, u"6, -1.5"_s},
        {u"ft/lb"_s, u""_s, u"6, -1.5"_s},
    };
    for (const auto& row : rows) {
        load({sensors(instrument(row.unit, -1.5F, 6, u"V"_s, 0, 5), u"TC L"_s, {})});
        const auto sensor = row.mode == u"tc"_s ? u"tc_l"_s : QString();
        EXPECT_EQ(argumentsOf(u"STAsetOutput"_s),
                  QStringList{u"\"%1\", \"%2\", 0, 0"_s.arg(row.mode, sensor)});
        EXPECT_EQ(argumentsOf(u"STAsetOutputScale"_s), QStringList{row.scale}) << row.unit.toStdString();
        EXPECT_EQ(argumentsOf(u"STAsetInputScale"_s), QStringList{u"5, 0"_s});
    }
}

TEST_F(FlukeTaskValues, AnAlternatingVoltageAsInputIsNeitherMadeAbsoluteNorScaled) {
    for (const auto& unit : {u"VAC"_s, u"mVAC"_s}) {
        load({instrument(unit, -1.5F, 6, u"V"_s, 0, 5)});
        EXPECT_EQ(argumentsOf(u"STAsetOutput"_s), QStringList{u"\"acv\", \"\", 0, 0"_s});
        EXPECT_EQ(argumentsOf(u"STAsetOutputScale"_s), QStringList{u"6, -1.5"_s}) << unit.toStdString();
    }
}

TEST_F(FlukeTaskValues, AFrequencyThatIsSourcedHasTheOutputsTopAsItsValueInTheInputsUnit) {
    const struct {
        QString unit;
        QString outputUnit;
        QString signal;
        QString scale;
    } rows[] = {
        {u"Hz"_s, u"V"_s, u"\"freq\", \"\", 20, 0.005"_s, u"6, 1.5"_s},
        {u"KHz"_s, u"V"_s, u"\"freq\", \"\", 20000, 0.005"_s, u"6000, 1500"_s},
        {u"MHz"_s, u"V"_s, u"\"freq\", \"\", 20000000, 0.005"_s, u"6000000, 1500000"_s},
        // The output's own scaling does not reach the value.
        {u"Hz"_s, u"mA"_s, u"\"freq\", \"\", 20, 0.005"_s, u"6, 1.5"_s},
        {u"KHz"_s, u"mA"_s, u"\"freq\", \"\", 20000, 0.005"_s, u"6000, 1500"_s},
        {u"KHz"_s, u"KHz"_s, u"\"freq\", \"\", 20000, 0.005"_s, u"6000, 1500"_s},
    };
    for (const auto& row : rows) {
        auto record = instrument(row.unit, 1.5F, 6, row.outputUnit, 4, 20);
        record.freq_ptpamp_in = 10;
        load({record});
        EXPECT_EQ(argumentsOf(u"STAsetOutput"_s), QStringList{row.signal})
            << (row.unit + row.outputUnit).toStdString();
        EXPECT_EQ(argumentsOf(u"STAsetOutputScale"_s), QStringList{row.scale});
    }
}

TEST_F(FlukeTaskValues, TheSourcedSignalIsPassedToInstrumentsThatSourceNoFrequency) {
    load({transmitter(), frequency(u"KHz"_s, 5, 10), transmitter(),
          sensors(instrument(u"C"_s, 0, 100, u"V"_s, 0, 5), u"TC K"_s, {}), frequency(u"Hz"_s, 7, 30),
          transmitter()});
    EXPECT_EQ(argumentsOf(u"STAsetOutput"_s),
              (QStringList{u"\"pressure\", \"\", 0, 0"_s, u"\"freq\", \"\", 5000, 0.005"_s,
                           u"\"pressure\", \"\", 5000, 0.005"_s, u"\"tc\", \"tc_k\", 5000, 0.005"_s,
                           u"\"freq\", \"\", 7, 0.015"_s, u"\"pressure\", \"\", 7, 0.015"_s}));
}

TEST_F(FlukeTaskValues, TheNextDownloadBeginsWithoutASignalAndWithoutManualReading) {
    load({frequency(u"KHz"_s, 5, 10), pressureInstrument()});
    load({transmitter()});
    EXPECT_EQ(argumentsOf(u"STAsetOutput"_s), QStringList{u"\"pressure\", \"\", 0, 0"_s});
    EXPECT_FALSE(manual());
}

TEST_F(FlukeTaskValues, WhatTheCalibratorCannotReadIsAVoltagePromptForTheTechnician) {
    auto indicatedLoop = transmitter();
    indicatedLoop.output_indicated = true;
    auto indicatedTemperature = sensors(instrument(u"V"_s, 1, 5, u"C"_s, 0, 150), {}, u"RTD PT100 385"_s);
    indicatedTemperature.output_indicated = true;
    auto indicatedPressure = pressureInstrument();
    indicatedPressure.output_indicated = true;
    auto currents = instrument(u"mA"_s, 4, 20, u"mA"_s, 4, 20);
    currents.loop_pwr = u"28V"_s;
    const struct {
        const char* name;
        CalParamRecord record;
        QString measured;
        QString loop;
        QString scale;
    } rows[] = {
        {"pressure and pressure", pressureInstrument(), u"\"dcv\", \"\""_s, u"\"off\""_s, u"690, 0"_s},
        {"pressure in two units", instrument(u"bar"_s, 0, 1, u"mbar"_s, 0, 1000), u"\"dcv\", \"\""_s,
         u"\"off\""_s, u"1000, 0"_s},
        {"current and current, powered", currents, u"\"dcv\", \"\""_s, u"\"off\""_s, u"20, 4"_s},
        {"current and current of other units", instrument(u"A"_s, 0, 0.02F, u"uA"_s, 0, 50),
         u"\"dcv\", \"\""_s, u"\"off\""_s, u"50, 0"_s},
        {"thermocouple and thermocouple",
         sensors(instrument(u"C"_s, 0, 500, u"F"_s, 32, 932), u"TC K"_s, u"TC J"_s), u"\"dcv\", \"\""_s,
         u"\"off\""_s, u"932, 32"_s},
        {"current and resistance thermometer",
         sensors(instrument(u"mA"_s, 4, 20, u"C"_s, 0, 150), {}, u"RTD PT100 385"_s), u"\"dcv\", \"\""_s,
         u"\"off\""_s, u"150, 0"_s},
        {"current and resistance", instrument(u"uA"_s, 4, 20, u"KOhms"_s, 0, 5), u"\"dcv\", \"\""_s,
         u"\"off\""_s, u"5, 0"_s},
        {"a unit without a mode", instrument(u"V"_s, 1, 5, u"%"_s, 0, 100), u"\"dcv\", \"\""_s, u"\"off\""_s,
         u"100, 0"_s},
        {"torque", instrument(u"V"_s, 1, 5, u"ft/lb"_s, 0, 250), u"\"dcv\", \"\""_s, u"\"off\""_s,
         u"250, 0"_s},
        {"a sensor without a mode", sensors(instrument(u"V"_s, 1, 5, u"C"_s, 0, 150), {}, u"TC X"_s),
         u"\"dcv\", \"\""_s, u"\"off\""_s, u"150, 0"_s},
        {"read manually, loop power kept", indicatedLoop, u"\"dcv\", \"\""_s, u"\"24v\""_s, u"20, 4"_s},
        {"read manually, sensor kept", indicatedTemperature, u"\"dcv\", \"rtd_pt100_385\""_s, u"\"off\""_s,
         u"150, 0"_s},
        {"pressure twice and read manually", indicatedPressure, u"\"dcv\", \"\""_s, u"\"off\""_s,
         u"690, 0"_s},
    };
    for (const auto& row : rows) {
        load({row.record});
        EXPECT_EQ(argumentsOf(u"STAsetInput"_s), QStringList{row.measured}) << row.name;
        EXPECT_EQ(argumentsOf(u"STAsetLoopPower"_s), QStringList{row.loop}) << row.name;
        EXPECT_EQ(argumentsOf(u"STAsetInputScale"_s), QStringList{row.scale}) << row.name;
        EXPECT_EQ(argumentsOf(u"STAsetInputRange"_s), QStringList{u"0, 300"_s}) << row.name;
        EXPECT_TRUE(manual()) << row.name;
    }
}

TEST(FlukeHandReading, TakesAwayWhatItsCaseNames) {
    const struct {
        const char* name;
        qint16 outputClass;
        qint16 inputClass;
        QString outputMode;
        QString inputMode;
        bool indicated;
        QString sensor;
        QString loop;
    } rows[] = {
        {"pressures", 2, 2, u"pressure"_s, u"pressure"_s, false, {}, u"24v"_s},
        {"currents", 3, 3, u"current"_s, u"current"_s, false, {}, u"off"_s},
        {"thermocouples", 1, 1, u"tc"_s, u"tc"_s, false, {}, u"off"_s},
        {"current and thermometer", 1, 3, u"4w_rtd"_s, u"current"_s, false, {}, u"off"_s},
        {"current and resistance", 9, 3, u"2w_ohms"_s, u"current"_s, false, {}, u"off"_s},
        {"no mode", 10, 4, {}, u"dcv"_s, false, u"sensor"_s, u"24v"_s},
        {"read manually", 5, 4, u"freq"_s, u"dcv"_s, true, u"sensor"_s, u"24v"_s},
    };
    for (const auto& row : rows) {
        Module702Interface::Download702Item item;
        item.outputClass = row.outputClass;
        item.inputClass = row.inputClass;
        item.outputMode = row.outputMode;
        item.inputMode = row.inputMode;
        item.outputIndicated = row.indicated;
        item.outputSensor = u"sensor"_s;
        item.loopPower = u"24v"_s;
        Module702Interface::CarriedValues carried;
        prepareTaskValues(item, carried);
        EXPECT_TRUE(carried.manual) << row.name;
        EXPECT_EQ(item.outputMode, u"dcv"_s) << row.name;
        EXPECT_EQ(item.outputClass, 4) << row.name;
        EXPECT_EQ(item.outputSensor, row.sensor) << row.name;
        EXPECT_EQ(item.loopPower, row.loop) << row.name;
    }
}

TEST_F(FlukeTaskValues, WhatOnlyResemblesThoseCasesIsRead) {
    const struct {
        const char* name;
        CalParamRecord record;
        QString measured;
    } rows[] = {
        {"pressure and current", transmitter(), u"\"current\", \"\", 0"_s},
        {"current and pressure", instrument(u"mA"_s, 4, 20, u"psi"_s, 3, 15), u"\"pressure\", \"\", 0"_s},
        {"resistance thermometer and thermocouple",
         sensors(instrument(u"C"_s, 0, 500, u"C"_s, 0, 500), u"RTD PT100 385"_s, u"TC J"_s),
         u"\"tc\", \"tc_j\", 0"_s},
        {"two resistance thermometers",
         sensors(instrument(u"C"_s, 0, 500, u"C"_s, 0, 500), u"RTD PT100 385"_s, u"RTD CU10 427"_s),
         u"\"3w_rtd\", \"rtd_cu10\", 0"_s},
        {"current and thermocouple", sensors(instrument(u"mA"_s, 4, 20, u"C"_s, 0, 500), {}, u"TC J"_s),
         u"\"tc\", \"tc_j\", 0"_s},
        {"current and a thermometer on unknown wires",
         sensors(instrument(u"mA"_s, 4, 20, u"C"_s, 0, 150), {}, u"RTD PT100 385"_s, 5),
         u"\"RTD\", \"rtd_pt100_385\", 0"_s},
        {"voltage and resistance thermometer",
         sensors(instrument(u"V"_s, 1, 5, u"C"_s, 0, 150), {}, u"RTD PT100 385"_s),
         u"\"3w_rtd\", \"rtd_pt100_385\", 0"_s},
        {"voltage and resistance", instrument(u"V"_s, 1, 5, u"Ohms"_s, 0, 150), u"\"2w_ohms\", \"\", 0"_s},
        {"resistance and current", instrument(u"Ohms"_s, 1, 5, u"mA"_s, 4, 20), u"\"current\", \"\", 0"_s},
        {"an input without a mode", instrument(u"%"_s, 0, 25, u"mA"_s, 4, 20), u"\"current\", \"\", 0"_s},
    };
    for (const auto& row : rows) {
        load({row.record});
        EXPECT_EQ(measured(), QStringList{row.measured}) << row.name;
    }
}

TEST_F(FlukeTaskValues, AManuallyReadInputChangesNothing) {
    auto record = transmitter();
    record.input_indicated = true;
    load({record});
    EXPECT_EQ(measured(), QStringList{u"\"current\", \"\", 0"_s});
}

TEST_F(FlukeTaskValues, AfterPressureInAndOutAPlainInstrumentIsManualTooWithARangeOfThreeHundred) {
    load({pressureInstrument(), instrument(u"mA"_s, 4, 20, u"V"_s, 1, 5)});
    EXPECT_EQ(measured(), (QStringList{u"\"dcv\", \"\", 1"_s, u"\"dcv\", \"\", 1"_s}));
    EXPECT_EQ(argumentsOf(u"STAsetInputRange"_s), QStringList(2, u"0, 300"_s));
}

TEST_F(FlukeTaskValues, OnceSetManualReadingHoldsForTheRestOfTheListAndNotBefore) {
    load({instrument(u"V"_s, 0, 5, u"mV"_s, 0, 6), instrument(u"V"_s, 0, 5, u"%"_s, 0, 100),
          instrument(u"V"_s, 0, 5, u"mV"_s, 0, 6),
          sensors(instrument(u"mV"_s, 0, 5, u"C"_s, 0, 150), {}, u"TC K"_s),
          instrument(u"V"_s, 0, 5, u"KHz"_s, 15, 50), instrument(u"V"_s, 0, 5, u"KHz"_s, 25, 50),
          instrument(u"V"_s, 0, 5, u"mbar"_s, 0, 1000), instrument(u"V"_s, 0, 5, u"mVAC"_s, -10, 10),
          transmitter()});
    EXPECT_EQ(measured(),
              (QStringList{u"\"dcv\", \"\", 0"_s, u"\"dcv\", \"\", 1"_s, u"\"dcv\", \"\", 1"_s,
                           u"\"tc\", \"tc_k\", 1"_s, u"\"freq_low\", \"\", 1"_s, u"\"freq\", \"\", 1"_s,
                           u"\"pressure\", \"\", 1"_s, u"\"acv\", \"\", 1"_s, u"\"current\", \"\", 1"_s}))
        << "their own modes stay";
    EXPECT_EQ(argumentsOf(u"STAsetInputScale"_s),
              (QStringList{u"0.006, 0"_s, u"100, 0"_s, u"6, 0"_s, u"150, 0"_s, u"50, 15"_s, u"50, 25"_s,
                           u"1000, 0"_s, u"10, -10"_s, u"20, 4"_s}))
        << "outputs are no longer scaled";
    EXPECT_EQ(argumentsOf(u"STAsetOutputScale"_s).value(3), u"0.005, 0"_s) << "inputs always are";
    EXPECT_EQ(argumentsOf(u"STAsetInputRange"_s),
              (QStringList{u"0, 0.0066"_s, u"0, 300"_s, u"0, 300"_s, u"0, 300"_s, u"0, 300"_s, u"0, 300"_s,
                           u"1, 0"_s, u"0, 300"_s, u"0, 300"_s}))
        << "a temperature and a frequency have a range now";
    EXPECT_EQ(argumentsOf(u"STAsetLoopPower"_s).last(), u"\"24v\""_s);
}

TEST_F(FlukeTaskValues, TheRangeIsComputedIn64BitsAndNarrowed) {
    // In 32 bits these would be 6.6000004, 3.6300004 and 8.470001.
    for (const auto& [high, range] :
         {std::pair{6.0F, u"0, 6.6"_s}, {3.3F, u"0, 3.6299999"_s}, {7.7F, u"0, 8.469999"_s}}) {
        load({instrument(u"V"_s, 0, 5, u"V"_s, 0, high)});
        EXPECT_EQ(argumentsOf(u"STAsetInputRange"_s), QStringList{range});
    }
}

TEST_F(FlukeTaskValues, ANegativeTopHasANegativeRange) {
    load({instrument(u"V"_s, 0, 5, u"V"_s, 0, -10)});
    EXPECT_EQ(argumentsOf(u"STAsetInputRange"_s), QStringList{u"0, -11"_s});
}

TEST_F(FlukeTaskValues, AValueThat32BitsCannotHoldIsReportedAndTheDownloadEnds) {
    const CalParamRecord records[] = {
        instrument(u"V"_s, 0, 5, u"V"_s, 0, 3.4e38F),
        instrument(u"V"_s, 0, 5, u"KOhms"_s, 0, 3e38F),
        instrument(u"Mohms"_s, -3e38F, 5, u"V"_s, 0, 5),
        instrument(u"KHz"_s, 0, 5, u"V"_s, 0, 3e38F),
    };
    for (const auto& record : records) {
        addList({record});
        link.calls.clear();
        ui.expectReport(6, u"Module702Interface,Fluke702_download"_s);
        EXPECT_EQ(download(), QString());
        EXPECT_EQ(argumentsOf(u"MEMstartTask"_s), QStringList());
        EXPECT_EQ(argumentsOf(u"DPCopen"_s), QStringList());
        EXPECT_EQ(writes(), QStringList());
    }
}

TEST(FlukeBaseUnit, IsReachedInOneStepOf32Bits) {
    using Module702Interface::baseUnits;
    const struct {
        QString unit;
        float value;
        float base;
    } rows[] = {
        {u"mA"_s, 20.1F, 20.1F / 1000},
        {u"uA"_s, 20.1F, 20.1F / 1000000},
        {u"mV"_s, 20.1F, 20.1F / 1000},
        {u"uV"_s, 20.1F, 20.1F / 1000000},
        {u"mVAC"_s, 20.1F, 20.1F / 1000},
        {u"KOhms"_s, 20.1F, 20.1F * 1000},
        {u"Mohms"_s, 20.1F, 20.1F * 1000000},
        {u"mbar"_s, 20.1F, 20.1F / 1000},
        {u"KHz"_s, 20.1F, 20.1F * 1000},
        {u"MHz"_s, 20.1F, 20.1F * 1000000},
        {u"V"_s, 20.1F, 20.1F},
        {u"ma"_s, 20.1F, 20.1F},
        {u"MOhms"_s, 20.1F, 20.1F},
        {u""_s, 20.1F, 20.1F},
    };
    for (const auto& row : rows)
        EXPECT_EQ(toBaseUnit(baseUnits, row.value, row.unit), row.base) << row.unit.toStdString();
    EXPECT_THROW(toBaseUnit(baseUnits, std::numeric_limits<float>::max(), u"KHz"_s), Error);
}

} // namespace kelvane::testing
