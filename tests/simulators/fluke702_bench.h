#pragma once

#include "simulators/fluke702/library.h"
#include "tests/simulators/calibrator_bench.h"

namespace kelvane::simulators::fluke702 {

class Fluke702Bench : public CalibratorBench<Library, MemoryFile> {
  protected:
    Fluke702Bench() : CalibratorBench(QStringLiteral("fluke702.json")) {}

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

    /// A calibrator that holds two tasks, the first carried out twice.
    void fillCalibrator() const;

  private:
    Library::Status transfer(Library::Status (Library::*start)(qint32*),
                             Library::Status (Library::*step)(qint32*));
};

} // namespace kelvane::simulators::fluke702
