#pragma once

#include "platform/workstation.h"

namespace kelvane::ModuleGlobals {

/// The one report of an unexpected error: sets the normal pointer, appends four lines to "errors.log" in the
/// current directory and shows a stop message. `routine` has the form "ModuleGlobals,calcDueDate"; `sql` is
/// the statement that was running, or empty. When the log can't be written it throws error 75 and no message
/// appears.
void ReportInternalError(const Workstation& workstation, double number, const QString& description,
                         const QString& routine, const QString& sql);

/// The stored setting, or an empty text.
QString GetRegSetting(const Workstation& workstation, const QString& section, const QString& key);
/// Stores a setting.
void SaveRegSetting(const Workstation& workstation, const QString& section, const QString& key,
                    const QString& value);

} // namespace kelvane::ModuleGlobals
