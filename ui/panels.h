#pragma once

#include <QString>

class QGroupBox;
class QLabel;
class QTabWidget;

namespace kelvane {

/// A panel: a frame around the controls of one subject, with its caption by id.
QGroupBox* panel(const QString& name, int caption);
/// A fixed note, which wraps at the width that it gets.
QLabel* note(const QString& name, int caption);
/// A tab control without pages yet; only its row of tabs takes the focus.
QTabWidget* tabControl(const QString& name, int accessibleName);

} // namespace kelvane
