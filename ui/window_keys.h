#pragma once

class QMainWindow;
class QPushButton;
class QWidget;

namespace kelvane {

class UserInterface;

/// Lets F10 open the first menu that can be chosen, wherever the keyboard is in the window.
void bindMenuKey(QMainWindow& window, UserInterface& ui);

/// The button of a window that a key clicks because it has the focus: with Return or Enter. Null without one.
QPushButton* buttonOfReturn(const QWidget& window, int key);

} // namespace kelvane
