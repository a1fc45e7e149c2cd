#pragma once

#include "data/history/lookup.h"
#include "data/session.h"
#include "platform/database/sql.h"

namespace kelvane {

/// The condition that the inventory holds an asset number, but for blanks at its ends and for the case of its
/// letters. It reads all numbers, so that the number as it stands is looked for first.
Sql isNumberButForBlanks(const QString& asset);

/// An asset number of the inventory as it is stored: a column of a fixed width fills it up with blanks, which
/// nobody types. The number that is stored exactly so comes first. An error is reported as
/// "History,assetNumber".
Lookup<QString> storedAssetNumber(Session& session, const QString& asset);

} // namespace kelvane
