// What instruments the Fluke calibrators take alike, and when they need a standard alike.

#include "testkit/fluke_units.h"
#include "testkit/quiet_operator.h"
#include "tests/drivers/fluke702/acceptance_fixture.h"
#include "tests/drivers/fluke74x/acceptance_fixture.h"
#include "tests/drivers/fluke_names.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString accepted;

} // namespace

using FlukeCalibrators = ::testing::Types<FlukeAcceptance, Fluke74xAcceptance>;

template <class Calibrator>
class FlukeAcceptanceOf : public Calibrator {};
TYPED_TEST_SUITE(FlukeAcceptanceOf, FlukeCalibrators, FlukeNames);

TYPED_TEST(FlukeAcceptanceOf, TakesAPressureTransmitter) {
    EXPECT_EQ(this->answer(this->transmitter()), accepted);
}

TYPED_TEST(FlukeAcceptanceOf, IgnoresTheFlagsOfTheOutput) {
    auto record = this->transmitter();
    record.output_indicated = true;
    EXPECT_EQ(this->answer(record), accepted);
    record.output_high = 1000;
    EXPECT_EQ(this->answer(record), text(TextId::cannotMeasureCurrentAbove));
}

TYPED_TEST(FlukeAcceptanceOf, ReportsTheOutputBeforeTheInput) {
    EXPECT_EQ(this->answer(this->instrument(u"V"_s, 0, 100, u"mA"_s, 0, 1000)),
              text(TextId::cannotMeasureCurrentAbove));
    EXPECT_EQ(this->answer(this->instrument(u"V"_s, 0, 100, u"mA"_s, 0, 20)),
              text(TextId::cannotSourceVoltageAbove));
}

TYPED_TEST(FlukeAcceptanceOf, TakesNoUnitInAnotherCase) {
    for (const auto& unit : {u"v"_s, u"MV"_s, u"ma"_s, u"hz"_s, u"ohms"_s, u"Psi"_s, u"f"_s}) {
        this->expectReadByHand();
        EXPECT_EQ(this->answer(this->instrument(u"psi"_s, 0, 100, unit, -1E38F, 1E38F)), accepted)
            << unit.toStdString();
    }
}

TYPED_TEST(FlukeAcceptanceOf, ACombinationThatItCannotDoGetsTheBoxAndIsTaken) {
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
        auto record = this->instrument(row.input, 0, 0.02F, row.output, 0, 0.02F);
        record.temp_sens_type_in = row.inputSensor;
        record.temp_sens_type_out = row.outputSensor;
        this->expectReadByHand();
        EXPECT_EQ(this->answer(record), accepted) << row.name.toStdString();
        EXPECT_TRUE(this->ui.hasMetAll()) << row.name.toStdString();
        EXPECT_TRUE(this->needsStandard(record)) << row.name.toStdString();
    }
}

TYPED_TEST(FlukeAcceptanceOf, ACombinationNeedsTheSensorsAsTheyAreWritten) {
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
        auto record = this->instrument(row.input, 0, 0.02F, row.output, 0, 0.02F);
        record.temp_sens_type_in = row.inputSensor;
        record.temp_sens_type_out = row.outputSensor;
        EXPECT_EQ(this->answer(record), accepted) << row.name.toStdString();
        EXPECT_FALSE(this->needsStandard(record)) << row.name.toStdString();
    }
}

TYPED_TEST(FlukeAcceptanceOf, ARefusalComesInPlaceOfTheBoxOfACombination) {
    EXPECT_EQ(this->answer(this->instrument(u"mA"_s, 4, 20, u"mA"_s, 4, 200)),
              text(TextId::cannotMeasureCurrentAbove));
    EXPECT_EQ(this->answer(this->instrument(u"mA"_s, 4, 23, u"mA"_s, 4, 20)),
              text(TextId::cannotSourceCurrentAbove));
}

