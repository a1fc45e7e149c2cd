#pragma once

#include "data/session.h"

namespace kelvane {

/// How many characters a result line has before any is replaced by a longer or shorter text.
inline constexpr int resultLineLength = 120;

namespace ModuleGlobals {

/// One test point laid out in the columns of the result template, 120 characters when nothing is substituted.
/// The padding of the fields changes the caller's texts in place.
QString ResultLine(Session& session, QString& number, QString& nominal, QString& applied, QString& reading,
                   QString& tolerance, QString& deviation, QString& percent, QString& units, QString& comment,
                   QString& lowLimit, QString& highLimit, QString& verdict);

/// The last substitution of the template that fits the prepared value of a field, by the field's code; null
/// when none does.
const SubstRow* substitutionOf(const Session& session, QStringView code, const QString& value);

} // namespace ModuleGlobals
} // namespace kelvane
