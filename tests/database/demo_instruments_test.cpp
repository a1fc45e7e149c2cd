#include "data/assets/assets.h"
#include "data/parameters/cal_params.h"
#include "data/parameters/prompt_macros.h"
#include "data/small_routines.h"
#include "data/start_up.h"
#include "data/tolerances/tolerances.h"
#include "data/tolerances/unit_class.h"
#include "drivers/torquestar/driver.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"
#include "testkit/database_session.h"
#include "tests/database/databases.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleGlobals;

namespace {

class DemoInstruments : public DatabaseSession {
  protected:
    /// All instruments of the session's owner that have parameters.
    QStringList configuredAssets() {
        return rows(u"select i4201 from "_s + session.SessionOwner +
                    u".inventory where mtag in (select mtag from mt.hvm_kv_tag_config) order by i4201"_s);
    }
};

/// The words that the lists of the parameter screen offer.
const QStringList units{u"C"_s,     u"F"_s,      u"V"_s,     u"mV"_s,    u"mA"_s,   u"Hz"_s,   u"KHz"_s,
                        u"MHz"_s,   u"Ohms"_s,   u"KOhms"_s, u"psi"_s,   u"psig"_s, u"inHg"_s, u"inH2O"_s,
                        u"mmHg"_s,  u"kPa"_s,    u"bar"_s,   u"mbar"_s,  u"uV"_s,   u"uA"_s,   u"A"_s,
                        u"Mohms"_s, u"in/oz"_s,  u"in/lb"_s, u"ft/lb"_s, u"N/cm"_s, u"N/m"_s,  u"Kg/cm"_s,
                        u"Kg/m"_s,  u"Klb/ft"_s, u"KN/m"_s,  u"VAC"_s,   u"mVAC"_s, u"%"_s};
const QStringList sensors{u"RTD PT100 385"_s,  u"RTD PT200 385"_s,  u"RTD PT500 385"_s, u"RTD PT1000 385"_s,
                          u"RTD PT100 3916"_s, u"RTD PT100 3926"_s, u"RTD NI120 672"_s, u"RTD CU10 427"_s,
                          u"TC E"_s,           u"TC N"_s,           u"TC J"_s,          u"TC K"_s,
                          u"TC T"_s,           u"TC B"_s,           u"TC R"_s,          u"TC S"_s,
                          u"TC C"_s,           u"TC L"_s,           u"TC U"_s};
const QStringList transducers{u"High Output"_s, u"Industry Standard"_s, u"Serial"_s, u"UTA"_s};
const QStringList bauds{u"300"_s, u"600"_s, u"1200"_s, u"2400"_s, u"4800"_s, u"9600"_s, u"19200"_s};
const QStringList modes{u"Click Dip"_s, u"Peak"_s, u"Impulse"_s};
const QStringList directions{u"Right"_s, u"Left"_s};
const QStringList cycleEnds{u"0.1"_s, u"0.2"_s, u"0.5"_s, u"1.0"_s, u"2.0"_s, u"5.0"_s, u"10.0"_s};
const QStringList responses{u"6144"_s, u"3686"_s, u"2304"_s, u"1676"_s, u"1317"_s, u"1024"_s,
                            u"996"_s,  u"737"_s,  u"527"_s,  u"376"_s,  u"302"_s,  u"252"_s,
                            u"200"_s,  u"150"_s,  u"100"_s,  u"75"_s,   u"72"_s};

ErrorResult judgePoint(Session& session, const CalParamRecord& p, double input, double output) {
    return ErrorCalculation(session, input, output, p.input_low, p.input_high, p.output_high, p.output_low,
                            plainText(p.resolution), p.input_type, p.output_type, p.pos_fs_range_pct,
                            p.pos_span_pct, p.pos_reading_pct, p.pos_lsd_counts, p.pos_units,
                            p.neg_fs_range_pct, p.neg_span_pct, p.neg_reading_pct, p.neg_lsd_counts,
                            p.neg_units, p.resolution, 1);
}

/// A port of a machine without serial lines.
class NoPort final : public SerialPort {
  public:
    bool portOpen() const override { return false; }
    void setPortOpen(bool) override { throw makeError(ErrorNumber::pathFileAccess); }
    void setCommPort(int) override {}
    void setSettings(const QString&) override {}
    int inBufferCount() override { return 0; }
    QByteArray input() override { return {}; }
    void output(const QByteArray&) override {}
};

} // namespace

