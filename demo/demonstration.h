#pragma once

#include "app/workstation_program.h"
#include "demo/calibrator.h"
#include "demo/person.h"

#include <QDate>

namespace kelvane::demo {

/// A calibration from end to end: log in, list instruments, name their standards, download, carry out,
/// upload, and look at the records.
class Demonstration {
  public:
    Demonstration(WorkstationProgram& program, Calibrator& calibrator, const QString& pictures);

    /// Throws `Difference` as soon as something is not as it has to be.
    void run();

  private:
    void logIn();
    void lookAtDataSources();
    void configureCalibrator();
    void listInstruments();
    void download();
    void carryOut();
    void upload();
    void logOut();

    QWidget& child(const QString& name);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void add(const QString& entry);

    WorkstationProgram& program_;
    Calibrator& calibrator_;
    Person person_;
    /// The day on which the technician was in the plant.
    QDate workDay_;
};

} // namespace kelvane::demo
