#include "testkit/quiet_operator.h"
#include "tests/drivers/fluke74x/acceptance_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString accepted;

} // namespace

TEST_F(Fluke74xAcceptance, TakesAPressureTransmitter) {
    EXPECT_EQ(answer(transmitter()), accepted);
}

TEST_F(Fluke74xAcceptance, IgnoresBothFlags) {
    auto record = transmitter();
    record.input_indicated = record.output_indicated = true;
    EXPECT_EQ(answer(record), accepted);
    record.output_high = 1000;
    EXPECT_EQ(answer(record), text(TextId::cannotMeasureCurrentAbove));
}

TEST_F(Fluke74xAcceptance, ReportsTheOutputBeforeTheInput) {
    EXPECT_EQ(answer(instrument(u"V"_s, 0, 100, u"mA"_s, 0, 1000)), text(TextId::cannotMeasureCurrentAbove));
    EXPECT_EQ(answer(instrument(u"V"_s, 0, 100, u"mA"_s, 0, 20)), text(TextId::cannotSourceVoltageAbove));
}

TEST_F(Fluke74xAcceptance, ShowsTheBoxesOfBothSidesOutputFirst) {
    expectReadByHand();
    EXPECT_EQ(answer(instrument(u"psi"_s, 0, 100, u"%"_s, 0, 100)), accepted);
    expectReadByHand();
    expectSourcedByHand();
    EXPECT_EQ(answer(instrument(u"%"_s, 0, 100, u"%"_s, 0, 100)), accepted);
    expectReadByHand();
    EXPECT_EQ(answer(instrument(u"V"_s, 0, 100, u"%"_s, 0, 100)), text(TextId::cannotSourceVoltageAbove));
}

TEST_F(Fluke74xAcceptance, ShowsNoBoxOfAnInputBehindARefusedOutput) {
    EXPECT_EQ(answer(instrument(u"%"_s, 0, 100, u"mA"_s, 0, 1000)), text(TextId::cannotMeasureCurrentAbove));
}

TEST_F(Fluke74xAcceptance, TakesNoUnitInAnotherCase) {
    for (const auto& unit : {u"v"_s, u"MV"_s, u"ma"_s, u"hz"_s, u"ohms"_s, u"Psi"_s, u"f"_s}) {
        expectReadByHand();
        EXPECT_EQ(answer(instrument(u"psi"_s, 0, 100, unit, -1E38F, 1E38F)), accepted) << unit.toStdString();
        expectSourcedByHand();
        EXPECT_EQ(answer(instrument(unit, -1E38F, 1E38F, u"V"_s, 0, 10)), accepted) << unit.toStdString();
    }
}

TEST_F(Fluke74xAcceptance, ACombinationThatItCannotDoGetsTheBoxOfAnOutputAndIsTaken) {
    const struct {
        QString name, input, inputSensor, output, outputSensor;
    } rows[] = {
        {u"pressure and pressure"_s, u"psi"_s, {}, u"mbar"_s, {}},
        {u"current and current"_s, u"mA"_s, {}, u"uA"_s, {}},
        {u"two thermocouples"_s, u"C"_s, u"TC K"_s, u"F"_s, u"TC J"_s},
        {u"two thermocouples of no known type"_s, u"C"_s, u"TC"_s, u"C"_s, u"TCX"_s},
        {u"current and a resistance thermometer"_s, u"mA"_s, {}, u"C"_s, u"RTD PT100 385"_s},
        {u"current and a resistance thermometer of no known type"_s, u"A"_s, {}, u"F"_s, u"RTD"_s},
        {u"current and resistance"_s, u"uA"_s, {}, u"KOhms"_s, {}},
    };
    for (const auto& row : rows) {
        auto record = instrument(row.input, 0, 0.02F, row.output, 0, 0.02F);
        record.temp_sens_type_in = row.inputSensor;
        record.temp_sens_type_out = row.outputSensor;
        expectReadByHand();
        EXPECT_EQ(answer(record), accepted) << row.name.toStdString();
        EXPECT_TRUE(ui.hasMetAll()) << row.name.toStdString();
        EXPECT_TRUE(needsStandard(record)) << row.name.toStdString();
    }
}

