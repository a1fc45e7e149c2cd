#include "tests/drivers/fluke702/acceptance_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString accepted;
const auto tooHot =
    u"Fluke 702 cannot measure that high of temperature for the selected temperature device!"_s;
const auto tooCold =
    u"Fluke 702 cannot measure that low of temperature for the selected temperature device!"_s;

struct SensorRow {
    QString name;
    float highC, lowC, highF, lowF;
};

const SensorRow rows[] = {
    {u"RTD PT100 3926"_s, 630, -200, 1166, -328},
    {u"RTD PT100 385"_s, 800, -200, 1472, -328},
    {u"RTD PT200 385"_s, 630, -200, 1166, -328},
    {u"RTD PT500 385"_s, 630, -200, 1166, -328},
    {u"RTD PT1000 385"_s, 630, -200, 1166, -328},
    {u"RTD PT100 3916"_s, 630, -200, 1166, -328},
    {u"RTD NI120 672"_s, 260, -80, 500, -112},
    {u"RTD CU10 427"_s, 260, -100, 500, -148},
    {u"TC E"_s, 1000, -250, 1832, -418},
    {u"TC N"_s, 1300, -200, 2372, -328},
    {u"TC J"_s, 1200, -210, 2192, -346},
    {u"TC K"_s, 1372, -200, 2501.6F, -328},
    {u"TC T"_s, 400, -250, 752, -418},
    {u"TC B"_s, 1820, 600, 3308, 1112},
    {u"TC R"_s, 1767, 0, 3212.6F, 32},
    {u"TC S"_s, 1767, 0, 3212.6F, 32},
    {u"TC C"_s, 2316, 0, 4200.8F, 32},
    {u"TC L"_s, 900, -200, 1652, -328},
    {u"TC U"_s, 600, -200, 1112, -328},
};

} // namespace

class FlukeSensorLimits : public FlukeAcceptance {};

TEST_F(FlukeSensorLimits, HoldForEachSensorInBothUnitsOnBothSides) {
    for (const auto& row : rows) {
        expectTemperatureLimits(u"C"_s, row.name, row.lowC, row.highC);
        expectTemperatureLimits(u"F"_s, row.name, row.lowF, row.highF);
    }
}

TEST_F(FlukeSensorLimits, ASensorOfNoRowPasses) {
    for (const auto& sensor : {QString(), u"TC"_s, u"RTD"_s, u"TC e"_s, u"tc E"_s, u"rtd PT100 385"_s,
                               u"RTD PT100 385 "_s, u" TC K"_s, u"TC Q"_s, u"RTD PT100"_s, u"ТС К"_s}) {
        for (const auto& unit : {u"C"_s, u"F"_s})
            expectTemperature(unit, sensor, {-1E38F, 1E38F, {}});
    }
}

TEST_F(FlukeSensorLimits, EachSideUsesItsOwnSensor) {
    auto record = instrument(u"C"_s, 0, 500, u"mA"_s, 4, 20);
    record.temp_sens_type_in = u"TC K"_s;
    record.temp_sens_type_out = u"TC T"_s;
    EXPECT_EQ(answer(record), accepted);
    record.temp_sens_type_in = u"TC T"_s;
    record.temp_sens_type_out = u"TC K"_s;
    EXPECT_EQ(answer(record), tooHot);

    record = instrument(u"psi"_s, 0, 100, u"C"_s, 0, 500);
    record.temp_sens_type_in = u"TC T"_s;
    record.temp_sens_type_out = u"TC K"_s;
    EXPECT_EQ(answer(record), accepted);
}

TEST_F(FlukeSensorLimits, AnInputOnATypeSFrom0PassesAndFromMinus10IsReportedAsMeasuring) {
    auto record = instrument(u"C"_s, 0, 100, u"mA"_s, 4, 20);
    record.temp_sens_type_in = u"TC S"_s;
    EXPECT_EQ(answer(record), accepted);
    record.input_low = -10;
    EXPECT_EQ(answer(record), tooCold);
}

TEST_F(FlukeSensorLimits, CountForTemperaturesOnly) {
    auto record = transmitter();
    record.input_high = 5000;
    record.temp_sens_type_in = record.temp_sens_type_out = u"TC T"_s;
    EXPECT_EQ(answer(record), accepted);
}

} // namespace kelvane::testing
