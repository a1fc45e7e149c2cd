#pragma once

#include "data/session.h"

#include <functional>

namespace kelvane::ModuleGlobals {

/// Writes a calibration record of the asset from `CalFieldTable`, `RecordStandards` and `RecordResults`,
/// asking the operator for what is missing. Empty when the record was made (or after a reported error),
/// otherwise the reason. After an error while it is being prepared nothing is written. `beforeInsert` runs
/// before the first statement that writes, when date and time are settled in `CalFieldTable`; what it
/// throws is reported like any error, and then nothing is written.
QString CreateCalRecord(Session& session, const QString& asset,
                        const std::function<void()>& beforeInsert = {});

/// Asks for the field in row `index` of `CalFieldTable`; true when the operator gave a value.
bool PromptUser(Session& session, qint16 index, const QString& asset);

} // namespace kelvane::ModuleGlobals