TYPED_TEST(FlukeAcceptanceOf, BoxesOfTwoInstrumentsFollowEachOther) {
    this->addInstrument(u"P-1"_s, this->instrument(u"psi"_s, 0, 100, u"psi"_s, 0, 100));
    this->addInstrument(u"O''Ω-2"_s, this->instrument(u"psi"_s, 0, 100, u"%"_s, 0, 100));
    this->expectReadByHand(u"P-1"_s);
    this->expectReadByHand(u"O''Ω-2"_s);
    EXPECT_EQ(this->acceptable(u"P-1"_s), accepted);
    EXPECT_EQ(this->acceptable(u"O''Ω-2"_s), accepted);
}

TYPED_TEST(FlukeAcceptanceOf, ReadsTheParametersOnceAndCallsNoLink) {
    this->answer(this->transmitter());
    EXPECT_EQ(this->script.statements, QStringList{this->selectParams(u"A-1"_s)});
    EXPECT_EQ(this->ui.events, (QStringList{u"busy"_s, u"normal"_s}));
    EXPECT_EQ(this->link.calls, QStringList());
}

TYPED_TEST(FlukeAcceptanceOf, AnInstrumentWithoutParametersHasNoUnits) {
    for (const auto& asset :
         {u"unknown"_s, QString(), u"''; drop table mt.inventory;--"_s, QString(10000, u'9')}) {
        this->expectReadByHand(asset);
        const auto expected = this->answerToUnknownInput(asset);
        EXPECT_EQ(this->acceptable(asset), expected);
        EXPECT_TRUE(this->requiresStandard(asset));
    }
}

TYPED_TEST(FlukeAcceptanceOf, AnAssetNumberThatEndsItsQuotesIsReportedAndLeavesNoUnits) {
    const auto asset = u"'; drop table mt.inventory;--"_s;
    this->ui.expectReport(1, u"ModuleGlobals,GetCalParams"_s);
    this->expectReadByHand(asset);
    const auto expected = this->answerToUnknownInput(asset);
    EXPECT_EQ(this->acceptable(asset), expected);
    EXPECT_FALSE(this->script.statements.contains(this->selectParams(asset)));
}

TYPED_TEST(FlukeAcceptanceOf, AFailingDatabaseIsReportedAndLeavesNoUnits) {
    this->script.failures.insert(this->selectParams(u"A-1"_s), Error{-141, u"Table not found"_s, u"42S02"_s});
    this->ui.expectReport(-141, u"ModuleGlobals,GetCalParams"_s);
    this->expectReadByHand();
    const auto expected = this->answerToUnknownInput();
    EXPECT_EQ(this->acceptable(u"A-1"_s), expected);
    this->ui.expectReport(-141, u"ModuleGlobals,GetCalParams"_s);
    EXPECT_TRUE(this->requiresStandard(u"A-1"_s));
    EXPECT_FALSE(this->ui.busy);
}

TYPED_TEST(FlukeAcceptanceOf, ALostConnectionIsReportedForEachInstrument) {
    this->script.lost = true;
    for (const auto& asset : {u"A-1"_s, u"A-2"_s}) {
        this->ui.expectReport(10054, u"ModuleGlobals,GetCalParams"_s);
        this->expectReadByHand(asset);
        const auto expected = this->answerToUnknownInput(asset);
        EXPECT_EQ(this->acceptable(asset), expected);
    }
}

