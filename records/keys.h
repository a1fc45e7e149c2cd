#pragma once

#include "platform/user_interface.h"

#include <functional>

class QKeySequence;
class QWidget;

namespace kelvane {

/// Makes keys carry out a command while the focus is in a widget, or in what it holds.
void connectKeys(QWidget& where, const QKeySequence& keys, UserInterface& ui,
                 const std::function<void()>& command);

/// The same while a page is in sight, wherever the focus is in its window.
void connectPageKeys(QWidget& page, const QKeySequence& keys, UserInterface& ui,
                     const std::function<void()>& command);

} // namespace kelvane
