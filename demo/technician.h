#pragma once

#include <QString>

namespace kelvane::demo {

/// The path of one of the programs that stand beside this one.
QString programBeside(const QString& name);

/// Runs the technician program, which stands beside this one: it carries out, by the lines of a plan, what
/// lies in a simulated calibrator's memory. Throws `Difference` on a failure.
void carryOut(const QString& memory, const QByteArray& plan);

} // namespace kelvane::demo
