#pragma once

#include "platform/user_interface.h"

#include <QString>

namespace kelvane {

/// Tells the operator a note while procedures are made ready for a calibrator: behind the asset number of the
/// instrument that it concerns, which may be empty.
void tellDownloadNote(UserInterface& ui, const QString& asset, const QString& note);

} // namespace kelvane
