#pragma once

#include "admin/command_line.h"

namespace kelvane::admin {

/// All commands of the program, in the order of its help.
const QList<Command>& commands();

} // namespace kelvane::admin
