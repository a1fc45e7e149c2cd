#pragma once

#include "platform/user_interface.h"

#include <QString>

namespace kelvane {

/// Shows the operator a note while procedures are prepared for a calibrator. The asset number of the
/// instrument concerned stands before it and may be empty.
void showDownloadNote(UserInterface& ui, const QString& asset, const QString& note);

} // namespace kelvane
