#include "drivers/fluke_acceptance.h"
#include "drivers/fluke_base_units.h"
#include "drivers/fluke_download_item.h"
#include "drivers/fluke_prompts.h"
#include "drivers/fluke_run.h"
#include "drivers/line_settings.h"
#include "resources/strings.h"
#include "testkit/lab.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

// The parts that a driver supplies, of a calibrator that does not exist: it differs from the Fluke 702
// wherever it can.
constexpr FlukeLimits::Unit units[] = {{u"V", {-5, 5}, {-5, 5}}};
constexpr kelvane::FlukeAcceptance acceptance{.routine = u"Module,Acceptable",
                                              .limits = {units, {}},
                                              .refusesIndicatedInput = false,
                                              .unknownInput = TextId::inputNotSourceable,
                                              .refusesUnknownInput = false};

constexpr BaseUnit baseUnits[] = {{u"mA", 1, 1'000},
                                  {u"KHz", 1'000, 1, BaseUnit::Scaled::downloadOnly},
                                  {u"KOhms", 1'000, 1, BaseUnit::Scaled::uploadOnly}};

FlukeMode modeOf(const QString& unit, const QString& sensor, qint16 wires) {
    return {unit + QString::number(wires), sensor, unit == u"C" ? u"Celsius"_s : QString()};
}

constexpr FlukeTaskWords::Word pressures[] = {{u"mmHg", u"Torr"}};
constexpr FlukeTaskWords::Word loops[] = {{u"24V", u"Enabled 24V"}};
constexpr FlukeTaskWords words{.mode = modeOf,
                               .strategyNameLength = 15,
                               .measuredJunction = u"Internal",
                               .givenJunction = u"External",
                               .ipts68 = u"IPTS-68",
                               .its90 = u"ITS-90",
                               .temperatureScale = &CalParamRecord::temp_scale_out,
                               .pressures = pressures,
                               .loops = loops,
                               .loopOff = u"Disabled"};

CalParamRecord instrument(const QString& input, const QString& output) {
    CalParamRecord record;
    record.input_type = input;
    record.output_type = output;
    record.input_high = 1;
    record.output_high = 1;
    return record;
}

} // namespace

class FlukeParts : public Lab {
  protected:
    QString answer(const CalParamRecord& record) {
        addInstrument(u"A-1"_s, record);
        return flukeAcceptable(session, acceptance, u"A-1"_s);
    }
    void expectNote(TextId words) {
        ui.expectBox(u"A-1: "_s + text(words), text(TextId::downloadProcedures), box::information);
    }
};

TEST_F(FlukeParts, AcceptanceTakesAnIndicatedInputWhereTheCalibratorDoes) {
    auto record = instrument(u"V"_s, u"V"_s);
    record.input_indicated = true;
    EXPECT_EQ(answer(record), QString());
    record.input_high = 6;
    EXPECT_EQ(answer(record), text(TextId::cannotSourceVoltageAbove)) << "its range counts all the same";
}

TEST_F(FlukeParts, AcceptanceNotesAnUnknownInputWhereTheCalibratorDoesNotRefuseIt) {
    expectNote(TextId::inputNotSourceable);
    EXPECT_EQ(answer(instrument(u"%"_s, u"V"_s)), QString());
    EXPECT_TRUE(ui.hasMetAll());
    expectNote(TextId::outputNotMeasurable);
    expectNote(TextId::inputNotSourceable);
    EXPECT_EQ(answer(instrument(u"%"_s, u"%"_s)), QString());
    EXPECT_TRUE(ui.hasMetAll());
    expectNote(TextId::outputNotMeasurable);
    EXPECT_EQ(answer(instrument(u"psi"_s, u"psi"_s)), QString());
}

TEST(FlukeBaseUnits, AreScaledInTheDirectionsOfTheirRow) {
    EXPECT_EQ(toBaseUnit(baseUnits, 20.1F, u"mA"), 20.1F / 1000);
    EXPECT_EQ(fromBaseUnit(baseUnits, 20.1F, u"mA"), 20.1F * 1000);
    EXPECT_EQ(toBaseUnit(baseUnits, 2.0F, u"KHz"), 2000.0F);
    EXPECT_EQ(fromBaseUnit(baseUnits, 2.0F, u"KHz"), 2.0F);
    EXPECT_EQ(toBaseUnit(baseUnits, 2.0F, u"KOhms"), 2.0F);
    EXPECT_EQ(fromBaseUnit(baseUnits, 2000.0F, u"KOhms"), 2.0F);
    EXPECT_EQ(toBaseUnit(baseUnits, 2.0F, u"V"), 2.0F);
}

TEST(FlukeBaseUnits, AreComputedInTheWidthOfTheValue) {
    EXPECT_EQ(fromBaseUnit(baseUnits, 0.1, u"mA"), 0.1 * 1000);
    EXPECT_EQ(fromBaseUnit(baseUnits, 1e300, u"mA"), 1e303);
    EXPECT_THROW(fromBaseUnit(baseUnits, 1e38F, u"mA"), Error);
    EXPECT_THROW(fromBaseUnit(baseUnits, 1e307, u"mA"), Error);
}

TEST(FlukeDownloadWords, AreThoseThatTheDriverSupplies) {
    auto record = instrument(u"C"_s, u"mA"_s);
    record.tp_name = u"linearity five point up"_s;
    record.temp_sens_type_in = u"TC K"_s;
    record.temp_sens_wires_in = 5;
    record.temp_scale_in = u"IPTS-68"_s;
    record.temp_scale_out = u"ITS-90"_s;
    record.cj_ref_type_out = u"EXT"_s;
    record.cj_ref_temp_out = 21.5F;
    record.loop_pwr = u"24v"_s;
    const auto item = flukeDownloadItem(words, {u"A-1"_s, u"K-1"_s, u"S-1"_s}, record);
    EXPECT_EQ(item.strategyName, u"LINEARITY FIVE "_s);
    EXPECT_EQ(item.inputMode + u'|' + item.inputSensor + u'|' + item.tempUnits, u"C5|TC K|Celsius"_s);
    EXPECT_EQ(item.tempStd, u"ITS-90"_s) << "the side that the driver names";
    EXPECT_EQ(item.cjMode + u' ' + item.cjTemp, u"External 21.5"_s);
    EXPECT_EQ(item.loopPower, u"Enabled 24V"_s);
    EXPECT_EQ(item.pressureUnits, QString());
}

TEST(FlukeDownloadWords, AreTheDefaultsWhereTheInstrumentSaysNothing) {
    auto record = instrument(u"mmHg"_s, u"V"_s);
    record.temp_scale_out = u"ipts-68"_s;
    record.loop_pwr = u"24V"_s;
    const auto item = flukeDownloadItem(words, {}, record);
    EXPECT_EQ(item.tempStd, u"IPTS-68"_s);
    EXPECT_EQ(item.cjMode + u' ' + item.cjTemp, u"Internal 0.0"_s);
    EXPECT_EQ(item.loopPower, u"Disabled"_s) << "a voltage needs no loop power";
    EXPECT_EQ(item.pressureUnits, u"Torr"_s);
}

TEST_F(FlukeParts, PromptsAreReadOneByOneUntilTheDriverTakesNoMore) {
    addInstrument(u"A-1"_s, instrument(u"V"_s, u"V"_s));
    addPrompts(u"A-1"_s, {{u"M1"_s, u"First"_s, u"PRE"_s}, {u"M2"_s, u"Second"_s, u"PST"_s}});
    FlukePrompts prompts;
    QStringList taken;
    const auto take = [&](const FlukePrompt& prompt) {
        taken << prompt.prompt + u' ' + prompt.prompt_type;
        return true;
    };
    EXPECT_TRUE(prompts.read(session, u"A-1"_s, take));
    EXPECT_EQ(taken, (QStringList{u"First PRE"_s, u"Second PST"_s}));
    EXPECT_EQ(prompts.count, 2);
    EXPECT_EQ(prompts.list[1].key.size(), 10);
    EXPECT_FALSE(prompts.read(session, u"A-1"_s, [](const FlukePrompt&) { return false; }));
}

TEST_F(FlukeParts, StandardsOfARunAreTheCalibratorItsModulesAndThoseInUse) {
    addEquipment(u"F-1"_s, u"900"_s, u"1234567"_s);
    addEquipment(u"PM-1"_s, u"901"_s, u"11"_s);
    addEquipment(u"PM-2"_s, u"902"_s, u"22"_s);
    addStandards(u"A-1"_s, {u"S-1"_s});
    CalRecord record;
    RunStandards standards(session, record, u"1234567"_s);
    standards.addModule(u"11"_s);
    standards.addModule({});
    standards.addModule(u"22"_s);
    EXPECT_EQ(standards.addInUse(u"A-1"_s), 1);
    EXPECT_EQ(entriesOf(record.RecordStandards), (QStringList{u"F-1"_s, u"PM-1"_s, u"PM-2"_s, u"S-1"_s}));
}

TEST_F(FlukeParts, AModuleThatTheInventoryDoesNotKnowEndsTheStandardsOrIsLeftOut) {
    addEquipment(u"PM-2"_s, u"902"_s, u"22"_s);
    addStandards(u"A-1"_s, {u"S-1"_s});
    CalRecord record;
    RunStandards standards(session, record);
    standards.addKnownModule(u"11"_s);
    standards.addKnownModule({});
    standards.addKnownModule(u"22"_s);
    EXPECT_EQ(standards.addInUse(u"A-1"_s), 1);
    EXPECT_EQ(entriesOf(record.RecordStandards), (QStringList{u"PM-2"_s, u"S-1"_s}));
    RunStandards ended(session, record);
    ended.addModule(u"11"_s);
    ended.addInUse(u"A-1"_s);
    EXPECT_EQ(entriesOf(record.RecordStandards), QStringList());
}

TEST_F(FlukeParts, ALinkLineHasItsUsualSettingsWhereNoneAreStored) {
    constexpr CalibratorIdentity unknown{u"No calibrator", TextId::calibratorFluke74x, u"none"};
    EXPECT_EQ(linkLine(session, unknown).baudRate, 9600);
    EXPECT_EQ(linkLine(session, unknown).port, u"COM1"_s);
    settings.values.insert(u"No calibrator/BaudRate"_s, u"abc"_s);
    EXPECT_EQ(linkLine(session, unknown).baudRate, 9600);
    settings.values.insert(u"No calibrator/BaudRate"_s, u"19200"_s);
    settings.values.insert(u"No calibrator/Port"_s, u"COM3"_s);
    EXPECT_EQ(linkLine(session, unknown).baudRate, 19200);
    EXPECT_EQ(linkLine(session, unknown).port, u"COM3"_s);
}

} // namespace kelvane::testing
