#include "app/menu_options.h"

#include "data/routine.h"
#include "data/session_values.h"

using namespace Qt::StringLiterals;

namespace kelvane {

using enum MenuEntry;

void enableMenuForLogin(Menu& menu) {
    menu.enable({mnuDownload, mnuUpload, mnuPrint, mnuEnter, mnuConfiguration, mnuStrategies,
                 mnuCalParameters, mnuPrompts, mnuLogout});
}

void resetMenuForLogout(Menu& menu) {
    menu.disable({mnuLogout, mnuDownload, mnuUpload, mnuPrint, mnuEnter, mnuConfiguration, mnuStrategies,
                  mnuCalParameters, mnuPrompts});
    menu.hide({mnuPrint, mnuEnter, mnuGlobal, mnuStrategies, mnuCalParameters, mnuPrompts, mnuCalibration,
               mnuConfiguration});
}

void showWorksheetEntries(Menu& menu) {
    menu.show({mnuPrint});
    if (menu.isShown(mnuUpload))
        menu.show({mnuEnter});
}

namespace {

constexpr qint16 recordsOnly = 6; // the level of the database owner, who configures records
constexpr qint16 sendingOnly = 0;

void setByLevel(Routine& routine, Menu& menu, qint16 level) {
    menu.hide({mnuPrint, mnuEnter, mnuGlobal});
    if (level != recordsOnly)
        menu.show({mnuCalibration, mnuDownload, mnuConfiguration, mnuUpload});
    if (level == recordsOnly) {
        menu.show({mnuGlobal, mnuWorkEntry});
        menu.enable({mnuGlobal, mnuWorkEntry});
        menu.hide({mnuStrategies, mnuCalParameters, mnuPrompts, mnuPredefined});
    }
    if (level == sendingOnly)
        menu.hide({mnuUpload, mnuEnter, mnuStrategies, mnuCalParameters, mnuPrompts, mnuPredefined});
    if (level >= 1 && level <= 5) {
        if (mayEditProcedures(routine, level)) {
            menu.show({mnuGlobal, mnuPredefined});
            menu.enable({mnuGlobal, mnuPredefined});
            menu.hide({mnuWorkEntry});
            menu.disable({mnuWorkEntry});
            menu.show({mnuStrategies, mnuCalParameters, mnuPrompts});
        } else {
            menu.hide({mnuStrategies, mnuCalParameters, mnuPrompts});
        }
    }
}

} // namespace

void ModuleGlobals::SetMenuOptions(Session& session, Menu& menu) {
    Routine routine(session, u"ModuleGlobals,SetMenuOptions"_s);
    routine.run([&] { setByLevel(routine, menu, session.SessionLevel); });
}

} // namespace kelvane
