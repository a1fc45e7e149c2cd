#pragma once

#include "testkit/difference.h"

#include <QWidget>

class QComboBox;

namespace kelvane {

class FormCustomDialog;

namespace demo {

// What a user does with controls, by real key and mouse events. All throw `Difference` when it can't be done.

/// The names of the controls below `parent`.
QString namesBelow(const QWidget& parent);
[[noreturn]] void controlNotFound(const QWidget& parent, const QString& name);

/// The control of that name below `parent`; the error lists the names that exist.
template <class Control>
Control& control(const QWidget& parent, const QString& name) {
    if (auto* found = parent.findChild<Control*>(name))
        return *found;
    controlNotFound(parent, name);
}

/// Chooses a row of a list with the keyboard.
void pick(QComboBox& list, const QString& row);

/// A click in the middle of a control, which has to be visible.
void click(QWidget& widget);

/// Answers the one-field dialog: types `entry`, or chooses it from the list, and presses Return.
void answerDialog(FormCustomDialog& dialog, const QString& entry);

} // namespace demo
} // namespace kelvane
