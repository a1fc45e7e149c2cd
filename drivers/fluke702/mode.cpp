#include "drivers/fluke702/mode.h"

using namespace Qt::StringLiterals;

namespace kelvane::Module702Interface {

namespace {

/// The last resistance thermometer's word is one digit short of its name, as the calibrator has it.
constexpr FlukeWords::Sensor sensors[] = {
    {u"RTD PT100 385", u"rtd_pt100_385"},
    {u"RTD NI120 672", u"rtd_ni120"},
    {u"RTD PT200 385", u"rtd_pt200_385"},
    {u"RTD PT500 385", u"rtd_pt500_385"},
    {u"RTD PT1000 385", u"rtd_pt1000_385"},
    {u"RTD CU10 427", u"rtd_cu10"},
    {u"RTD PT100 3916", u"rtd_pt100_3916"},
    {u"RTD PT100 3926", u"rtd_pt100_392"},
    {u"TC E", u"tc_e"},
    {u"TC N", u"tc_n"},
    {u"TC J", u"tc_j"},
    {u"TC K", u"tc_k"},
    {u"TC T", u"tc_t"},
    {u"TC B", u"tc_b"},
    {u"TC R", u"tc_r"},
    {u"TC S", u"tc_s"},
    {u"TC C", u"tc_c"},
    {u"TC L", u"tc_l"},
    {u"TC U", u"tc_u"},
};

QString resistanceThermometer(qint16 wires) {
    return wires >= 2 && wires <= 4 ? QString::number(wires) + u"w_rtd"_s : u"RTD"_s;
}

constexpr FlukeWords::Mode modes[] = {
    {FlukeQuantity::temperature, u"tc"},     {FlukeQuantity::pressure, u"pressure"},
    {FlukeQuantity::current, u"current"},    {FlukeQuantity::dcVoltage, u"dcv"},
    {FlukeQuantity::acVoltage, u"acv"},      {FlukeQuantity::frequency, u"freq"},
    {FlukeQuantity::resistance, u"2w_ohms"},
};

constexpr FlukeWords words{u"celsius", u"fahrenheit", sensors, modes, resistanceThermometer};

} // namespace

Mode702 get702mode(const QString& units, const QString& sensor, qint16 wires) {
    return flukeMode(words, units, sensor, wires);
}

} // namespace kelvane::Module702Interface
