#pragma once

class QListWidget;
class QTabWidget;
class QWidget;

namespace kelvane {

/// Brings up a field and gives it the focus. A field out of reach, whose sub-tabs the units do not call for,
/// is put within reach.
void goTo(QWidget& field);
/// Turns the sub-tabs around a field to its page; those of the screen itself stay as they are.
void showSubPage(QWidget& field, const QTabWidget& pages);
/// Goes to the first message whose name would end its own quotes; false without one.
bool focusMessageList(QListWidget& list);

} // namespace kelvane
