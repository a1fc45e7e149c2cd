#include "data/tolerances/unit_class.h"

#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(UnitClasses, AreThoseOfTheTable) {
    const struct {
        qint16 code;
        QStringList units;
    } rows[] = {
        {1, {u"C"_s, u"F"_s}},
        {2, {u"psi"_s, u"psig"_s, u"inHg"_s, u"inH2O"_s, u"mmHg"_s, u"kPa"_s, u"bar"_s, u"mbar"_s}},
        {3, {u"mA"_s, u"uA"_s, u"A"_s}},
        {4, {u"V"_s, u"mV"_s, u"uV"_s}},
        {5, {u"Hz"_s, u"KHz"_s, u"MHz"_s}},
        {9, {u"Ohms"_s, u"KOhms"_s, u"Mohms"_s}},
        {10,
         {u"in/oz"_s, u"in/lb"_s, u"ft/lb"_s, u"N/cm"_s, u"N/m"_s, u"Kg/cm"_s, u"Kg/m"_s, u"Klb/ft"_s,
          u"KN/m"_s, u"Serial Torque Transducer"_s}},
        {0,
         {u"VAC"_s, u"mVAC"_s, u"%"_s, u""_s, u"K"_s, u"MOhms"_s, u"c"_s, u"PSI"_s, u" V"_s, u"V "_s,
          u"khz"_s}},
    };
    for (const auto& row : rows) {
        for (const auto& unit : row.units)
            EXPECT_EQ(UnitClass(unit), row.code) << unit.toStdString();
    }
}

} // namespace kelvane::testing