TEST_F(DemoInstruments, AreThoseOfACalibrationLab) {
    EXPECT_GE(value(u"select count(*) from mt.inventory where i4209 = 'D'"_s).toInt(), 40);
    const QList<std::pair<QString, int>> kinds{{u"%PRESSURE TRANSMITTER"_s, 5},
                                               {u"TEMPERATURE TRANSMITTER RTD"_s, 4},
                                               {u"TEMPERATURE TRANSMITTER TC"_s, 3},
                                               {u"I/P CONVERTER"_s, 3},
                                               {u"LOOP INDICATOR"_s, 4},
                                               {u"%FREQUENCY%"_s, 3},
                                               {u"%VOLT%"_s, 4},
                                               {u"CLICK TORQUE WRENCH"_s, 6},
                                               {u"DIGITAL TORQUE WRENCH"_s, 2},
                                               {u"TORQUE TRANSDUCER"_s, 8},
                                               {u"DOCUMENTING CALIBRATOR"_s, 2},
                                               {u"TORQUE CALIBRATOR"_s, 1}};
    for (const auto& [description, least] : kinds)
        EXPECT_GE(
            value(u"select count(*) from mt.inventory where i4204 like '"_s + description + u'\'').toInt(),
            least)
            << description.toStdString();
}

TEST_F(DemoInstruments, ReadWithoutAReportAndAreReadyForWork) {
    for (const auto& user : {u"jdoe"_s, u"gpetrov"_s}) {
        logIn(user);
        const auto assets = configuredAssets();
        EXPECT_GE(assets.size(), user == u"jdoe" ? 60 : 3);
        for (const auto& name : assets) {
            SCOPED_TRACE(name.toStdString());
            const auto asset = SQLSafe(name); // the reading of parameters takes a number as it is
            EXPECT_EQ(HasConfigData(session, name), name != u"UC-902");
            const auto params = GetCalParams(session, asset);
            EXPECT_FALSE(params.mtag.isEmpty());
            if (name == u"UC-902")
                continue;
            EXPECT_GE(params.repetitions, 1);
            EXPECT_NE(params.input_low, params.input_high);
            EXPECT_NE(params.output_low, params.output_high);
            EXPECT_GT(params.test_point_count, 0);
            // One half of this reading takes a number as it is, the other one makes it safe.
            if (!name.contains(u'\'')) {
                EXPECT_EQ(GetTestPointList(session, name).size(),
                          params.test_point_count * params.repetitions);
            }
            EXPECT_FALSE(DecimalFormat(session, 1, plainText(params.resolution)).isEmpty());
        }
    }
}

