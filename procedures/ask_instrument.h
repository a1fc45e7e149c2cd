#pragma once

#include "data/routine.h"

#include <optional>

namespace kelvane {

/// Asks for an instrument number until the inventory knows it; nothing when the user gives up. Part of the
/// routine that calls it.
std::optional<QString> askInstrument(Session& session, Routine& routine);

} // namespace kelvane
