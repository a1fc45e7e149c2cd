#pragma once

#include "simulators/common/failure.h"
#include "simulators/common/kept_file.h"

#include <functional>

namespace kelvane::simulators {

/// A calibrator's memory in its file, shared by the calibrator and the technician. No file is an empty
/// memory; a damaged one throws `Failure` and stays as it is. `memoryFrom` makes the memory of the file's
/// text, `textOf` the text of the memory.
template <class Memory, Memory (*memoryFrom)(const QByteArray&)>
class MemoryFileOf {
  public:
    using Kept = Memory;

    explicit MemoryFileOf(const QString& path) : file_(path) {}

    /// Runs `work` on the memory under its lock. The file is read again when another process else has changed
    /// it since, and written as a whole, in one step, when `work` returns true.
    void use(const std::function<bool(Memory&)>& work) {
        file_.hold([&] {
            if (file_.hasChanged() || !good_)
                read();
            if (work(memory_))
                file_.replace(textOf(memory_));
        });
    }

  private:
    void read() {
        good_ = false;
        const std::optional<QByteArray> text = file_.read();
        try {
            memory_ = text ? memoryFrom(*text) : Memory{};
        } catch (const Failure& failure) {
            throw Failure(QStringLiteral("%1 is not a calibrator's memory, or is damaged: %2")
                              .arg(file_.path(), failure.text()));
        }
        good_ = true;
    }

    KeptFile file_;
    Memory memory_;
    bool good_ = false;
};

} // namespace kelvane::simulators
