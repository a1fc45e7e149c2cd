#include "app/workstation_program.h"

#include "platform/database/watched_connection.h"

namespace kelvane {

WorkstationProgram::WorkstationProgram(const Clock& clock, SettingsStore& settings,
                                       ConnectionFactory connections, const CalibratorLinks& links,
                                       Environment environment)
    : session({ui, clock, settings}, watchedConnections(connections, [this] { noteLoss(); })),
      calibrators(session, links),
      // Whatever has cut a report's own connection: the session's one has to be made anew, too.
      reports(session, watchedConnections(std::move(connections),
                                          [this] {
                                              closeConnection(session);
                                              noteLoss();
                                          })),
      window(session, calibrators, reports, std::move(environment)) {
    ui.attach(session, window, window.area(), window.statusLine());
}

void WorkstationProgram::noteLoss() {
    session.SessionConnected = false;
    ui.showSessionState();
}

} // namespace kelvane
