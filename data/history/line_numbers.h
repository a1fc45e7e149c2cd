#pragma once

#include "data/history/line_layout.h"

namespace kelvane {

/// The numbers of a result line's fields, in the order of `resultFields`; none for a field that is no number
/// or has none.
using LineNumbers = std::array<std::optional<double>, resultFields.size()>;

/// Reads the numbers of a line and compares them with each other, as the workstation has worked them out: all
/// have the same number of decimals, nominal value, reading, tolerance and error the same unit; the error is
/// the reading without the nominal value, the tolerance the distance of a limit, and verdict and percentage
/// are those of these figures, all within their rounding. Nothing when they are not: then the texts are those
/// of other fields, or of another program. A percentage that the other figures do not confirm is left out,
/// and the point's number with it. So a figure that was taken from another field's column is off by a few of
/// its last digits at the most.
std::optional<LineNumbers> numbersOfLine(const ResultTemplate& layout, const LineFields& fields);

/// The unit behind the number of a field, such as "mA" of "12.000mA"; empty for a text that is no number with
/// its unit.
QString unitOf(const QString& field);

} // namespace kelvane