TEST_F(DemoInstruments, HoldOnlyWordsOfTheParameterScreen) {
    for (const auto& name : configuredAssets()) {
        SCOPED_TRACE(name.toStdString());
        const auto p = GetCalParams(session, SQLSafe(name));
        EXPECT_TRUE(units.contains(p.input_type)) << p.input_type.toStdString();
        EXPECT_TRUE(units.contains(p.output_type)) << p.output_type.toStdString();
        EXPECT_TRUE(sensors.contains(p.temp_sens_type_in));
        EXPECT_TRUE(sensors.contains(p.temp_sens_type_out));
        EXPECT_TRUE((QStringList{u"ITS-90"_s, u"IPTS-68"_s}).contains(p.temp_scale_in));
        EXPECT_TRUE((QStringList{u"INT"_s, u"EXT"_s}).contains(p.cj_ref_type_in));
        EXPECT_TRUE(p.temp_sens_wires_in >= 2 && p.temp_sens_wires_in <= 4);
        EXPECT_TRUE(transducers.contains(p.transducer_type_out));
        EXPECT_TRUE(bauds.contains(p.baud_rate_out));
        EXPECT_TRUE((QStringList{u"8"_s, u"7"_s}).contains(p.data_bits_out));
        EXPECT_TRUE((QStringList{u"1"_s, u"2"_s}).contains(p.stop_bits_out));
        EXPECT_TRUE((QStringList{u"Even"_s, u"Odd"_s, u"None"_s}).contains(p.data_parity_out));
        EXPECT_TRUE(modes.contains(p.measurement_mode_out));
        EXPECT_TRUE(directions.contains(p.measurement_direction_out));
        EXPECT_TRUE(cycleEnds.contains(p.cycle_end_time_out));
        EXPECT_TRUE(responses.contains(p.frequency_response_out));
        EXPECT_TRUE((QStringList{u"OFF"_s, u"24V"_s, u"28V"_s}).contains(p.loop_pwr));
    }
}

TEST_F(DemoInstruments, PassAtTheirNominalValuesAndFailWellOutsideTheirTolerance) {
    QFile::copy(sourceFile(u"database/demo/rslt_db.frm"_s), u"rslt_db.frm"_s);
    StartupFunctions(session, {});
    for (const auto& name : configuredAssets()) {
        if (name == u"UC-902")
            continue;
        SCOPED_TRACE(name.toStdString());
        const auto p = GetCalParams(session, SQLSafe(name));
        const auto points = name.contains(u'\'') ? QList<float>() : GetTestPointList(session, name);
        for (const double fraction : points) {
            const double input = p.input_low + fraction * (double{p.input_high} - p.input_low);
            const double nominal = p.output_low + fraction * (double{p.output_high} - p.output_low);
            const auto good = judgePoint(session, p, input, nominal);
            EXPECT_EQ(good.verdict, u"PASS"_s);
            EXPECT_EQ(good.advice, QString());
            EXPECT_EQ(good.result_line.size(), 120);
            const auto bad = judgePoint(session, p, input, good.upper_limit + (good.upper_limit - nominal));
            EXPECT_EQ(bad.verdict, u"FAIL"_s);
            EXPECT_TRUE(bad.result_line.endsWith(u"FAIL"_s)) << bad.result_line.toStdString();
            EXPECT_EQ(bad.result_line.size(), 120);
        }
    }
}

TEST_F(DemoInstruments, WithTorqueAreAcceptedByTheTorqueCalibratorButForThree) {
    NoPort port;
    TorqueStar driver{session, port};
    const QHash<QString, QString> refused{
        {u"TW-108"_s, u"Calibrator cannot calibrate instruments that have indicated outputs!"_s},
        {u"HW-701"_s, u"TorqueStar cannot accept selected input units!"_s},
        {u"TQ-702"_s, u"TorqueStar cannot accept selected output units!"_s}};
    const auto tools =
        rows(u"select i4201 from mt.inventory where i4204 like '%TORQUE%' and i4209 = 'D' and i4240 = 'PROD' "
             "union select i4201 from mt.inventory where i4201 = 'TQ-702' order by 1"_s);
    EXPECT_EQ(tools.size(), 15);
    for (const auto& asset : tools) {
        SCOPED_TRACE(asset.toStdString());
        EXPECT_EQ(ModuleTSInterface::TorqueStar_acceptable(driver, asset), refused.value(asset));
        EXPECT_LE(asset.size(), 11) << "the whole asset number has to fit into a name of the calibrator";
        if (refused.contains(asset))
            continue;
        const auto p = GetCalParams(session, asset);
        const auto band = judgePoint(session, p, double{p.input_high} * p.max_test_point_pct / 100,
                                     double{p.output_high} * p.max_test_point_pct / 100);
        EXPECT_GE(band.lower_limit, 0.2 * band.upper_limit);
    }
}

