#pragma once

#include "testkit/screen_operator.h"
#include "ui/child_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>

namespace kelvane::testing {

/// What every test does with a screen. Each control is used by real mouse and key events.
class ScreenControls {
  public:
    virtual ~ScreenControls() = default;

    template <class Control>
    Control& controlNamed(const QString& name) {
        return control<Control>(screen(), name);
    }
    QPushButton& button(const QString& name) { return controlNamed<QPushButton>(name); }
    void press(const QString& name) { click(button(name)); }
    /// Chooses a row out of the list that drops down, with the mouse and the keyboard.
    static void choose(QComboBox& list, const QString& row);
    /// Ticks a box, or takes the tick away, with the keyboard.
    static void toggle(QCheckBox& box);
    /// Selects a row with the mouse: by its number, or by its text, which only one row may have.
    static void select(QListWidget& list, int row) { select(list, list.item(row)); }
    static void select(QListWidget& list, const QString& row) { select(list, rowOf(list, row)); }
    static void doubleClick(QListWidget& list, int row) { doubleClick(list, list.item(row)); }
    static void doubleClick(QListWidget& list, const QString& row) { doubleClick(list, rowOf(list, row)); }
    /// All rows of a list that drops down.
    static QStringList choicesOf(const QComboBox& list);
    /// Those of the controls that can be used.
    QStringList enabledOf(const QStringList& names);

  protected:
    virtual ChildWindow& screen() = 0;

  private:
    static QListWidgetItem* rowOf(const QListWidget& list, const QString& row);
    static void select(QListWidget& list, QListWidgetItem* row);
    static void doubleClick(QListWidget& list, QListWidgetItem* row);
};

} // namespace kelvane::testing
