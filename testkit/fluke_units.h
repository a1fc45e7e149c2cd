#pragma once

#include "data/parameters/cal_params.h"

#include <QStringList>

namespace kelvane::testing {

/// The units that the documenting calibrators know, all of them and by quantity.
inline const QStringList temperatures{QStringLiteral("C"), QStringLiteral("F")};
inline const QStringList currents{QStringLiteral("mA"), QStringLiteral("uA"), QStringLiteral("A")};
inline const QStringList resistances{QStringLiteral("Ohms"), QStringLiteral("KOhms"),
                                     QStringLiteral("Mohms")};
inline const QStringList pressures =
    QStringLiteral("psi psig inHg inH2O mmHg kPa bar mbar").split(QLatin1Char(' '));
inline const QStringList knownUnits = QStringLiteral("V mV uV VAC mVAC Hz KHz MHz").split(QLatin1Char(' ')) +
                                      resistances + currents + temperatures + pressures;

/// Units that they don't know: such that instruments have, and such that differ from a known one in case,
/// blanks or letters only.
inline const QStringList unknownUnits{{},
                                      QStringLiteral("%"),
                                      QStringLiteral("v"),
                                      QStringLiteral("ft/lb"),
                                      QStringLiteral("Serial Torque Transducer"),
                                      QStringLiteral("kohms")};
inline const QStringList unitsOfNoQuantity =
    QStringLiteral("% v MV UV vac uVAC ma hz kHz khz ohms kOhms MOhms PSI KPa Bar c f K ft/lb °C Ω")
        .split(QLatin1Char(' ')) +
    QStringList{{}, QStringLiteral(" V"), QStringLiteral("V "), QString(100000, u'V')};

/// A range end that lies within every limit of its unit, measured as well as sourced.
inline float harmless(const QString& unit) {
    return unit == u"Hz" ? 1000 : 0.01F;
}

inline QStringList sensorsFor(const QString& unit) {
    return temperatures.contains(unit)
               ? QStringLiteral(",TC K,RTD PT100 385,TC,RTDX,tc K,rtd").split(QLatin1Char(','))
               : QStringList{QString()};
}

/// Whether the two sides of an instrument can't be done at once.
inline bool excludeEachOther(const CalParamRecord& record) {
    const auto& in = record.input_type;
    const auto& out = record.output_type;
    const auto& sensor = record.temp_sens_type_out;
    return (pressures.contains(in) && pressures.contains(out)) ||
           (currents.contains(in) && currents.contains(out)) ||
           (temperatures.contains(in) && temperatures.contains(out) &&
            record.temp_sens_type_in.startsWith(QStringLiteral("TC")) &&
            sensor.startsWith(QStringLiteral("TC"))) ||
           (currents.contains(in) && temperatures.contains(out) &&
            sensor.startsWith(QStringLiteral("RTD"))) ||
           (currents.contains(in) && resistances.contains(out));
}

} // namespace kelvane::testing
