#pragma once

#include "data/session.h"

#include <functional>

namespace kelvane::ModuleGlobals {

/// What a caller has to say on the way to a record.
struct RecordConsent {
    /// Asked before the operator is asked for anything: false gives the record up.
    std::function<bool()> mayAsk = {};
    /// Asked before the first statement that writes, when date and time are settled in `CalFieldTable`: false
    /// gives the record up. What it throws is reported like any error, and then nothing is written.
    std::function<bool()> mayWrite = {};
};

/// Writes a calibration record of the asset from `CalFieldTable`, `RecordStandards` and `RecordResults`,
/// asking the operator for what is missing. Empty when the record was made (or after a reported error, or
/// given up by the caller), otherwise the reason.
QString CreateCalRecord(Session& session, const QString& asset, const RecordConsent& consent = {});

/// Asks for the field in row `index` of `CalFieldTable`; true when the operator gave a value.
bool PromptUser(Session& session, qint16 index, const QString& asset);

} // namespace kelvane::ModuleGlobals
