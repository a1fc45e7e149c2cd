#pragma once

#include "data/session.h"

#include <QStringView>

class QWidget;

namespace kelvane {

/// True while a child window of that name, such as "FormCalParam", counts as open in the session.
bool isWindowOpen(const Session& session, QStringView name);
/// True while any child window counts as open in the session.
bool isAnyWindowOpen(const Session& session);

/// The window of its own (no child window) with that title that is on the screen, also as an icon; null
/// without one.
QWidget* shownWindow(QStringView title);
/// Brings that window in front of the others and gives it the keyboard.
void bringWindowForward(QStringView title);

} // namespace kelvane
