#pragma once

#include "data/session.h"

#include <QStringList>

namespace kelvane {

/// Reads the result template of the first folder that has one. Without one, result lines are shown as they
/// are stored.
void readNearestTemplate(Session& session, const QStringList& folders);

/// The layout of certificates: "certificate.rpt" of the workstation's folder of this user, or the one that is
/// installed.
QString certificateLayout();

} // namespace kelvane
