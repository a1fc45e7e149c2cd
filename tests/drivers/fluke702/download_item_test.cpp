#include "drivers/fluke702/download_item.h"
#include "testkit/fluke_units.h"
#include "tests/drivers/fluke702/download_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class FlukeDownloadItem : public FlukeDownload {
  protected:
    Module702Interface::Download702Item gather(const CalParamRecord& record) {
        addInstrument(u"I-1"_s, record);
        return Module702Interface::gatherItem(session, {u"I-1"_s, u"KI-1"_s, u"S-1"_s});
    }
    /// The one call of an operation when this instrument is downloaded.
    QString callFor(const QString& operation, const CalParamRecord& record) {
        load({record});
        EXPECT_EQ(argumentsOf(operation).size(), 1);
        return argumentsOf(operation).value(0);
    }
    /// Degrees on one side, by its sensor and wires; volts on the other.
    static CalParamRecord thermometer(const QString& units, const QString& sensor, qint16 wires) {
        auto record = instrument(units, 0, 100, u"V"_s, 0, 5);
        record.temp_sens_type_in = sensor;
        record.temp_sens_wires_in = wires;
        return record;
    }
    static CalParamRecord degreesOutputInstrument(const QString& units, const QString& sensor, qint16 wires) {
        auto record = instrument(u"V"_s, 0, 5, units, 0, 100);
        record.temp_sens_type_out = sensor;
        record.temp_sens_wires_out = wires;
        return record;
    }
};

} // namespace

TEST_F(FlukeDownloadItem, TakesItsValuesFromTheAssetListAndTheRecord) {
    auto record = instrument(u"KHz"_s, 1, 2, u"mA"_s, 4, 20);
    record.tp_name = u"linearity five point"_s;
    record.output_indicated = true;
    record.freq_ptpamp_in = 15;
    const auto item = gather(record);
    EXPECT_EQ(item.asset, u"I-1"_s);
    EXPECT_EQ(item.mtag, u"KI-1"_s);
    EXPECT_EQ(item.serial, u"S-1"_s);
    EXPECT_EQ(item.tp_name, u"linearity five point"_s);
    EXPECT_EQ(item.strategyName, u"LINEARITY FIV"_s);
    EXPECT_EQ(item.strategyId, 0);
    EXPECT_EQ(item.inputType, u"KHz"_s);
    EXPECT_EQ(item.outputType, u"mA"_s);
    EXPECT_EQ(item.inputMode, u"freq"_s);
    EXPECT_EQ(item.outputMode, u"current"_s);
    EXPECT_EQ(item.inputClass, 5);
    EXPECT_EQ(item.outputClass, 3);
    EXPECT_EQ(item.inputLow, 1.0F);
    EXPECT_EQ(item.inputHigh, 2.0F);
    EXPECT_EQ(item.outputLow, 4.0F);
    EXPECT_EQ(item.outputHigh, 20.0F);
    EXPECT_EQ(item.amplitude, 7.5F);
    EXPECT_EQ(item.tempUnits, QString());
    EXPECT_EQ(item.pressureUnits, QString());
    EXPECT_TRUE(item.outputIndicated);
}

