#pragma once

#include "platform/workstation.h"

namespace kelvane {

/// Appends to "errors.log" in the current directory. False when the file can't be written.
bool appendToErrorLog(const QByteArray& lines);

/// Leaves one line with a time stamp in "errors.log": why something was refused, where the operator's box
/// tells less. Line breaks become blanks. A log that can't be written is passed over: the box comes all the
/// same.
void logReason(const Workstation& workstation, const QString& reason);

} // namespace kelvane
