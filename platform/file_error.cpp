#include "platform/file_error.h"

#include "resources/strings.h"
#include "resources/text_id.h"

#include <QDir>

namespace kelvane {

FileError::FileError(ErrorNumber fileError, const QString& path, const QString& systemReason)
    : Error(makeError(fileError)),
      reason(text(TextId::fileProblem).arg(QDir::toNativeSeparators(path), systemReason)) {}

} // namespace kelvane
