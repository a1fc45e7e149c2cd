#include "data/tolerances/unit_class.h"

#include <initializer_list>

namespace kelvane {

namespace {

struct UnitRow {
    qint16 code;
    std::initializer_list<QStringView> units;
};

const UnitRow unitRows[] = {
    {1, {u"C", u"F"}},
    {2, {u"psi", u"psig", u"inHg", u"inH2O", u"mmHg", u"kPa", u"bar", u"mbar"}},
    {3, {u"mA", u"uA", u"A"}},
    {4, {u"V", u"mV", u"uV"}},
    {5, {u"Hz", u"KHz", u"MHz"}},
    {9, {u"Ohms", u"KOhms", u"Mohms"}},
    {10,
     {u"in/oz", u"in/lb", u"ft/lb", u"N/cm", u"N/m", u"Kg/cm", u"Kg/m", u"Klb/ft", u"KN/m",
      u"Serial Torque Transducer"}},
};

} // namespace

qint16 UnitClass(const QString& unit) {
    for (const auto& row : unitRows) {
        for (const auto& name : row.units) {
            if (name == unit)
                return row.code;
        }
    }
    return 0;
}

} // namespace kelvane
