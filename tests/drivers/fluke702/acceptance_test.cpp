#include "resources/text_id.h"
#include "testkit/quiet_operator.h"
#include "tests/drivers/fluke702/acceptance_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace Module702Interface;

namespace {

const QString accepted;
const auto cannotOutput = u"Calibrator cannot output (input to UUT) selected units requested!"_s;

} // namespace

TEST_F(FlukeAcceptance, TakesAPressureTransmitter) {
    EXPECT_EQ(answer(transmitter()), accepted);
}

TEST_F(FlukeAcceptance, RefusesAnIndicatedInputFirst) {
    auto record = instrument(u"%"_s, 0, 100, u"%"_s, 0, 100);
    record.input_indicated = true;
    EXPECT_EQ(answer(record), u"Calibrator cannot calibrate instruments that have indicated inputs!"_s);
    record = transmitter();
    record.output_high = 1000;
    record.input_indicated = true;
    EXPECT_EQ(answer(record), text(TextId::indicatedInputUnsupported));
    record.output_indicated = true;
    EXPECT_EQ(answer(record), text(TextId::indicatedInputUnsupported));
}

TEST_F(FlukeAcceptance, IgnoresTheFlagsOfTheOutput) {
    auto record = transmitter();
    record.output_indicated = true;
    EXPECT_EQ(answer(record), accepted);
    record.output_high = 1000;
    EXPECT_EQ(answer(record), text(TextId::cannotMeasureCurrentAbove));
}

TEST_F(FlukeAcceptance, ReportsTheOutputBeforeTheInput) {
    EXPECT_EQ(answer(instrument(u"V"_s, 0, 100, u"mA"_s, 0, 1000)), text(TextId::cannotMeasureCurrentAbove));
    EXPECT_EQ(answer(instrument(u"V"_s, 0, 100, u"mA"_s, 0, 20)), text(TextId::cannotSourceVoltageAbove));
}

TEST_F(FlukeAcceptance, AnOutputInPercentGetsTheBoxAndGoesThroughTheOtherStages) {
    expectReadByHand();
    EXPECT_EQ(answer(instrument(u"psi"_s, 0, 100, u"%"_s, 0, 100)), accepted);
    expectReadByHand();
    EXPECT_EQ(answer(instrument(u"V"_s, 0, 100, u"%"_s, 0, 100)), text(TextId::cannotSourceVoltageAbove));
    expectReadByHand();
    EXPECT_EQ(answer(instrument(u"%"_s, 0, 100, u"%"_s, 0, 100)), cannotOutput);
}

TEST_F(FlukeAcceptance, AnInputInPercentIsRefusedAfterAllStages) {
    for (const auto& unit : {u"%"_s, u""_s, u"ft/lb"_s, u"ma"_s, u"c"_s, u"PSI"_s})
        EXPECT_EQ(answer(instrument(unit, 0, 100, u"mA"_s, 4, 20)), cannotOutput) << unit.toStdString();
    EXPECT_EQ(answer(instrument(u"%"_s, 0, 100, u"mA"_s, 4, 2000)), text(TextId::cannotMeasureCurrentAbove));
}

TEST_F(FlukeAcceptance, TakesNoUnitInAnotherCase) {
    for (const auto& unit : {u"v"_s, u"MV"_s, u"ma"_s, u"hz"_s, u"ohms"_s, u"Psi"_s, u"f"_s}) {
        expectReadByHand();
        EXPECT_EQ(answer(instrument(u"psi"_s, 0, 100, unit, -1E38F, 1E38F)), accepted) << unit.toStdString();
    }
}

