#include "drivers/fluke_quantity.h"

namespace kelvane {

namespace {

struct UnitRow {
    QStringView unit;
    FlukeQuantity quantity;
};

using enum FlukeQuantity;

constexpr UnitRow units[] = {
    {u"C", temperature}, {u"F", temperature},   {u"V", dcVoltage},      {u"mV", dcVoltage},
    {u"uV", dcVoltage},  {u"VAC", acVoltage},   {u"mVAC", acVoltage},   {u"mA", current},
    {u"uA", current},    {u"A", current},       {u"Hz", frequency},     {u"KHz", frequency},
    {u"MHz", frequency}, {u"Ohms", resistance}, {u"KOhms", resistance}, {u"Mohms", resistance},
    {u"psi", pressure},  {u"psig", pressure},   {u"inHg", pressure},    {u"inH2O", pressure},
    {u"mmHg", pressure}, {u"kPa", pressure},    {u"bar", pressure},     {u"mbar", pressure},
};

} // namespace

std::optional<FlukeQuantity> flukeQuantity(QStringView unit) {
    for (const auto& row : units) {
        if (row.unit == unit)
            return row.quantity;
    }
    return {};
}

} // namespace kelvane
