#pragma once

#include "data/session.h"

#include <QStringList>

namespace kelvane {

/// Reads the result template of the first folder that has one. Without one, result lines are shown as they
/// are stored.
void readNearestTemplate(Session& session, const QStringList& folders);

} // namespace kelvane
