#pragma once

#include "data/session.h"

namespace kelvane::ModuleGlobals {

/// Fills the session values that depend on the command line and the result template: `CommandLineFlag`,
/// `WinDir`, `SubstTable`, `ResultTemplateLine` (which is not cleared first). Called at the start and again
/// by log out. The template is "rslt_db.frm" in the current directory, or what `rslt_template` of metcal.ini
/// in `WinDir` names; both are read as UTF-8, a line that is not UTF-8 as Windows-1252.
void StartupFunctions(Session& session, const QString& commandLine);

/// Reads the result template as `StartupFunctions` does, without its warnings. False when none is there or it
/// can't be read, which is reported; lines can't be read back then.
bool readResultTemplate(Session& session);

/// The template that `StartupFunctions` takes now; empty when none is named. It need not exist.
QString resultTemplatePath(const Session& session);

} // namespace kelvane::ModuleGlobals
