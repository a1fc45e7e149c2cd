#pragma once

#include <QColor>

namespace kelvane {

// Letters that can be read on the ground of a list, in light and dark palettes.

/// Of what is overdue or has failed.
QColor alarmColor();
/// Of what is due soon.
QColor nearColor();

} // namespace kelvane
