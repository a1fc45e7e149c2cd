#include "app/workstation_program.h"

namespace kelvane {

WorkstationProgram::WorkstationProgram(const Clock& clock, SettingsStore& settings,
                                       ConnectionFactory connections, const CalibratorLinks& links,
                                       Environment environment)
    : session({ui, clock, settings}, std::move(connections)),
      calibrators(session, links),
      reports(session, session.makeConnection),
      window(session, calibrators, reports, std::move(environment)) {
    ui.attach(session, window, window.area(), window.statusLine());
}

} // namespace kelvane
