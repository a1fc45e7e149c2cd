#pragma once

#include "simulators/fluke74x/library.h"
#include "tests/simulators/calibrator_bench.h"

namespace kelvane::simulators::fluke74x {

class Fluke74xBench : public CalibratorBench<Library, MemoryFile> {
  protected:
    Fluke74xBench() : CalibratorBench(QStringLiteral("fluke74x.json")) {}

    Library::Status open() { return library_.DPC3open(9600, "COM1", 1000, 5); }
    Library::Status identify(OutTexts& out);
    /// The link opened, the maps fetched, the link left open; the first status that is not 0.
    Library::Status fetchMaps();
    /// The maps fetched, the whole image moved, the link closed; the first status that is not 0.
    Library::Status download();
    Library::Status upload();

    /// Begins a task; its references are kept for the calls below.
    void startTask(const char* tag = "PT-103");
    Library::Status definePrompt(const char* key, const char* text = "x");
    /// Places the prompt that was defined last.
    Library::Status placePrompt();
    /// Its id; 0 when it is refused.
    qint32 defineStrategy(const char* name = "LINEARITY",
                          const std::vector<float>& points = {0.0F, 0.5F, 1.0F});
    /// A state that sources volts and measures milliamperes.
    References saveState(const char* errorWord = "Normal");
    Library::Status placeTemplate(qint32 strategyId, const References& state, const char* tag = "PT-103",
                                  const char* serial = "V88103");
    /// A whole task without prompts.
    void defineTask(const char* tag, const char* serial = "V88103");

    /// A calibrator that holds two tasks, the first carried out twice.
    void fillCalibrator() const;
    /// The bucket of the current state; its type is -1 when it is not there.
    qint16 typeOfBucket(const char* name);
    float floatBucket(const char* name);
    QString textBucket(const char* name);

    qint32 task_ = 0;
    qint32 atom_ = 0;
    References prompt_;
};

/// The state of a task that sources a pressure and measures a current.
State pressureToCurrent();

} // namespace kelvane::simulators::fluke74x
