#pragma once

#include "simulators/fluke702/image.h"

#include <optional>

namespace kelvane::simulators::fluke702 {

/// The link to the calibrator, and the transfers over it: one step for the definitions, one for each task
/// and, for an upload, one for each run. A download's first step erases the calibrator, its last one makes
/// all that came valid: broken off in between, it leaves the calibrator empty. An upload that breaks off
/// leaves in the image what has come. A memory that can't be read or written throws `Failure`.
class Transfer {
  public:
    explicit Transfer(Image& image) : image_(image) {}

    Code open(const QString& memory);
    /// Breaks a transfer off.
    void close();
    Code identify(Identity& identity) const;

    /// `count` is the number of steps to come, and has to be what the last call said.
    Code startDownload(qint32& count);
    Code stepDownload(qint32& count);
    Code startUpload(qint32& count);
    Code stepUpload(qint32& count);

  private:
    enum class Way { None, Down, Up };

    Memory read();
    void write(const Contents& contents);
    void start(Way way, qint32 steps, qint32& count);
    Code checkStep(Way way, qint32 count) const;
    void countStep(qint32& count);

    Image& image_;
    std::optional<MemoryFile> file_;
    Identity identity_;
    Way way_ = Way::None;
    qint32 steps_ = 0;
    qint32 left_ = 0;
    Contents moved_;
};

} // namespace kelvane::simulators::fluke702
