#include "drivers/fluke74x/mode.h"

using namespace Qt::StringLiterals;

namespace kelvane::Module74xInterface {

namespace {

constexpr FlukeWords::Sensor sensors[] = {
    {u"RTD PT100 385", u"Pt100 (385)"},
    {u"RTD NI120 672", u"Ni120 (672)"},
    {u"RTD PT200 385", u"Pt200 (385)"},
    {u"RTD PT500 385", u"Pt500 (385)"},
    {u"RTD PT1000 385", u"Pt1000 (385)"},
    {u"RTD CU10 427", u"Cu10 (427)"},
    {u"RTD PT100 3916", u"Pt100 (3916)"},
    {u"RTD PT100 3926", u"Pt100 (3926)"},
    {u"TC E", u"E"},
    {u"TC N", u"N"},
    {u"TC J", u"J"},
    {u"TC K", u"K"},
    {u"TC T", u"T"},
    {u"TC B", u"B"},
    {u"TC R", u"R"},
    {u"TC S", u"S"},
    {u"TC C", u"C"},
    {u"TC L", u"L"},
    {u"TC U", u"U"},
};

QString resistanceThermometer(qint16 wires) {
    return QString::number(wires) + u" Wire RTD"_s;
}

constexpr FlukeWords::Mode modes[] = {
    {FlukeQuantity::temperature, u"TC"},         {FlukeQuantity::pressure, u"Pressure"},
    {FlukeQuantity::current, u"Current"},        {FlukeQuantity::dcVoltage, u"DCV"},
    {FlukeQuantity::acVoltage, u"ACV"},          {FlukeQuantity::frequency, u"Freq"},
    {FlukeQuantity::resistance, u"2 Wire Ohms"},
};

constexpr FlukeWords words{u"Celsius", u"Fahrenheit", sensors, modes, resistanceThermometer};

} // namespace

Mode74x get74xmode(const QString& units, const QString& sensor, qint16 wires) {
    return flukeMode(words, units, sensor, wires);
}

} // namespace kelvane::Module74xInterface
