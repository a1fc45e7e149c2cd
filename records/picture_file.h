#pragma once

#include "platform/user_interface.h"
#include "plots/plot.h"

class QWidget;

namespace kelvane {

/// Asks for a file, whose name is `name` at first, and saves a picture in it. Tells why when that fails.
void savePicture(const Plot& plot, const QString& name, QWidget* parent, UserInterface& ui);

} // namespace kelvane
