#pragma once

#include "data/session.h"

namespace kelvane::ModuleGlobals {

/// Writes a calibration record of the asset from `CalFieldTable`, `RecordStandards` and `RecordResults`,
/// asking the operator for what is missing. Empty when the record was made (or after a reported error),
/// otherwise the reason.
QString CreateCalRecord(Session& session, const QString& asset);

/// Asks for the field in row `index` of `CalFieldTable`; true when the operator gave a value.
bool PromptUser(Session& session, qint16 index, const QString& asset);

} // namespace kelvane::ModuleGlobals
