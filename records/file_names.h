#pragma once

#include <QString>

namespace kelvane {

/// A name with the substitute for each character that some file system refuses or nobody sees.
QString replaceRefused(QString name, QChar substitute);

/// A name that a file can have in any folder, "_" standing for what is refused: it is of a length that each
/// file system takes, with a suffix, does not end in blanks or dots, and is not hidden. Empty when nothing is
/// left of it.
QString safeFileName(QString name);

} // namespace kelvane
