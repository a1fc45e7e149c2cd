#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace kelvane::simulators {

/// Bytes from hexadecimal digits; blanks may stand between.
QByteArray hex(const char* digits);

/// The name as the workstation puts it on the line.
QByteArray wireName(const QByteArray& name);
/// A scaled real of four bytes.
QByteArray scaled(double value);

/// The 25 fields of a characteristic that the calibrator takes: 3 samples, an Industry Standard transducer of
/// 150 ft/lb, 96 to 104 ft/lb.
std::vector<QByteArray> goodFields();
/// The same torque with a Serial transducer, whose fields 2, 4, 6 and 11 are not filled.
std::vector<QByteArray> goodSerialFields();

QByteArray addMessage(const QByteArray& name, const std::vector<QByteArray>& fields = goodFields());

} // namespace kelvane::simulators