TEST_F(FlukeDownloadItem, EachSensorIsSourcedAndMeasuredUnderTheCalibratorsWord) {
    const struct {
        QString sensor;
        QString word;
    } rows[] = {
        {u"RTD PT100 385"_s, u"rtd_pt100_385"_s},
        {u"RTD NI120 672"_s, u"rtd_ni120"_s},
        {u"RTD PT200 385"_s, u"rtd_pt200_385"_s},
        {u"RTD PT500 385"_s, u"rtd_pt500_385"_s},
        {u"RTD PT1000 385"_s, u"rtd_pt1000_385"_s},
        {u"RTD CU10 427"_s, u"rtd_cu10"_s},
        {u"RTD PT100 3916"_s, u"rtd_pt100_3916"_s},
        {u"RTD PT100 3926"_s, u"rtd_pt100_392"_s},
        {u"TC E"_s, u"tc_e"_s},
        {u"TC N"_s, u"tc_n"_s},
        {u"TC J"_s, u"tc_j"_s},
        {u"TC K"_s, u"tc_k"_s},
        {u"TC T"_s, u"tc_t"_s},
        {u"TC B"_s, u"tc_b"_s},
        {u"TC R"_s, u"tc_r"_s},
        {u"TC S"_s, u"tc_s"_s},
        {u"TC C"_s, u"tc_c"_s},
        {u"TC L"_s, u"tc_l"_s},
        {u"TC U"_s, u"tc_u"_s},
    };
    for (const auto& row : rows) {
        const bool resistance = row.sensor.startsWith(u"RTD"_s);
        const auto sourced = resistance ? u"2w_rtd"_s : u"tc"_s;
        const auto measured = resistance ? u"4w_rtd"_s : u"tc"_s;
        EXPECT_EQ(callFor(u"STAsetOutput"_s, thermometer(u"C"_s, row.sensor, 4)),
                  u"\"%1\", \"%2\", 0, 0"_s.arg(sourced, row.word));
        EXPECT_EQ(callFor(u"STAsetInput"_s, degreesOutputInstrument(u"F"_s, row.sensor, 4)),
                  u"\"%1\", \"%2\""_s.arg(measured, row.word));
        EXPECT_EQ(argumentsOf(u"MEMtemplate"_s).value(0).section(u", "_s, 1, 1), u"0"_s);
    }
}

TEST_F(FlukeDownloadItem, AResistanceThermometerIsSourcedOnTwoWiresAndMeasuredOnItsOwn) {
    const struct {
        qint16 wires;
        QString sourced;
        QString measured;
    } rows[] = {{2, u"2w_rtd"_s, u"2w_rtd"_s},
                {3, u"2w_rtd"_s, u"3w_rtd"_s},
                {4, u"2w_rtd"_s, u"4w_rtd"_s},
                {0, u"RTD"_s, u"RTD"_s},
                {5, u"RTD"_s, u"RTD"_s}};
    for (const auto& row : rows) {
        EXPECT_EQ(callFor(u"STAsetOutput"_s, thermometer(u"C"_s, u"RTD PT100 385"_s, row.wires)),
                  u"\"%1\", \"rtd_pt100_385\", 0, 0"_s.arg(row.sourced));
        EXPECT_EQ(callFor(u"STAsetInput"_s, degreesOutputInstrument(u"C"_s, u"RTD PT100 385"_s, row.wires)),
                  u"\"%1\", \"rtd_pt100_385\""_s.arg(row.measured));
    }
}

TEST_F(FlukeDownloadItem, MilliampsInAndFahrenheitOutIsAStateInCelsiusByIts90) {
    auto record = instrument(u"mA"_s, 4, 20, u"F"_s, 32, 212);
    record.temp_sens_type_out = u"RTD PT100 385"_s;
    record.temp_sens_wires_out = 3;
    load({record});
    EXPECT_EQ(argumentsOf(u"STAsetTempUnits"_s), QStringList{u"\"celsius\""_s});
    EXPECT_EQ(argumentsOf(u"STAsetTempStd"_s), QStringList{u"\"its90\""_s});
    EXPECT_EQ(argumentsOf(u"STAsetInputScale"_s), QStringList{u"212, 32"_s}) << "limits in Fahrenheit";
}

TEST_F(FlukeDownloadItem, TheTemperatureStandardIsTheInputsWhateverTheOutputs) {
    const struct {
        QString scaleIn;
        QString scaleOut;
        QString standard;
    } rows[] = {
        {u"IPTS-68"_s, u"ITS-90"_s, u"\"ipts68\""_s},
        {u"ipts-68"_s, u""_s, u"\"ipts68\""_s},
        {u"ITS-90"_s, u"IPTS-68"_s, u"\"its90\""_s},
        {u""_s, u"IPTS-68"_s, u"\"its90\""_s},
        {u""_s, u""_s, u"\"its90\""_s},
        {u"IPTS-68 "_s, u""_s, u"\"its90\""_s},
        {u"IPTS68"_s, u""_s, u"\"its90\""_s},
    };
    for (const auto& row : rows) {
        auto record = transmitter();
        record.temp_scale_in = row.scaleIn;
        record.temp_scale_out = row.scaleOut;
        EXPECT_EQ(callFor(u"STAsetTempStd"_s, record), row.standard) << row.scaleIn.toStdString();
    }
}

