#include "simulators/fluke74x/operations.h"

#include <array>

namespace kelvane::simulators::fluke74x {

std::span<const char* const> operationNames() {
    static constexpr std::array operations = {
        "DPC3open",
        "DPC3close",
        "DPC3get74X",
        "DPC3mapStart",
        "DPC3mapStep",
        "DPC3dnlStart",
        "DPC3dnlStep",
        "DPC3uplStart",
        "DPC3uplStep",
        "MEM3clear",
        "MEM3startTask",
        "MEM3promptDefn",
        "MEM3promptTemplate",
        "MEM3findStrategyDefn",
        "MEM3strategyDefn",
        "MEM3instrCalTemplate",
        "MEM3endTask",
        "STA3beginOps",
        "STA3initOp",
        "STA3setMappedOp",
        "STA3setUnitOp",
        "STA3setFloatOp",
        "STA3setIntOp",
        "STA3evalOp",
        "STA3saveOps",
        "STA3freeOps",
        "MEM3ngroups",
        "MEM3natoms",
        "MEM3groupDir",
        "MEM3atomDir",
        "MEM3taskResultRefInfo",
        "MEM3instrTagInfo",
        "MEM3instrCalResultInfo",
        "MEM3instrCalResultStepInfo",
        "STA3restore",
        "STA3getBktListInfo",
        "STA3getBktName",
        "STA3getType",
        "STA3getFloat",
        "STA3getStr",
        "STA3getRange",
        "STA3getUnit",
        "STA3getInt",
        "STA3getTime",
        "STA3getMapped",
    };
    return operations;
}

} // namespace kelvane::simulators::fluke74x
