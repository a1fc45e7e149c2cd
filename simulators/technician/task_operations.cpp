#include "simulators/technician/task_operations.h"

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

QList<ProgramOption> taskOptions() {
    return {
        {u"round"_s, u"ROUND"_s, u"Fluke: as-found or as-left. Default: as-found."_s},
        {u"technician"_s, u"NAME"_s, u"Fluke: who does the work. Default: the calibrator's serial number."_s},
        {u"module"_s, u"SERIAL"_s,
         u"Fluke: the serial number of the pressure module; of a 743 or 744 SOURCE/MEASURE, too."_s},
        {u"shown"_s, u"PERCENT,..."_s,
         u"Fluke: the error that the calibrator itself shows, in percent of span: one for all or one for "
         "each point. Default: the deviation."_s},
    };
}

} // namespace kelvane::simulators
