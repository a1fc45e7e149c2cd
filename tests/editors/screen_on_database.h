#pragma once

#include "tests/support/database_session.h"
#include "tests/support/screen_operator.h"
#include "ui/child_window.h"

#include <QMainWindow>
#include <QMdiArea>

namespace kelvane::testing {

/// A screen in a window of its own, over a copy of the demonstration database. Boxes and dialogs are answered
/// by the scripted operator.
class ScreenOnDatabase : public DatabaseSession {
  protected:
    ScreenOnDatabase();
    /// Takes the screen and shows it.
    void show(ChildWindow* screen);
    ChildWindow& form() { return *form_; }
    QMdiArea& area() { return *area_; }
    /// Presses a button of the screen.
    void click(const QString& button);

  private:
    QMainWindow window_;
    QMdiArea* area_;
    ChildWindow* form_ = nullptr;
};

} // namespace kelvane::testing