TEST_F(FlukeAcceptance, ACombinationThatItCannotDoGetsTheBoxAndIsTaken) {
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

TEST_F(FlukeAcceptance, ACombinationNeedsTheSensorsAsTheyAreWritten) {
    const struct {
        QString name, input, inputSensor, output, outputSensor;
    } rows[] = {
        {u"a thermocouple and a resistance thermometer"_s, u"C"_s, u"TC K"_s, u"C"_s, u"RTD PT100 385"_s},
        {u"a resistance thermometer and a thermocouple"_s, u"C"_s, u"RTD PT100 385"_s, u"C"_s, u"TC K"_s},
        {u"two resistance thermometers"_s, u"C"_s, u"RTD PT100 385"_s, u"C"_s, u"RTD PT100 385"_s},
        {u"small letters on one side"_s, u"C"_s, u"tc K"_s, u"C"_s, u"TC K"_s},
        {u"one letter"_s, u"C"_s, u"T"_s, u"C"_s, u"TC K"_s},
        {u"no sensors"_s, u"C"_s, {}, u"C"_s, {}},
        {u"current and a thermocouple"_s, u"mA"_s, {}, u"C"_s, u"TC K"_s},
        {u"current and small letters"_s, u"mA"_s, {}, u"C"_s, u"rtd PT100 385"_s},
        {u"current and two letters"_s, u"mA"_s, {}, u"C"_s, u"RT"_s},
        {u"current and the sensor on the input's side"_s, u"mA"_s, u"RTD PT100 385"_s, u"C"_s, {}},
        {u"resistance and current"_s, u"Ohms"_s, {}, u"mA"_s, {}},
        {u"resistance and resistance"_s, u"Ohms"_s, {}, u"Ohms"_s, {}},
        {u"voltage and voltage"_s, u"V"_s, {}, u"V"_s, {}},
        {u"pressure and current"_s, u"psi"_s, {}, u"mA"_s, {}},
    };
    for (const auto& row : rows) {
        auto record = instrument(row.input, 0, 0.02F, row.output, 0, 0.02F);
        record.temp_sens_type_in = row.inputSensor;
        record.temp_sens_type_out = row.outputSensor;
        EXPECT_EQ(answer(record), accepted) << row.name.toStdString();
        EXPECT_FALSE(needsStandard(record)) << row.name.toStdString();
    }
}

TEST_F(FlukeAcceptance, ARefusalComesInPlaceOfTheBoxOfACombination) {
    EXPECT_EQ(answer(instrument(u"mA"_s, 4, 20, u"mA"_s, 4, 200)), text(TextId::cannotMeasureCurrentAbove));
    EXPECT_EQ(answer(instrument(u"mA"_s, 4, 23, u"mA"_s, 4, 20)), text(TextId::cannotSourceCurrentAbove));
}

TEST_F(FlukeAcceptance, BoxesOfTwoInstrumentsFollowEachOther) {
    addInstrument(u"P-1"_s, instrument(u"psi"_s, 0, 100, u"psi"_s, 0, 100));
    addInstrument(u"O''Ω-2"_s, instrument(u"psi"_s, 0, 100, u"%"_s, 0, 100));
    expectReadByHand(u"P-1"_s);
    expectReadByHand(u"O''Ω-2"_s);
    EXPECT_EQ(Fluke702_acceptable(driver, u"P-1"_s), accepted);
    EXPECT_EQ(Fluke702_acceptable(driver, u"O''Ω-2"_s), accepted);
}

TEST_F(FlukeAcceptance, ReadsTheParametersOnceAndCallsNoLink) {
    answer(transmitter());
    EXPECT_EQ(script.statements, QStringList{selectParams(u"A-1"_s)});
    EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"normal"_s}));
    EXPECT_EQ(link.calls, QStringList());
}

TEST_F(FlukeAcceptance, AnInstrumentWithoutParametersHasNoUnits) {
    for (const auto& asset :
         {u"unknown"_s, QString(), u"''; drop table mt.inventory;--"_s, QString(10000, u'9')}) {
        expectReadByHand(asset);
        EXPECT_EQ(Fluke702_acceptable(driver, asset), cannotOutput);
        EXPECT_TRUE(Fluke702_requires_standard(driver, asset));
    }
}

TEST_F(FlukeAcceptance, AnAssetNumberThatEndsItsQuotesIsReportedAndLeavesNoUnits) {
    const auto asset = u"'; drop table mt.inventory;--"_s;
    ui.expectReport(1, u"ModuleGlobals,GetCalParams"_s);
    expectReadByHand(asset);
    EXPECT_EQ(Fluke702_acceptable(driver, asset), cannotOutput);
    EXPECT_FALSE(script.statements.contains(selectParams(asset)));
}

