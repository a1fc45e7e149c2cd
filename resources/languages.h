#pragma once

#include <QStringList>

namespace kelvane {

/// The language of the program's own table, in which it is written.
inline constexpr QStringView ownLanguage = u"en";

/// The languages that have a table of texts, by their codes, as "de" and "en"; sorted.
QStringList languages();

/// The language that the texts are shown in.
QString shownLanguage();

/// Shows all texts in that language from now on; what lay over them (`overlayStrings`) does so no longer.
/// False when it has no table: then nothing changes.
bool showLanguage(const QString& language);

} // namespace kelvane
