#include "simulators/fluke74x/field_work.h"
#include "simulators/fluke74x/listing.h"
#include "simulators/technician/task_operations.h"

namespace kelvane::simulators {

namespace fluke74x {

namespace {

QStringList carryOutWith(const GivenOptions& options, Memory& memory) {
    static constexpr TaskWork<Memory, Job> work{jobsOf, carryOut,
                                                [](Job& job, const QString& round, const QString& module) {
                                                    job.asLeft = isAsLeft(round);
                                                    job.modules = modulesOf(module);
                                                }};
    return carryOutTasks(options, memory, work);
}

} // namespace

} // namespace fluke74x

const CalibratorOperations& fluke74xOperations() {
    static const CalibratorOperations operations{
        "Fluke 743 or 744",
        fluke74x::memoryFormat(),
        taskOptions(),
        fluke74x::planHelp,
        [](const QString& path) { return workOnMemory<fluke74x::MemoryFile>(path, fluke74x::listing); },
        [](const QString& path, const GivenOptions& options) {
            return workOnMemory<fluke74x::MemoryFile>(
                path, [&](fluke74x::Memory& memory) { return fluke74x::carryOutWith(options, memory); });
        },
        [](const QString& path) {
            return workOnMemory<fluke74x::MemoryFile>(path, eraseRuns<fluke74x::Memory>);
        },
    };
    return operations;
}

} // namespace kelvane::simulators
