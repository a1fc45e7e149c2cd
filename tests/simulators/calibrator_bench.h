#pragma once

#include "simulators/common/link_calls.h"
#include "tests/simulators/programs.h"

#include <gtest/gtest.h>

#include <functional>

namespace kelvane::simulators {

/// A link library with a calibrator of its own, whose memory lies in a file of the given name.
template <class Library, class MemoryFile>
class CalibratorBench : public ::testing::Test {
  protected:
    using Memory = typename MemoryFile::Kept;

    explicit CalibratorBench(const QString& name) : name_(name), library_(environment()) {}

    QString file() const { return folder_.path(name_); }
    Environment environment(const QString& faults = {}) const { return {file(), faults, {}}; }

    Memory storedMemory() const {
        Memory kept;
        keep([&](Memory& memory) { kept = memory; });
        return kept;
    }
    void keep(const std::function<void(Memory&)>& change) const {
        MemoryFile(file()).use([&](Memory& memory) {
            const Memory before = memory;
            change(memory);
            return !(memory == before);
        });
    }

  private:
    QString name_;

  protected:
    SimulatorFolder folder_;
    Library library_;
};

/// Out values, filled with what no operation gives.
struct OutTexts {
    QByteArray first = QByteArray(40, ' ');
    QByteArray second = QByteArray(40, ' ');
    QByteArray third = QByteArray(40, ' ');
    qint32 numbers[3] = {-7, -7, -7};
};

} // namespace kelvane::simulators
