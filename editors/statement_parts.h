#pragma once

#include "data/session.h"
#include "platform/sql.h"

#include <QList>

namespace kelvane {

/// "select mtag from OWNER.inventory where i4201 = 'ASSET'": has a row when there is such an instrument. The
/// number goes in as it is.
Sql instrumentQuery(const Session& session, const QString& asset);
/// The same between parentheses: the key of an instrument within another statement.
Sql instrumentKey(const Session& session, const QString& asset);
/// The parts with a comma between, without blanks.
Sql commaJoined(const QList<Sql>& parts);

} // namespace kelvane