TEST_F(FlukeDownloadItem, TheColdJunctionOfASideCountsWhenTheOtherSideIsATemperature) {
    const struct {
        QString inputType;
        QString outputType;
        QString typeIn;
        QString typeOut;
        QString called;
    } rows[] = {
        {u"C"_s, u"V"_s, u"INT"_s, u"INT"_s, u"\"measure\", 0"_s},
        {u"C"_s, u"V"_s, u"EXT"_s, u"INT"_s, u"\"measure\", 0"_s},
        {u"C"_s, u"V"_s, u"INT"_s, u"EXT"_s, u"\"user\", 22.5"_s},
        {u"C"_s, u"V"_s, u"INT"_s, u"ext"_s, u"\"measure\", 0"_s},
        {u"V"_s, u"C"_s, u"INT"_s, u"EXT"_s, u"\"measure\", 0"_s},
        {u"V"_s, u"C"_s, u"EXT"_s, u"INT"_s, u"\"user\", -1.1"_s},
        {u"V"_s, u"F"_s, u"EXT"_s, u"EXT"_s, u"\"user\", -1.1"_s},
        {u"F"_s, u"F"_s, u"INT"_s, u"EXT"_s, u"\"user\", 22.5"_s},
        {u"F"_s, u"F"_s, u"EXT"_s, u"EXT"_s, u"\"user\", -1.1"_s},
        {u"V"_s, u"V"_s, u"EXT"_s, u"EXT"_s, u"\"measure\", 0"_s},
    };
    for (const auto& row : rows) {
        auto record = instrument(row.inputType, 0, 5, row.outputType, 0, 10);
        record.temp_sens_type_in = u"RTD PT100 385"_s;
        record.temp_sens_type_out = u"TC K"_s;
        record.cj_ref_type_in = row.typeIn;
        record.cj_ref_type_out = row.typeOut;
        record.cj_ref_temp_in = -1.1F;
        record.cj_ref_temp_out = 22.5F;
        EXPECT_EQ(callFor(u"STAsetTref"_s, record), row.called)
            << (row.inputType + row.outputType + row.typeIn + row.typeOut).toStdString();
    }
    const auto plain = gather(transmitter());
    EXPECT_EQ(plain.cjMode, u"measure"_s);
    EXPECT_EQ(plain.cjTemp, u"0.0"_s);
    auto external = degreesOutputInstrument(u"C"_s, u"TC K"_s, 2);
    external.cj_ref_type_in = u"EXT"_s;
    external.cj_ref_temp_in = -1.1F;
    EXPECT_EQ(gather(external).cjTemp, u"-1.1"_s);
}

TEST_F(FlukeDownloadItem, EachPressureHasTheModeOfPressuresOnBothSides) {
    for (const auto& unit : pressures) {
        EXPECT_EQ(callFor(u"STAsetOutput"_s, instrument(unit, 0, 10, u"V"_s, 0, 5)),
                  u"\"pressure\", \"\", 0, 0"_s);
        EXPECT_EQ(callFor(u"STAsetInput"_s, instrument(u"V"_s, 0, 5, unit, 0, 10)), u"\"pressure\", \"\""_s);
    }
}

TEST_F(FlukeDownloadItem, AnInstrumentThatIsNotConfiguredIsAManualTaskOfZerosAndIsNotTransferred) {
    addList({transmitter()});
    script.answers.remove(selectParams(u"I-1"_s));
    ui.expectReport(11, u"ModuleGlobals,TranslateSpanTestTolSingle"_s); // a span of zero
    EXPECT_TRUE(download().startsWith(u"I-1: The calibration parameters"_s));
    EXPECT_EQ(argumentsOf(u"DPCdnlStart"_s), QStringList());
    EXPECT_EQ(argumentsOf(u"STAsetOutput"_s), QStringList{u"\"\", \"\", 0, 0"_s});
    EXPECT_EQ(argumentsOf(u"STAsetInput"_s), QStringList{u"\"dcv\", \"\""_s});
    EXPECT_EQ(argumentsOf(u"STAsetInputScale"_s), QStringList{u"0, 0"_s});
    EXPECT_EQ(argumentsOf(u"MEMstrategyDefn"_s), QStringList{u"\"\", 3, \"0 0.5 1\""_s});
    EXPECT_TRUE(argumentsOf(u"MEMtemplate"_s).value(0).startsWith(u"1, 1,"_s));
}

} // namespace kelvane::testing