TEST_F(Fluke74xAcceptance, ACombinationNeedsTheSensorsAsTheyAreWritten) {
    const struct {
        QString name, input, inputSensor, output, outputSensor;
    } rows[] = {
        {u"a thermocouple and a resistance thermometer"_s, u"C"_s, u"TC K"_s, u"C"_s, u"RTD PT100 385"_s},
        {u"two resistance thermometers"_s, u"C"_s, u"RTD PT100 385"_s, u"C"_s, u"RTD PT100 385"_s},
        {u"small letters on one side"_s, u"C"_s, u"tc K"_s, u"C"_s, u"TC K"_s},
        {u"current and a thermocouple"_s, u"mA"_s, {}, u"C"_s, u"TC K"_s},
        {u"current and small letters"_s, u"mA"_s, {}, u"C"_s, u"rtd PT100 385"_s},
        {u"current and two letters"_s, u"mA"_s, {}, u"C"_s, u"RT"_s},
        {u"resistance and current"_s, u"Ohms"_s, {}, u"mA"_s, {}},
        {u"resistance and resistance"_s, u"Ohms"_s, {}, u"Ohms"_s, {}},
        {u"voltage and voltage"_s, u"V"_s, {}, u"V"_s, {}},
    };
    for (const auto& row : rows) {
        auto record = instrument(row.input, 0, 0.02F, row.output, 0, 0.02F);
        record.temp_sens_type_in = row.inputSensor;
        record.temp_sens_type_out = row.outputSensor;
        EXPECT_EQ(answer(record), accepted) << row.name.toStdString();
        EXPECT_FALSE(needsStandard(record)) << row.name.toStdString();
    }
}

TEST_F(Fluke74xAcceptance, ARefusalComesInPlaceOfTheBoxOfACombination) {
    EXPECT_EQ(answer(instrument(u"mA"_s, 4, 20, u"mA"_s, 4, 200)), text(TextId::cannotMeasureCurrentAbove));
    EXPECT_EQ(answer(instrument(u"mA"_s, 4, 23, u"mA"_s, 4, 20)), text(TextId::cannotSourceCurrentAbove));
}

TEST_F(Fluke74xAcceptance, ReadsTheParametersOnceAndCallsNoLink) {
    answer(transmitter());
    EXPECT_EQ(script.statements, QStringList{selectParams(u"A-1"_s)});
    EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"normal"_s}));
    EXPECT_EQ(link.calls, QStringList());
}

TEST_F(Fluke74xAcceptance, AnInstrumentWithoutParametersHasNoUnitsAndIsTaken) {
    for (const auto& asset : {u"unknown"_s, QString(), QString(10000, u'9')}) {
        expectReadByHand(asset);
        expectSourcedByHand(asset);
        EXPECT_EQ(acceptable(asset), accepted);
        EXPECT_TRUE(requiresStandard(asset));
    }
}

TEST_F(Fluke74xAcceptance, AFailingDatabaseIsReportedAndLeavesNoUnits) {
    script.failures.insert(selectParams(u"A-1"_s), Error{-141, u"Table not found"_s, u"42S02"_s});
    ui.expectReport(-141, u"ModuleGlobals,GetCalParams"_s);
    expectReadByHand();
    expectSourcedByHand();
    EXPECT_EQ(acceptable(u"A-1"_s), accepted);
    EXPECT_FALSE(ui.busy);
}

TEST_F(Fluke74xAcceptance, AnUnexpectedErrorIsReportedUnderItsNameAndWhatItHoldsIsTheAnswer) {
    BrokenNotes window;
    Session other({window, clock, settings}, [&] { return std::make_unique<RecordingConnection>(script); });
    other.SessionOwner = session.SessionOwner;
    Fluke74x there{other, link};
    addInstrument(u"A-1"_s, instrument(u"mA"_s, 0, 20, u"mA"_s, 0, 20));
    EXPECT_EQ(Module74xInterface::Fluke74x_acceptable(there, u"A-1"_s), accepted);
    ASSERT_EQ(window.reportedErrors.size(), 1);
    EXPECT_TRUE(
        window.reportedErrors[0].contains(u"FUNCTION/SUB:Module74xInterface,Fluke74x_acceptable\r\n"_s))
        << window.reportedErrors[0].toStdString();
}

} // namespace kelvane::testing
