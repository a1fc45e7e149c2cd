#pragma once

#include <QString>

namespace kelvane {

/// A name with the substitute for each character that some file system refuses or nobody sees.
QString replaceRefused(QString name, QChar substitute);

} // namespace kelvane
