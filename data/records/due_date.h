#pragma once

#include "data/session.h"

namespace kelvane::ModuleGlobals {

/// The due date: `cal_date` plus `interval` `unit`s, from database version 6 on moved back off days off and
/// holidays. With an asset the three arguments are overwritten first: the present moment, and the asset's own
/// interval and unit. An empty moment after an error.
Moment calcDueDate(Session& session, const QString& asset, Moment& cal_date, float& interval, QString& unit);

} // namespace kelvane::ModuleGlobals
