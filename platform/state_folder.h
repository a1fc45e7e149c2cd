#pragma once

#include <QString>

namespace kelvane {

/// Where a program keeps what it writes of its own accord, such as logs: the folder of that name in the
/// user's one for such files ($XDG_STATE_HOME, otherwise ~/.local/state). It need not be there yet.
QString stateFolder(const QString& program);

} // namespace kelvane
