#pragma once

#include "data/session.h"

namespace kelvane::ModuleGlobals {

/// Fills `CalFieldTable` from the site's field dictionary, with defaults and values carried forward for the
/// asset.
void SetCalDataFields(Session& session, const QString& asset);

/// 0 text, 1 date, 2 number, 3 time.
qint16 FieldType(Session& session, const QString& column);

/// The current value of a named column (or bare field number) for an asset, as text for a screen; empty for
/// an unknown beginning, a null or no row.
QString SourceColumn(Session& session, const QString& column, const QString& asset);

/// Stores a value into a named column of an asset; an empty value or "NULL" is stored as null. Copies to a
/// table other than `inventory` end in the error report: the statement is refused by the server.
void DestColumn(Session& session, const QString& column, const QString& asset, const QString& value);

/// True when the asset has no calibration record yet.
bool FirstCal(Session& session, const QString& asset);

} // namespace kelvane::ModuleGlobals
