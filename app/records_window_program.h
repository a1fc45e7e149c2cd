#pragma once

#include "app/window_place.h"
#include "platform/clock.h"
#include "records/records_window.h"
#include "ui/qt_user_interface.h"

namespace kelvane {

/// kelvane-records with its window, composed over the environment that it is given. Its connections refuse
/// whatever is no query. A `QApplication` has to be there first.
class RecordsWindowProgram {
  public:
    RecordsWindowProgram(const Clock& clock, SettingsStore& settings, const ConnectionFactory& connections);

    /// Reads the result template of the current folder, or of the workstation's folder of this user. Without
    /// one, result lines are shown as they are stored.
    void readTemplate();
    /// Shows the window, where it was left the last time, and the login.
    void start();
    /// Keeps where the window was left.
    void storeWindowPlace();

    // In the order in which they need each other.
    QtUserInterface ui;
    Session session;
    RecordsWindow window;

  private:
    /// Whatever part of the program has met the loss of its connection.
    void noteLoss();

    WindowPlace placeAtStart_;
};

/// Runs the program with its window for the words of its command line; gives the exit status.
int runRecordsWindow(int argc, char** argv);

} // namespace kelvane
