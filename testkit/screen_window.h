#pragma once

#include "testkit/screen_operator.h"
#include "ui/child_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QMainWindow>
#include <QMdiArea>
#include <QPointer>
#include <QPushButton>

namespace kelvane::testing {

/// A main window that shows one screen at a time, and what every test does with a screen. Each control is
/// used by real mouse and key events.
class ScreenWindow {
  public:
    ScreenWindow();

    QMdiArea& area() { return *area_; }
    bool isOpen() const { return screen_ && screen_->isOpen(); }
    void close() { screen_->close(); }

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
    /// Those of the controls that can be used.
    QStringList enabledOf(const QStringList& names);

  protected:
    /// Takes the screen and shows it.
    void show(std::unique_ptr<ChildWindow> screen);
    ChildWindow& screen() { return *screen_; }

  private:
    static QListWidgetItem* rowOf(const QListWidget& list, const QString& row);
    static void select(QListWidget& list, QListWidgetItem* row);
    static void doubleClick(QListWidget& list, QListWidgetItem* row);

    QMainWindow window_;
    QMdiArea* area_;
    QPointer<ChildWindow> screen_;
};

/// A screen of its own class in such a window.
template <class Form>
class EditorScreen : public ScreenWindow {
  public:
    template <class... Arguments>
    void open(Arguments&&... arguments) {
        show(std::make_unique<Form>(std::forward<Arguments>(arguments)...));
    }
    Form& form() { return static_cast<Form&>(screen()); }
};

} // namespace kelvane::testing