TEST_F(FlukeAcceptance, AFailingDatabaseIsReportedAndLeavesNoUnits) {
    script.failures.insert(selectParams(u"A-1"_s), Error{-141, u"Table not found"_s, u"42S02"_s});
    ui.expectReport(-141, u"ModuleGlobals,GetCalParams"_s);
    expectReadByHand();
    EXPECT_EQ(Fluke702_acceptable(driver, u"A-1"_s), cannotOutput);
    ui.expectReport(-141, u"ModuleGlobals,GetCalParams"_s);
    EXPECT_TRUE(Fluke702_requires_standard(driver, u"A-1"_s));
    EXPECT_FALSE(ui.busy);
}

TEST_F(FlukeAcceptance, ALostConnectionIsReportedForEachInstrument) {
    script.lost = true;
    for (const auto& asset : {u"A-1"_s, u"A-2"_s}) {
        ui.expectReport(10054, u"ModuleGlobals,GetCalParams"_s);
        expectReadByHand(asset);
        EXPECT_EQ(Fluke702_acceptable(driver, asset), cannotOutput);
    }
}

TEST_F(FlukeAcceptance, WhatWasReadBeforeAFaultyColumnCounts) {
    // In the order of the columns: the units come before the ranges, the ranges before the flags.
    const struct {
        int column;
        std::optional<QString> value;
        int error;
        bool needsHand;
        QString answer;
    } rows[] = {
        {3, {}, 94, true, cannotOutput},      // input_type
        {4, {}, 94, true, accepted},          // output_type
        {5, u"1E39"_s, 6, false, accepted},   // input_high
        {7, u"1E400"_s, 6, false, accepted},  // output_high
        {7, {}, 94, false, accepted},         // output_high
        {35, {}, 94, false, accepted},        // temp_sens_type_in
        {37, u"40000"_s, 6, false, accepted}, // temp_sens_wires_in
    };
    for (const auto& row : rows) {
        addInstrument(u"A-1"_s, transmitter());
        script.answers[selectParams(u"A-1"_s)][0][row.column] = row.value;
        ui.expectReport(row.error, u"ModuleGlobals,GetCalParams"_s);
        if (row.needsHand)
            expectReadByHand();
        EXPECT_EQ(Fluke702_acceptable(driver, u"A-1"_s), row.answer) << "column " << row.column;
        EXPECT_TRUE(ui.hasMetAll()) << "column " << row.column;
    }
}

TEST_F(FlukeAcceptance, ALowEndOfNullIsZeroAndALimitThatIsNoNumberIsZero) {
    addInstrument(u"A-1"_s, instrument(u"psi"_s, 0, 100, u"KHz"_s, 1, 10));
    auto& row = script.answers[selectParams(u"A-1"_s)][0];
    row[8].reset();
    EXPECT_EQ(Fluke702_acceptable(driver, u"A-1"_s), text(TextId::cannotMeasureFrequencyBelow));
    for (const auto& word : {u"nan"_s, u"inf"_s, u"high"_s, u""_s}) {
        row[8] = u"1"_s;
        row[7] = word;
        EXPECT_EQ(Fluke702_acceptable(driver, u"A-1"_s), text(TextId::cannotMeasureFrequencyBelow))
            << word.toStdString();
    }
}

TEST_F(FlukeAcceptance, AnUnexpectedErrorIsReportedUnderItsNameAndWhatItHoldsIsTheAnswer) {
    BrokenNotes window;
    Session other({window, clock, settings}, [&] { return std::make_unique<RecordingConnection>(script); });
    other.SessionOwner = session.SessionOwner;
    Fluke702 there{other, link};
    addInstrument(u"A-1"_s, instrument(u"mA"_s, 0, 20, u"mA"_s, 0, 20));
    EXPECT_EQ(Fluke702_acceptable(there, u"A-1"_s), accepted);
    ASSERT_EQ(window.reportedErrors.size(), 1);
    EXPECT_TRUE(
        window.reportedErrors[0].contains(u"FUNCTION/SUB:Module702Interface,Fluke702_acceptable\r\n"_s))
        << window.reportedErrors[0].toStdString();
}

} // namespace kelvane::testing
