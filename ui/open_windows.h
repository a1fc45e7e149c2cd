#pragma once

#include "data/session.h"

#include <QStringView>

namespace kelvane {

/// True while a child window of that name, such as "FormCalParam", counts as open in the session.
bool isWindowOpen(const Session& session, QStringView name);
/// True while any child window counts as open in the session.
bool isAnyWindowOpen(const Session& session);

} // namespace kelvane
