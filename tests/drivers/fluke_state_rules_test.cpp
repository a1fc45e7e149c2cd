// What the state of an instrument says on the Fluke calibrators alike; each has its own words for it.

#include "tests/drivers/fluke702/download_fixture.h"
#include "tests/drivers/fluke74x/download_fixture.h"
#include "tests/drivers/fluke_names.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// The words of a calibrator.
struct StateWords {
    QString loopOff, loop24, loop28;
    QString celsius, fahrenheit;
    QString millimetresOfMercury;
};

class StateOf702 : public FlukeDownload {
  protected:
    QString loopOf(const CalParamRecord& record) { return wordOf(u"STAsetLoopPower"_s, record); }
    QString pressureUnitOf(const CalParamRecord& record) { return wordOf(u"STAsetPresUnits"_s, record); }
    QString temperatureUnitOf(const CalParamRecord& record) { return wordOf(u"STAsetTempUnits"_s, record); }

    const StateWords words{u"off"_s, u"24v"_s, u"28v"_s, u"celsius"_s, u"fahrenheit"_s, u"mm_hg"_s};

  private:
    QString wordOf(const QString& operation, const CalParamRecord& record) {
        load({record});
        EXPECT_EQ(argumentsOf(operation).size(), 1);
        return argumentsOf(operation).value(0).remove(u'"');
    }
};

class StateOf74x : public Fluke74xDownload {
  protected:
    QString loopOf(const CalParamRecord& record) { return wordOf(u"loop"_s, record); }
    QString pressureUnitOf(const CalParamRecord& record) { return wordOf(u"defaultPres"_s, record); }
    QString temperatureUnitOf(const CalParamRecord& record) { return wordOf(u"defaultTemp"_s, record); }

    const StateWords words{u"Disabled"_s, u"Enabled 24V"_s, u"Enabled 28V"_s,
                           u"Celsius"_s,  u"Fahrenheit"_s,  u"m_hg"_s};

  private:
    QString wordOf(const QString& name, const CalParamRecord& record) {
        load({record});
        return item(name);
    }
};

using FlukeStates = ::testing::Types<StateOf702, StateOf74x>;

template <class State>
class FlukeStateOf : public State {};
TYPED_TEST_SUITE(FlukeStateOf, FlukeStates, FlukeNames);

TYPED_TEST(FlukeStateOf, ACurrentOutputAloneHasItsLoopPower) {
    const struct {
        QString outputType;
        QString stored;
        QString StateWords::*word;
    } rows[] = {
        {u"mA"_s, u"OFF"_s, &StateWords::loopOff},   {u"mA"_s, u"24V"_s, &StateWords::loop24},
        {u"mA"_s, u"28V"_s, &StateWords::loop28},    {u"mA"_s, u"24v"_s, &StateWords::loop24},
        {u"uA"_s, u"28v"_s, &StateWords::loop28},    {u"A"_s, u"24V"_s, &StateWords::loop24},
        {u"mA"_s, u""_s, &StateWords::loopOff},      {u"mA"_s, u"24"_s, &StateWords::loopOff},
        {u"mA"_s, u"24V "_s, &StateWords::loopOff},  {u"V"_s, u"24V"_s, &StateWords::loopOff},
        {u"Ohms"_s, u"28V"_s, &StateWords::loopOff}, {u"psi"_s, u"28V"_s, &StateWords::loopOff},
    };
    for (const auto& row : rows) {
        auto record = this->instrument(u"V"_s, 0, 5, row.outputType, 0, 10);
        record.loop_pwr = row.stored;
        EXPECT_EQ(this->loopOf(record), this->words.*row.word)
            << (row.outputType + u' ' + row.stored).toStdString();
    }
}

TYPED_TEST(FlukeStateOf, APressureOfEitherSideHasItsUnitThatOfTheOutputFirst) {
    const struct {
        QString unit;
        QString word;
    } rows[] = {{u"psi"_s, u"psi"_s},
                {u"psig"_s, u"psi"_s},
                {u"inHg"_s, u"in_hg"_s},
                {u"inH2O"_s, u"in_h2o"_s},
                {u"mmHg"_s, this->words.millimetresOfMercury},
                {u"kPa"_s, u"kpa"_s},
                {u"bar"_s, u"bar"_s},
                {u"mbar"_s, u"bar"_s}};
    for (const auto& row : rows) {
        EXPECT_EQ(this->pressureUnitOf(this->instrument(row.unit, 0, 10, u"V"_s, 0, 5)), row.word);
        EXPECT_EQ(this->pressureUnitOf(this->instrument(u"V"_s, 0, 5, row.unit, 0, 10)), row.word);
        EXPECT_EQ(this->pressureUnitOf(this->instrument(u"inHg"_s, 0, 5, row.unit, 0, 10)), row.word);
    }
    EXPECT_EQ(this->pressureUnitOf(this->instrument(u"V"_s, 0, 5, u"mA"_s, 0, 10)), u"psi"_s);
}

TYPED_TEST(FlukeStateOf, TemperaturesAreInTheUnitOfTheInputAndInCelsiusWithoutOne) {
    const auto unitOf = [this](const QString& input, const QString& output) {
        auto record = this->instrument(input, 0, 5, output, 0, 5);
        record.temp_sens_type_in = u"TC K"_s;
        record.temp_sens_type_out = u"RTD PT100 385"_s;
        record.temp_sens_wires_out = 3;
        return this->temperatureUnitOf(record);
    };
    EXPECT_EQ(unitOf(u"C"_s, u"V"_s), this->words.celsius);
    EXPECT_EQ(unitOf(u"F"_s, u"V"_s), this->words.fahrenheit);
    EXPECT_EQ(unitOf(u"V"_s, u"F"_s), this->words.celsius) << "an output in Fahrenheit alone";
    EXPECT_EQ(unitOf(u"C"_s, u"F"_s), this->words.celsius);
    EXPECT_EQ(unitOf(u"V"_s, u"V"_s), this->words.celsius);
}

} // namespace kelvane::testing
