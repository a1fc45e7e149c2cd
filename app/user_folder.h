#pragma once

#include <QString>

namespace kelvane {

/// Makes the folder that is the user's own for this program, `$XDG_DATA_HOME/kelvane`, where there is none
/// (for nobody else to read), and makes it the current one. Returns why that failed; empty when it did not.
QString enterUserFolder();

} // namespace kelvane
