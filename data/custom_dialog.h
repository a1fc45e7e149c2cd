#pragma once

#include "data/session.h"

#include <QStringList>

namespace kelvane::ModuleGlobals {

/// How many choices the dialog offers at most.
inline constexpr qsizetype maxChoices = 2500;

/// The one-field dialog that the whole system uses. `mode` 1 offers `choices` before their first empty one
/// (more than `maxChoices` are error 9), any other a text box of at most `max_length` characters (0: no
/// limit); `field_type` 0 free, 1 date, 2 number, 3 time; `default_text` is the starting text or the
/// beginning that selects a row. Returns the trimmed entry, or "*CANCEL*", which a required answer of blanks
/// is, too.
QString CustomDialog(Session& session, const QString& caption, const QString& prompt, bool required,
                     qint16 mode, qint16 max_length, qint16 field_type, const QString& default_text,
                     const QStringList& choices = {});

} // namespace kelvane::ModuleGlobals
