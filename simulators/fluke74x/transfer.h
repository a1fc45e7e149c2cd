#pragma once

#include "simulators/common/transfer.h"
#include "simulators/fluke74x/image.h"

namespace kelvane::simulators::fluke74x {

using Transfer = TransferOf<Image, MemoryFile, TransferCodes<Code>{NoAnswer, NotOpen, OutOfStep, NoRoom}>;

/// The three numbers that a workstation keeps for the library from step to step of a download: they begin at
/// 0, change with each step and have to come back as they went out.
class KeptNumbers {
  public:
    void begin() { expected_ = {}; }
    bool areThese(const References& numbers) const { return numbers == expected_; }
    /// Those for the next step.
    References next();

  private:
    References expected_;
};

/// The maps, which come over the line before a setup state can be read or written. They are kept until the
/// link is opened to another calibrator.
class MapFetch {
  public:
    void openLinkTo(const Identity& identity);
    void breakOff() { left_ = 0; }
    bool areThere() const { return fetched_; }

    void start(qint32& count);
    /// `count` has to be what the last call said.
    Code step(qint32& count);

  private:
    QString serial_;
    bool fetched_ = false;
    qint32 left_ = 0;
};

} // namespace kelvane::simulators::fluke74x
