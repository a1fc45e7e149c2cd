#pragma once

#include "resources/strings.h"

#include <QString>

class QGroupBox;
class QLabel;
class QTabWidget;

namespace kelvane {

/// A panel: a frame around the controls of one subject, with its caption.
QGroupBox* panel(const QString& name, TextId caption);
/// A fixed note, which wraps at the width that it gets.
QLabel* note(const QString& name, TextId caption);
/// A note whose text changes, empty at first. What it says can be selected.
QLabel* changingNote(const QString& name, TextId accessibleName);
/// Changes what a note says, for a screen reader too. What alarms is bold.
void tell(QLabel& note, const QString& words, bool isAlarming);
/// A tab control without pages yet; only its row of tabs takes the focus.
QTabWidget* tabControl(const QString& name, TextId accessibleName);
/// Goes to the next page (1) or the one before (-1) that can be chosen, behind the last to the first.
void changePage(QTabWidget& tabs, int step);

} // namespace kelvane
