#pragma once

#include "data/session.h"

#include <optional>

class QWidget;

namespace kelvane {

/// Asks for an entry while the controls of `screen` are out of reach; the one that had the focus gets it
/// back.
std::optional<QString> askOutOfReach(QWidget& screen, Session& session,
                                     std::optional<QString> (*ask)(Session& session));

} // namespace kelvane
