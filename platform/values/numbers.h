#pragma once

#include <QString>

#include <optional>

namespace kelvane {

// The conversions between numbers and texts. Each rule stands here once; the workstation's locale plays no
// part.

/// Numeric value of a text. Never fails: blanks, tabs and line ends are skipped wherever they stand, reading
/// stops at the first character that fits nowhere, nothing read gives 0. Exponent letters e, E, d, D. "12abc"
/// 12, "1,000" 1. A value too large for a double is the largest one, so that a smaller type overflows on it.
double numericValue(QStringView text);

/// The value of a text that passes the number test (blanks at both ends, sign, digits with "," before the
/// point, one ".", exponent e or E), its commas dropped; nothing for a text that is no number or overflows a
/// double.
std::optional<double> numberOf(QStringView text);

/// Plain text: the shortest decimal digits that read back to the same value in the number's own width. No
/// exponent while the absolute value is 0 or lies from 1E-15 to below 1E15; otherwise "1.5E+20". Never "-0".
QString plainText(double value);
QString plainText(float value);
QString plainText(int value);

/// The patterns "0", "0.0" … : `decimals` digits behind the point (0 to 15), at least one before it. The
/// value is first taken to 15 significant digits, that decimal is rounded half away from zero. No minus on a
/// zero result. The text can grow by `spare` characters where it is.
QString fixedDecimals(double value, int decimals, qsizetype spare = 0);

/// The nearest whole number, halves to the even neighbour. Error 6 beyond the type.
qint16 roundToShort(double value);
qint32 roundToLong(double value);

/// `value` rounded to the nearest whole number, halves to the even neighbour, as a double.
double roundHalfEven(double value);

/// `value` stored into a 32-bit float. Error 6 when a finite value is too large for it.
float toReal(double value);

/// The 64-bit value of the plain text of a 32-bit number: 0.1F gives exactly the double nearest to 0.1.
double widenThroughText(float value);

} // namespace kelvane
