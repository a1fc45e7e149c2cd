#include "drivers/fluke74x/mode.h"
#include "testkit/fixtures.h"
#include "testkit/fluke_units.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// All three texts, with a bar between.
QString modeOf(const QString& units, const QString& sensor = {}, qint16 wires = 0) {
    const Module74xInterface::Mode74x mode = Module74xInterface::get74xmode(units, sensor, wires);
    return mode.Mode + u'|' + mode.Sensor + u'|' + mode.TempUnits;
}

} // namespace

TEST(Fluke74xMode, FollowsFromTheUnitAloneForAllButTemperatures) {
    const struct {
        QStringList units;
        QString mode;
    } rows[] = {
        {{u"V"_s, u"mV"_s, u"uV"_s}, u"DCV"_s},
        {{u"VAC"_s, u"mVAC"_s}, u"ACV"_s},
        {{u"mA"_s, u"uA"_s, u"A"_s}, u"Current"_s},
        {{u"Hz"_s, u"KHz"_s, u"MHz"_s}, u"Freq"_s},
        {{u"Ohms"_s, u"KOhms"_s, u"Mohms"_s}, u"2 Wire Ohms"_s},
        {{u"psi"_s, u"psig"_s, u"inHg"_s, u"inH2O"_s, u"mmHg"_s, u"kPa"_s, u"bar"_s, u"mbar"_s},
         u"Pressure"_s},
    };
    for (const auto& row : rows) {
        for (const auto& unit : row.units) {
            EXPECT_EQ(modeOf(unit), row.mode + u"||"_s) << unit.toStdString();
            EXPECT_EQ(modeOf(unit, u"RTD PT100 385"_s, 3), row.mode + u"||"_s)
                << unit.toStdString() << " with a sensor";
        }
    }
}

TEST(Fluke74xMode, IsEmptyForUnitsItDoesNotKnow) {
    for (const auto& unit : unitsOfNoQuantity)
        EXPECT_EQ(modeOf(unit, u"TC K"_s, 2), u"||"_s) << unit.left(20).toStdString();
}

TEST(Fluke74xMode, GivesEachResistanceThermometerItsWordAndItsWires) {
    const struct {
        QString sensor, word;
    } rows[] = {
        {u"RTD PT100 385"_s, u"Pt100 (385)"_s},   {u"RTD NI120 672"_s, u"Ni120 (672)"_s},
        {u"RTD PT200 385"_s, u"Pt200 (385)"_s},   {u"RTD PT500 385"_s, u"Pt500 (385)"_s},
        {u"RTD PT1000 385"_s, u"Pt1000 (385)"_s}, {u"RTD CU10 427"_s, u"Cu10 (427)"_s},
        {u"RTD PT100 3916"_s, u"Pt100 (3916)"_s}, {u"RTD PT100 3926"_s, u"Pt100 (3926)"_s},
    };
    for (const auto& row : rows) {
        for (const qint16 wires : {qint16{2}, qint16{3}, qint16{4}}) {
            const auto rest = u'|' + row.word + u'|';
            const auto mode = QString::number(wires) + u" Wire RTD"_s;
            EXPECT_EQ(modeOf(u"C"_s, row.sensor, wires), mode + rest + u"Celsius"_s)
                << row.sensor.toStdString() << " on " << wires;
            EXPECT_EQ(modeOf(u"F"_s, row.sensor, wires), mode + rest + u"Fahrenheit"_s)
                << row.sensor.toStdString() << " on " << wires;
        }
    }
}

TEST(Fluke74xMode, TakesAnyNumberOfWiresWhereThe702KnowsThree) {
    const struct {
        qint16 wires;
        QString mode;
    } rows[] = {{0, u"0 Wire RTD"_s},
                {1, u"1 Wire RTD"_s},
                {5, u"5 Wire RTD"_s},
                {-2, u"-2 Wire RTD"_s},
                {32767, u"32767 Wire RTD"_s}};
    for (const auto& row : rows)
        EXPECT_EQ(modeOf(u"C"_s, u"RTD PT100 385"_s, row.wires), row.mode + u"|Pt100 (385)|Celsius"_s);
}

TEST(Fluke74xMode, GivesEachThermocoupleItsLetterWhateverTheWires) {
    for (const auto letter : u"ENJKTBRSCLU"_s) {
        for (const qint16 wires : {qint16{0}, qint16{2}, qint16{4}}) {
            EXPECT_EQ(modeOf(u"C"_s, u"TC "_s + letter, wires), u"TC|"_s + letter + u"|Celsius"_s);
            EXPECT_EQ(modeOf(u"F"_s, u"TC "_s + letter, wires), u"TC|"_s + letter + u"|Fahrenheit"_s);
        }
    }
}

TEST(Fluke74xMode, KeepsTheTemperatureUnitForASensorItDoesNotKnow) {
    for (const auto& sensor : {QString(), u"TC"_s, u"RTD"_s, u"tc k"_s, u"TC k"_s, u"rtd pt100 385"_s,
                               u"RTD PT100 392"_s, u"RTD PT100 385 "_s, u" TC K"_s, u"TC A"_s, u"TC КЛ"_s}) {
        EXPECT_EQ(modeOf(u"C"_s, sensor, 2), u"||Celsius"_s) << sensor.toStdString();
        EXPECT_EQ(modeOf(u"F"_s, sensor, 2), u"||Fahrenheit"_s) << sensor.toStdString();
    }
}

} // namespace kelvane::testing
