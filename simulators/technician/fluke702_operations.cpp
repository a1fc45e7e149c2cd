#include "simulators/fluke702/field_work.h"
#include "simulators/fluke702/listing.h"
#include "simulators/technician/task_operations.h"

namespace kelvane::simulators {

namespace fluke702 {

namespace {

QStringList carryOutWith(const GivenOptions& options, Memory& memory) {
    static constexpr TaskWork<Memory, Job> work{jobsOf, carryOut,
                                                [](Job& job, const QString& round, const QString& module) {
                                                    job.kind = kindOf(round);
                                                    job.module = module;
                                                }};
    return carryOutTasks(options, memory, work);
}

} // namespace

} // namespace fluke702

const CalibratorOperations& fluke702Operations() {
    static const CalibratorOperations operations{
        "Fluke 702",
        fluke702::memoryFormat(),
        taskOptions(),
        fluke702::planHelp,
        [](const QString& path) { return workOnMemory<fluke702::MemoryFile>(path, fluke702::listing); },
        [](const QString& path, const GivenOptions& options) {
            return workOnMemory<fluke702::MemoryFile>(
                path, [&](fluke702::Memory& memory) { return fluke702::carryOutWith(options, memory); });
        },
        [](const QString& path) {
            return workOnMemory<fluke702::MemoryFile>(path, eraseRuns<fluke702::Memory>);
        },
    };
    return operations;
}

} // namespace kelvane::simulators
