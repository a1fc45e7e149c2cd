#pragma once

#include "app/mdi_form_main.h"
#include "ui/qt_user_interface.h"
#include "worksheets/worksheet_report.h"

namespace kelvane {

/// The whole workstation, composed over the environment that it is given. A `QApplication` has to be there
/// first.
class WorkstationProgram {
  public:
    WorkstationProgram(const Clock& clock, SettingsStore& settings, ConnectionFactory connections,
                       const CalibratorLinks& links, Environment environment);

    /// Shows the main window and the login screen.
    void start() { window.load(); }

    // In the order in which they need each other.
    QtUserInterface ui;
    Session session;
    Calibrators calibrators;
    WorksheetReport reports;
    MDIFormMain window;

  private:
    /// Whatever part of the program has met the loss of its connection.
    void noteLoss();
};

} // namespace kelvane
