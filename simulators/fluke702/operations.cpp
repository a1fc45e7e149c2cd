#include "simulators/fluke702/operations.h"

#include <array>

namespace kelvane::simulators::fluke702 {

std::span<const char* const> operationNames() {
    static constexpr std::array operations = {
        "DPCopen",          "DPCclose",
        "DPCget70x",        "DPCdnlStart",
        "DPCdnlStep",       "DPCuplStart",
        "DPCuplStep",       "MEMclear",
        "MEMstrategyDefn",  "MEMpromptDefn",
        "MEMstartTask",     "MEMprompt",
        "MEMtemplate",      "MEMendTask",
        "STAinit",          "STAsetTempUnits",
        "STAsetTref",       "STAsetTempStd",
        "STAsetPresUnits",  "STAsetOutput",
        "STAsetInput",      "STAsetInputRange",
        "STAsetLoopPower",  "STAsetOutputScale",
        "STAsetInputScale", "STAsetTestTolerance",
        "STAsave",          "MEMstats",
        "MEMrDir",          "MEMasflInfo",
        "MEMbaseState",     "MEMtagidInfo",
        "MEMcalResult",     "MEMcalResultEntry",
        "STAgetPressure",
    };
    return operations;
}

} // namespace kelvane::simulators::fluke702
