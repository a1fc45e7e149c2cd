#pragma once

#include "admin/command_line.h"

namespace kelvane::admin {

/// All commands of the program, in the order of its help.
const QList<Command>& commands();
/// What the scripts of `database/` call beside these; no help names them.
const QList<Command>& commandsOfScripts();

} // namespace kelvane::admin
