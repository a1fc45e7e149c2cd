#pragma once

#include <QString>

namespace kelvane::demo {

/// The path of one of the programs that stand beside this one.
QString programBeside(const QString& name);

/// The technician in the plant, a program that stands beside this one: carries out what lies in a simulated
/// calibrator's memory, by the lines of a plan. Throws `Difference` when he can't.
void carryOut(const QString& memory, const QByteArray& plan);

} // namespace kelvane::demo
