#pragma once

#include "data/records/cal_record.h"
#include "platform/database/sql.h"

namespace kelvane::ModuleGlobals {

/// Fills `CalFieldTable` from the site's field dictionary, with defaults and values carried forward for the
/// asset.
void SetCalDataFields(Session& session, CalRecord& record, const QString& asset);

/// True when the asset has no calibration record yet.
bool FirstCal(Session& session, const QString& asset);

/// The rows of `CalFieldTable` in use: those before the first empty `column`.
int calFieldCount(const CalRecord& record);
/// The first row of `CalFieldTable` whose `column` ends in this field number.
std::optional<int> calFieldRow(const CalRecord& record, const QString& number);
/// The field numbers that a worksheet asks for, in their order.
inline constexpr SqlWords worksheetFieldsQuery =
    u"select fldnum from mt.hvm_kv_worksheetfields order by sequence asc";

} // namespace kelvane::ModuleGlobals
