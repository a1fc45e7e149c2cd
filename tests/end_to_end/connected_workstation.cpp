#include "tests/end_to_end/connected_workstation.h"

#include "app/login.h"
#include "data/start_up.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

ConnectedWorkstation::ConnectedWorkstation(UserInterface& ui, const Clock& clock, const QString& source,
                                           const QString& device, ConnectionFactory connections)
    : session({ui, clock, settings}, std::move(connections)), line(settings) {
    settings.setValue(u"Workstation"_s, u"ODBC"_s, source);
    settings.setValue(u"Ports"_s, u"COM1"_s, device);
}

void ConnectedWorkstation::start() {
    ModuleGlobals::StartupFunctions(session, {});
    logIn();
}

void ConnectedWorkstation::logIn() {
    Menu menu;
    kelvane::logIn(session, menu, u"jdoe"_s, u"kelvane"_s);
}

} // namespace kelvane::testing
