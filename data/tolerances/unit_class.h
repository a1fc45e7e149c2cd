#pragma once

#include <QString>

namespace kelvane {

/// The class code of a unit text, compared exactly: 1 temperature, 2 pressure, 3 current, 4 voltage, 5
/// frequency, 9 resistance, 10 torque, 0 for every other text.
qint16 UnitClass(const QString& unit);

} // namespace kelvane
