#pragma once

#include "platform/workstation.h"

namespace kelvane {

/// Appends to "errors.log" in the current directory. False when the file can't be written.
bool appendToErrorLog(const QByteArray& lines);

/// Writes one line with a time stamp to "errors.log": why something was refused, where the operator's box
/// says less. Line breaks become blanks. A log that can't be written is ignored: the box is shown in any
/// case.
void logReason(const Workstation& workstation, const QString& reason);

} // namespace kelvane
