#pragma once

#include "platform/user_interface.h"

class QWidget;

namespace kelvane {

/// Shows a message box over `window`, with exactly this text and title, and waits for the answer. Escape and
/// the frame answer No or Cancel where there is such a button, OK where it is the only one.
BoxAnswer showMessageBox(QWidget* window, const QString& text, const QString& title, BoxStyle style);

} // namespace kelvane