TYPED_TEST(FlukeAcceptanceOf, WhatWasReadBeforeAFaultyColumnCounts) {
    // In the order of the columns: the units come before the ranges, the ranges before the flags.
    const struct {
        int column;
        std::optional<QString> value;
        int error;
        bool knowsInput;
        bool knowsOutput;
    } rows[] = {
        {3, {}, 94, false, false},       // input_type
        {4, {}, 94, true, false},        // output_type
        {5, u"1E39"_s, 6, true, true},   // input_high
        {7, u"1E400"_s, 6, true, true},  // output_high
        {7, {}, 94, true, true},         // output_high
        {35, {}, 94, true, true},        // temp_sens_type_in
        {37, u"40000"_s, 6, true, true}, // temp_sens_wires_in
    };
    for (const auto& row : rows) {
        this->addInstrument(u"A-1"_s, this->transmitter());
        this->script.answers[this->selectParams(u"A-1"_s)][0][row.column] = row.value;
        this->ui.expectReport(row.error, u"ModuleGlobals,GetCalParams"_s);
        if (!row.knowsOutput)
            this->expectReadByHand();
        const auto expected = row.knowsInput ? accepted : this->answerToUnknownInput();
        EXPECT_EQ(this->acceptable(u"A-1"_s), expected) << "column " << row.column;
        EXPECT_TRUE(this->ui.hasMetAll()) << "column " << row.column;
    }
}

TYPED_TEST(FlukeAcceptanceOf, ALowEndOfNullIsZeroAndALimitThatIsNoNumberIsZero) {
    this->addInstrument(u"A-1"_s, this->instrument(u"psi"_s, 0, 100, u"KHz"_s, 1, 10));
    auto& row = this->script.answers[this->selectParams(u"A-1"_s)][0];
    row[8].reset();
    EXPECT_EQ(this->acceptable(u"A-1"_s), text(TextId::cannotMeasureFrequencyBelow));
    for (const auto& word : {u"nan"_s, u"inf"_s, u"high"_s, u""_s}) {
        row[8] = u"1"_s;
        row[7] = word;
        EXPECT_EQ(this->acceptable(u"A-1"_s), text(TextId::cannotMeasureFrequencyBelow))
            << word.toStdString();
    }
}

TYPED_TEST(FlukeAcceptanceOf, AnUnexpectedErrorIsReportedUnderItsNameAndWhatItHoldsIsTheAnswer) {
    BrokenNotes window;
    Session other({window, this->clock, this->settings},
                  [&] { return std::make_unique<RecordingConnection>(this->script); });
    other.SessionOwner = this->session.SessionOwner;
    decltype(this->driver) there{other, this->link};
    this->addInstrument(u"A-1"_s, this->instrument(u"mA"_s, 0, 20, u"mA"_s, 0, 20));
    EXPECT_EQ(TestFixture::acceptableFor(there, u"A-1"_s), accepted);
    ASSERT_EQ(window.reportedErrors.size(), 1);
    EXPECT_TRUE(window.reportedErrors[0].contains(u"FUNCTION/SUB:"_s + this->acceptableName + u"\r\n"_s))
        << window.reportedErrors[0].toStdString();
}

// Whether a standard is needed.

template <class Calibrator>
class FlukeStandardOf : public Calibrator {};
TYPED_TEST_SUITE(FlukeStandardOf, FlukeCalibrators, FlukeNames);

TYPED_TEST(FlukeStandardOf, KnowsTwentyFourUnits) {
    EXPECT_EQ(knownUnits.size(), 24);
    for (const auto& unit : knownUnits)
        EXPECT_FALSE(this->needsStandard(this->instrument(u"V"_s, 0, 10, unit, 0, 10))) << unit.toStdString();
    for (const auto& unit : unknownUnits)
        EXPECT_TRUE(this->needsStandard(this->instrument(u"V"_s, 0, 10, unit, 0, 10))) << unit.toStdString();
}

TYPED_TEST(FlukeStandardOf, IsNotNeededForWhatLiesBeyondTheLimits) {
    EXPECT_FALSE(this->needsStandard(this->instrument(u"VAC"_s, 0, 1E38F, u"mA"_s, 0, 1E38F)));
}

TYPED_TEST(FlukeStandardOf, IsFoundOutByReadingTheParametersOnce) {
    this->needsStandard(this->transmitter());
    EXPECT_EQ(this->script.statements, QStringList{this->selectParams(u"A-1"_s)});
    EXPECT_EQ(this->link.calls, QStringList());
}

} // namespace kelvane::testing
