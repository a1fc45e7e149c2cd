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
/// in, list instruments, name their standards, download, carry out, upload, and check the records.
class Demonstration {
  public:
    Demonstration(WorkstationProgram& program, const CalibratorMemories& memories, const QString& pictures)
        : station_(program, pictures), memories_(memories) {}

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
};

} // namespace kelvane::demo
