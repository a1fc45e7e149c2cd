#pragma once

#include "data/assets/assets.h"

#include <QList>

namespace kelvane {

/// Reads the members of a task package, by its tag. Empty, or the failure: it has members, and all of them
/// are unknown. Errors of the reading are reported.
QString readPackage(Session& session, const QString& tag, QList<AssetEntry>& entries);

/// Makes the instruments those that are in use with a calibrator, by its serial number, and no others.
void registerInUse(Session& session, const QString& serial, const QList<AssetEntry>& entries);

} // namespace kelvane
