#pragma once

#include "testkit/program_fixture.h"
#include "testkit/screen_controls.h"

namespace kelvane::testing {

/// One screen of the workstation, which an entry of the menu opens; without one the workstation does.
class ProgramScreen : public ProgramTest, public ScreenControls {
  protected:
    /// The name of the screen's window, and of the entry.
    explicit ProgramScreen(const QString& name, const QString& entry = {}) : name_(name), entry_(entry) {}

    /// Opens the screen; its statements up to then are forgotten.
    void open() {
        choose(entry_);
        script.statements.clear();
    }
    ChildWindow& form() { return screen(); }
    bool isOpen() { return findChild(name_) != nullptr; }

    using ProgramTest::choose;
    using ScreenControls::choose;

  private:
    ChildWindow& screen() final { return child(name_); }

    QString name_;
    QString entry_;
};

} // namespace kelvane::testing