TEST_F(DemoInstruments, WithItsOwnPrefixIsKept) {
    EXPECT_EQ(GetCalParams(session, u"TW-107"_s).transducer_type_out, u"Serial"_s);
    const auto transducer = GetCalParams(session, u"TT-S150"_s);
    EXPECT_EQ(transducer.transducer_type_out, u"Serial"_s);
    EXPECT_EQ(plainText(transducer.resolution), u"0.1"_s);
}

TEST_F(DemoInstruments, TorqueToolsOfTheDemonstrationHaveTheirBands) {
    struct Tool {
        QString asset;
        double low;
        double high;
        int entries;
    };
    for (const auto& tool : {Tool{u"TW-101"_s, 240, 260, 3}, Tool{u"TW-102"_s, 96, 104, 3},
                             Tool{u"TW-103"_s, 48, 52, 9}, Tool{u"TW-104"_s, 188, 212, 3},
                             Tool{u"TW-105"_s, 115.2, 124.8, 3}, Tool{u"TW-106"_s, 336.5, 343.5, 3}}) {
        const auto p = GetCalParams(session, tool.asset);
        const auto band = judgePoint(session, p, p.input_high, p.output_high);
        EXPECT_NEAR(band.lower_limit, tool.low, 1e-9) << tool.asset.toStdString();
        EXPECT_NEAR(band.upper_limit, tool.high, 1e-9) << tool.asset.toStdString();
        EXPECT_EQ(GetTestPointList(session, tool.asset).size(), tool.entries) << tool.asset.toStdString();
    }
}

TEST_F(DemoInstruments, CalibratorsAreFoundByTheirSerialNumbers) {
    EXPECT_EQ(AssetfromSerial(session, u"48213"_s), u"TS-0001"_s);
    EXPECT_EQ(AssetfromSerial(session, u"6841207"_s), u"F702-01"_s);
    EXPECT_EQ(AssetfromSerial(session, u"7112044"_s), u"F743-01"_s);
    EXPECT_EQ(
        rows(u"select i4206 from mt.inventory where i4206 is not null group by i4206 having count(*) > 1"_s),
        QStringList());
}

TEST_F(DemoInstruments, UseOnlyMessagesThatExistAndMacrosThatAreKnown) {
    EXPECT_EQ(
        rows(u"select distinct(pname) from mt.hvm_kv_proc_prompts where pname not in (select pname from "
             "mt.hvm_kv_prompts)"_s),
        QStringList());
    int macros = 0;
    for (const auto& text : rows(u"select prompt from mt.hvm_kv_prompts where prompt is not null"_s)) {
        const auto parts = text.split(u'$');
        EXPECT_EQ(parts.size() % 2, 1) << "a lone sign in: " << text.toStdString();
        for (qsizetype at = 1; at < parts.size(); at += 2, ++macros)
            EXPECT_NE(UUTPromptTextPrepare(session, u'$' + parts[at] + u'$', u"PT-101"_s), parts[at])
                << "unknown macro in: " << text.toStdString();
    }
    EXPECT_GT(macros, 25);
}

TEST_F(DemoInstruments, ShowTheirMessagesInOrder) {
    const auto prompts = GetPrompts(session, u"TIT-205"_s, 0, {});
    ASSERT_EQ(prompts.size(), 4);
    EXPECT_EQ(prompts[0].pname, u"PERMIT"_s);
    EXPECT_EQ(prompts[3].pname, u"CONNECT THERMOCOUPLE"_s);
    EXPECT_EQ(UUTPromptTextPrepare(session, prompts[0].prompt, u"TIT-205"_s),
              u"Get a work permit before you isolate TIT-205, jdoe."_s);
    EXPECT_EQ(GetPrompts(session, u"PT-101"_s, 1, {}).size(), 2);
    EXPECT_EQ(GetPrompts(session, {}, 0, u"K3V9T1A7Q5X2M8C4R6Z0W1E9Y3B5N7"_s).size(), 3);
}

} // namespace kelvane::testing
