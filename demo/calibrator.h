#pragma once

#include <QProcess>
#include <QString>

namespace kelvane::demo {

/// The simulated torque calibrator and the technician in the plant, two programs that stand beside this one.
class Calibrator {
  public:
    /// Starts the calibrator with an empty memory in `folder`; its serial line is the device `folder`/COM1.
    /// Throws `Difference` when it does not start.
    explicit Calibrator(const QString& folder);
    ~Calibrator();
    Calibrator(const Calibrator&) = delete;
    Calibrator& operator=(const Calibrator&) = delete;

    QString device() const;
    /// Carries out what lies in the memory, by the lines of a plan.
    void carryOut(const QByteArray& plan) const;

  private:
    QString memory() const;
    QString folder_;
    QProcess process_;
};

} // namespace kelvane::demo
