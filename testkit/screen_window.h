#pragma once

#include "testkit/screen_controls.h"

#include <QMainWindow>
#include <QMdiArea>
#include <QPointer>

namespace kelvane::testing {

/// A main window that shows one screen at a time.
class ScreenWindow : public ScreenControls {
  public:
    ScreenWindow();

    QMdiArea& area() { return *area_; }
    bool isOpen() const { return screen_ && screen_->isOpen(); }
    void close() { screen_->close(); }

  protected:
    /// Takes the screen and shows it.
    void show(std::unique_ptr<ChildWindow> screen);
    ChildWindow& screen() final { return *screen_; }

  private:
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
