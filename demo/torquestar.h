#pragma once

#include <QProcess>
#include <QString>

namespace kelvane::demo {

/// The simulated torque calibrator, a program that stands beside this one.
class TorqueStar {
  public:
    /// Starts the calibrator with an empty memory in `folder`; its serial line is the device `folder`/COM1.
    /// Throws `Difference` when it does not start.
    explicit TorqueStar(const QString& folder);
    ~TorqueStar();
    TorqueStar(const TorqueStar&) = delete;
    TorqueStar& operator=(const TorqueStar&) = delete;

    QString device() const;
    /// The file of its memory.
    QString memory() const;

  private:
    QString folder_;
    QProcess process_;
};

} // namespace kelvane::demo
