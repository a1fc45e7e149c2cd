#pragma once

#include "data/session.h"

namespace kelvane {

/// The verdicts of `CheckStandard`.
enum StandardVerdict : qint16 {
    standardUsable = 0,
    standardRankTooLow = 1,
    standardOverdue = 2,
    standardUnknown = 3,
    instrumentWithoutTrace = 4,
};

namespace ModuleGlobals {

/// Whether a standard may be used to calibrate an instrument (both asset numbers): it exists, is in
/// calibration, and ranks high enough. A database failure lets it pass, with a report.
qint16 CheckStandard(Session& session, const QString& standard, const QString& instrument);

} // namespace ModuleGlobals
} // namespace kelvane
