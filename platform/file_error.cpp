#include "platform/file_error.h"

#include "resources/strings.h"

#include <QDir>

namespace kelvane {

FileError::FileError(ErrorNumber fileError, const QString& path, const QString& systemReason)
    : Error(makeError(fileError)), reason(text(2140).arg(QDir::toNativeSeparators(path), systemReason)) {}

} // namespace kelvane
