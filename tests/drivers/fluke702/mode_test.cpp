#include "drivers/fluke702/mode.h"
#include "testkit/fixtures.h"
#include "testkit/fluke_units.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using Module702Interface::get702mode;

namespace {

/// All three texts, with a bar between.
QString modeOf(const QString& units, const QString& sensor = {}, qint16 wires = 0) {
    const auto mode = get702mode(units, sensor, wires);
    return mode.Mode + u'|' + mode.Sensor + u'|' + mode.TempUnits;
}

} // namespace

TEST(Fluke702Mode, FollowsFromTheUnitAloneForAllButTemperatures) {
    const struct {
        QStringList units;
        QString mode;
    } rows[] = {
        {{u"V"_s, u"mV"_s, u"uV"_s}, u"dcv"_s},
        {{u"VAC"_s, u"mVAC"_s}, u"acv"_s},
        {{u"mA"_s, u"uA"_s, u"A"_s}, u"current"_s},
        {{u"Hz"_s, u"KHz"_s, u"MHz"_s}, u"freq"_s},
        {{u"Ohms"_s, u"KOhms"_s, u"Mohms"_s}, u"2w_ohms"_s},
        {{u"psi"_s, u"psig"_s, u"inHg"_s, u"inH2O"_s, u"mmHg"_s, u"kPa"_s, u"bar"_s, u"mbar"_s},
         u"pressure"_s},
    };
    for (const auto& row : rows) {
        for (const auto& unit : row.units) {
            EXPECT_EQ(modeOf(unit), row.mode + u"||"_s) << unit.toStdString();
            EXPECT_EQ(modeOf(unit, u"RTD PT100 385"_s, 3), row.mode + u"||"_s)
                << unit.toStdString() << " with a sensor";
        }
    }
}

TEST(Fluke702Mode, IsEmptyForUnitsItDoesNotKnow) {
    for (const auto& unit : unitsOfNoQuantity)
        EXPECT_EQ(modeOf(unit, u"TC K"_s, 2), u"||"_s) << unit.left(20).toStdString();
}

TEST(Fluke702Mode, GivesEachResistanceThermometerItsWordAndItsWires) {
    const struct {
        QString sensor, word;
    } rows[] = {
        {u"RTD PT100 385"_s, u"rtd_pt100_385"_s},
        {u"RTD NI120 672"_s, u"rtd_ni120"_s},
        {u"RTD PT200 385"_s, u"rtd_pt200_385"_s},
        {u"RTD PT500 385"_s, u"rtd_pt500_385"_s},
        {u"RTD PT1000 385"_s, u"rtd_pt1000_385"_s},
        {u"RTD CU10 427"_s, u"rtd_cu10"_s},
        {u"RTD PT100 3916"_s, u"rtd_pt100_3916"_s},
        // One digit short.
        {u"RTD PT100 3926"_s, u"rtd_pt100_392"_s},
    };
    const struct {
        qint16 wires;
        QString mode;
    } wirings[] = {{2, u"2w_rtd"_s}, {3, u"3w_rtd"_s}, {4, u"4w_rtd"_s}, {0, u"RTD"_s},
                   {1, u"RTD"_s},    {5, u"RTD"_s},    {-2, u"RTD"_s},   {32767, u"RTD"_s}};
    for (const auto& row : rows) {
        for (const auto& [wires, mode] : wirings) {
            const auto rest = u'|' + row.word + u'|';
            EXPECT_EQ(modeOf(u"C"_s, row.sensor, wires), mode + rest + u"celsius"_s)
                << row.sensor.toStdString() << " on " << wires;
            EXPECT_EQ(modeOf(u"F"_s, row.sensor, wires), mode + rest + u"fahrenheit"_s)
                << row.sensor.toStdString() << " on " << wires;
        }
    }
}

TEST(Fluke702Mode, GivesEachThermocoupleItsWordWhateverTheWires) {
    for (const auto* letter : {u"E", u"N", u"J", u"K", u"T", u"B", u"R", u"S", u"C", u"L", u"U"}) {
        const auto type = QString::fromUtf16(letter);
        for (const qint16 wires : {qint16{0}, qint16{2}, qint16{4}}) {
            EXPECT_EQ(modeOf(u"C"_s, u"TC "_s + type, wires), u"tc|tc_"_s + type.toLower() + u"|celsius"_s);
            EXPECT_EQ(modeOf(u"F"_s, u"TC "_s + type, wires),
                      u"tc|tc_"_s + type.toLower() + u"|fahrenheit"_s);
        }
    }
}

TEST(Fluke702Mode, KeepsTheTemperatureUnitForASensorItDoesNotKnow) {
    for (const auto& sensor : {QString(), u"TC"_s, u"RTD"_s, u"tc k"_s, u"TC k"_s, u"rtd pt100 385"_s,
                               u"RTD PT100 392"_s, u"RTD PT100 385 "_s, u" TC K"_s, u"TC A"_s, u"TC КЛ"_s}) {
        EXPECT_EQ(modeOf(u"C"_s, sensor, 2), u"||celsius"_s) << sensor.toStdString();
        EXPECT_EQ(modeOf(u"F"_s, sensor, 2), u"||fahrenheit"_s) << sensor.toStdString();
    }
}

} // namespace kelvane::testing
