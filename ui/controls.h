#pragma once

#include "resources/strings.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QStringList>

#include <optional>

namespace kelvane {

/// Sets a control's name, its accessible name, and its tool-tip, if it has one.
template <class Control>
Control* nameControl(Control* control, const QString& name, const QString& accessibleName,
                     std::optional<TextId> toolTip = {}) {
    control->setObjectName(name);
    control->setAccessibleName(accessibleName);
    if (toolTip)
        control->setToolTip(text(*toolTip));
    return control;
}

/// A label with its caption.
QLabel* label(const QString& name, TextId caption);
/// A label that stands for the control beside it.
QLabel* labelFor(QWidget* control, const QString& name, TextId caption);
/// A push button with its caption and tool-tip; with a picture, where the caption has one.
QPushButton* button(const QString& name, TextId caption, TextId toolTip);
/// A drop-down list with its rows, the first one selected.
QComboBox* dropDown(const QString& name, const QString& accessibleName, std::optional<TextId> toolTip,
                    const QStringList& rows = {});
/// Lets the drop-down keep its width whatever its rows are: a long row makes the list that drops down wider,
/// not the window.
void keepWidth(QComboBox* list);
/// The order in which Tab goes through the controls.
void setTabOrder(std::initializer_list<QWidget*> controls);

} // namespace kelvane
