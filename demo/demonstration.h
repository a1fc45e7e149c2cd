#pragma once

#include "demo/demo_workstation.h"

namespace kelvane::demo {

/// The files in which the calibrators keep what they hold.
struct CalibratorMemories {
    QString torqueStar;
    QString fluke702;
    QString fluke74x;
};

/// An instrument that is prepared from nothing, and calibrations from end to end with each calibrator: log
/// in, list instruments, name their standards, download, carry out, upload, and check the records. At the end
/// a day on paper.
class Demonstration {
  public:
    /// `folder` takes the pictures and the printed sheets.
    Demonstration(WorkstationProgram& program, const CalibratorMemories& memories, const QString& folder)
        : station_(program, folder + QStringLiteral("/pictures")), memories_(memories), folder_(folder) {}

    /// Throws `Difference` on the first deviation.
    void run();

  private:
    void start();
    void lookAtDataSources();
    void typeLogin(const QString& user, const QString& password);
    void logIn(const QString& user);
    void logOut();
    void exit();

    DemoWorkstation station_;
    CalibratorMemories memories_;
    QString folder_;
};

} // namespace kelvane::demo
