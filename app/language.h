#pragma once

#include "platform/settings_store.h"

#include <QStringList>

class QCoreApplication;

namespace kelvane {

/// Shows the texts in the language that the settings name (section "Texts", key "Language", as "de"). Where
/// they name none, in the first of the desktop's languages (as "de-AT") that has texts; in English when none
/// has. Returns why the setting is not followed, for the log; an empty text otherwise.
QString chooseLanguage(const SettingsStore& settings, const QStringList& desktopLanguages);

/// Gives what the toolkit itself shows (the choice of a file, the keys in a menu) the language of the texts,
/// where its translation is installed.
void translateToolkit(QCoreApplication& application);

} // namespace kelvane
