#pragma once

#include "simulators/torquestar/pace.h"

#include <QByteArray>
#include <QString>

namespace kelvane::simulators {

/// The calibrator's end of a pseudo terminal, and the link that gives the workstation's end a name that
/// stays.
class Terminal {
  public:
    /// An existing link at `link` is replaced, anything else there is left alone. Without a path there is no
    /// link. Throws `Failure`.
    explicit Terminal(const QString& link);
    ~Terminal();
    Q_DISABLE_COPY_MOVE(Terminal)

    QString device() const { return device_; }
    /// Waits until the workstation has sent something, until the moment, or until a signal of the end.
    void wait(std::optional<Moment> until) const;
    /// All that has come; empty when nothing has.
    QByteArray read() const;
    /// What does not fit because it is not read is lost, as on a line.
    void write(const QByteArray& bytes) const;

  private:
    void makeLink();

    int ours_ = -1;
    int theirs_ = -1;
    QString device_;
    QString link_;
};

/// From now on the signals that end a program only come through while `Terminal::wait` waits.
void blockEndSignals();
/// True once such a signal came.
bool isEndRequested();

} // namespace kelvane::simulators
