#pragma once

#include "app/menu.h"
#include "data/session.h"

namespace kelvane {

/// The entries that a login enables, whatever the user's level.
void enableMenuForLogin(Menu& menu);
/// The menu as log out leaves it.
void resetMenuForLogout(Menu& menu);
/// Shows the entries of paper worksheets, which no level has in its menu: printing, and entering results to
/// those who may upload.
void showWorksheetEntries(Menu& menu);

namespace ModuleGlobals {

/// Shows and hides the entries by `SessionLevel`; levels 1 to 5 are compared with the site's `procedit`.
/// Reported as "ModuleGlobals,SetMenuOptions".
void SetMenuOptions(Session& session, Menu& menu);

} // namespace ModuleGlobals
} // namespace kelvane
