#pragma once

#include "platform/error.h"

namespace kelvane {

/// Error 75 or 53 of a file. Number and description are the same for every file; `reason` names the file and
/// what the system says of it, for "errors.log".
struct FileError : Error {
    FileError(ErrorNumber fileError, const QString& path, const QString& systemReason);

    QString reason;
};

} // namespace kelvane
