#pragma once

#include "simulators/fluke702/library.h"
#include "tests/simulators/programs.h"

#include <gtest/gtest.h>

namespace kelvane::simulators::fluke702 {

/// A link library with a calibrator of its own.
class Fluke702Bench : public ::testing::Test {
  protected:
    QString file() const { return folder_.path(QStringLiteral("fluke702.json")); }
    Environment environment(const QString& faults = {}) const { return {file(), faults, {}}; }

    /// A state that sources volts and measures milliamperes; its id.
    qint32 saveState();
    /// Sets modes and sensors and saves; the first status that is not 0.
    Library::Status tryState(const char* source, const char* sourceSensor, const char* measure,
                             const char* measureSensor);
    /// Its id; 0 when it is refused.
    qint32 defineStrategy(const std::vector<float>& points = {0.0F, 0.5F, 1.0F});
    /// A whole task without prompts.
    void defineTask(const char* tag, const char* serial = "V88103", qint16 byHand = 0);

    /// The link opened, the whole image moved, the link closed; the first status that is not 0.
    Library::Status download();
    Library::Status upload();

    Memory storedMemory() const;
    void keep(const std::function<void(Memory&)>& change) const;
    /// A calibrator that holds two tasks, the first carried out twice.
    void fillCalibrator() const;

    SimulatorFolder folder_;
    Library library_{environment()};

  private:
    Library::Status transfer(Library::Status (Library::*start)(qint32*),
                             Library::Status (Library::*step)(qint32*));
};

/// Out values, filled with what no operation gives.
struct OutTexts {
    QByteArray first = QByteArray(40, ' ');
    QByteArray second = QByteArray(40, ' ');
    QByteArray third = QByteArray(40, ' ');
    qint32 numbers[3] = {-7, -7, -7};
};

} // namespace kelvane::simulators::fluke702
