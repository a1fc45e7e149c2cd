#pragma once

#include "platform/workstation.h"

#include <QRect>

class QWidget;

namespace kelvane {

/// Size and place of a program's window as they are kept in a section of the settings store, in pixels.
struct WindowPlace {
    /// The frame's corner, and the size inside it; of a maximised window those that it comes back to.
    QRect rect;
    bool maximized = false;
    friend bool operator==(const WindowPlace&, const WindowPlace&) = default;
};

WindowPlace placeOf(const QWidget& window);
/// Puts a window, before it is shown, where it was left the last time. What is not stored, or is no size that
/// its screen can show, stays as it is; a position beyond all screens is left to the window manager.
void restorePlace(const Workstation& workstation, const QString& section, QWidget& window);
void storePlace(const Workstation& workstation, const QString& section, const WindowPlace& place);

} // namespace kelvane
