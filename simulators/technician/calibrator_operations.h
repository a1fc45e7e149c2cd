#pragma once

#include "platform/program_options.h"

namespace kelvane::simulators {

/// What the technician can do with one kind of calibrator. Each gives lines to print, and throws `Failure`.
struct CalibratorOperations {
    const char* calibrator;
    QString memoryFormat;         ///< the mark of its memory's file
    QList<ProgramOption> options; ///< those that not every calibrator takes
    QString (*planHelp)();
    QStringList (*list)(const QString& memory);
    QStringList (*carryOut)(const QString& memory, const GivenOptions& options);
    QStringList (*erase)(const QString& memory);
};

/// Does the work on the memory of that file, and keeps what it changed.
template <class File, class Work>
QStringList workOnMemory(const QString& path, const Work& work) {
    QStringList lines;
    File(path).use([&](auto& memory) {
        const auto before = memory;
        lines = work(memory);
        return !(memory == before);
    });
    return lines;
}

const CalibratorOperations& torqueStarOperations();
const CalibratorOperations& fluke702Operations();
const CalibratorOperations& fluke74xOperations();

} // namespace kelvane::simulators
