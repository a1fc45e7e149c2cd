#pragma once

#include <QString>

#include <optional>

namespace kelvane::simulators {

/// A text that came in, in the calibrator's alphabet; nothing for none. It is read no further than the first
/// 1024 bytes, which is more than any operation takes.
std::optional<QString> textIn(const char* text);

/// Puts a text and its terminating zero into a buffer of that width, cut to it. What stands behind the zero
/// is left as it is.
void putText(char* buffer, qsizetype width, const QString& text);

/// The shortest digits that give the number back, such as "0.1"; "nan", "inf" or "-inf" for what is none.
QString digitsOf(float number);

} // namespace kelvane::simulators
