#pragma once

#include "simulators/torquestar/memory.h"

#include <functional>
#include <tuple>

namespace kelvane::simulators {

/// The calibrator's memory in its file, shared by the calibrator and the technician. No file is an empty
/// memory; a damaged one throws `Failure` and stays as it is.
class MemoryFile {
  public:
    explicit MemoryFile(QString path);

    /// Runs `work` on the memory while nobody else reads or writes it. The file is read again when somebody
    /// else has changed it since, and written as a whole, in one step, when `work` returns true.
    void use(const std::function<bool(Memory&)>& work);

  private:
    /// Device, inode, size and moment: what tells one version of the file from another.
    using Version = std::tuple<quint64, quint64, qint64, qint64, qint64>;

    Version version() const;
    void readWhenChanged();
    void write();

    QString path_;
    Version read_{};
    bool everRead_ = false;
    Memory memory_;
};

} // namespace kelvane::simulators
