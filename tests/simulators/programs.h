#pragma once

#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

namespace kelvane::simulators {

/// A folder of its own, and the programs in it.
class SimulatorFolder {
  public:
    QString path(const QString& name) const { return folder_.filePath(name); }
    QString memory() const { return path(QStringLiteral("memory.json")); }
    QString link() const { return path(QStringLiteral("torquestar")); }
    QString record() const { return path(QStringLiteral("record")); }
    QByteArray contentOf(const QString& name) const;
    void put(const QString& name, const QByteArray& content) const;

  private:
    QTemporaryDir folder_;
};

/// What a finished program left behind.
struct Outcome {
    int code = -1;
    QString output;
    QString errors;
};

std::unique_ptr<QProcess> startProgram(const QString& program, const QStringList& arguments);
/// Waits for the end; a code of -1 when it did not come.
Outcome outcomeOf(QProcess& process);
Outcome runProgram(const QString& program, const QStringList& arguments);

/// A running calibrator, serial number 48213, answering without pace unless set otherwise.
class Calibrator {
  public:
    explicit Calibrator(const SimulatorFolder& simulatorFolder,
                        const QStringList& more = {QStringLiteral("--no-pace")});
    /// With faults and without pace.
    static QStringList faulty(const QStringList& faults);

    QString device() const { return device_; }
    QProcess& process() { return *process_; }
    ~Calibrator();
    Q_DISABLE_COPY_MOVE(Calibrator)

  private:
    std::unique_ptr<QProcess> process_;
    QString device_;
};

} // namespace kelvane::simulators
