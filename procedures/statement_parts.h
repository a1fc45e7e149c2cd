#pragma once

#include "platform/database/sql.h"

#include <QList>

namespace kelvane {

/// The parts with a comma between, without blanks.
Sql joinWithCommas(const QList<Sql>& parts);

} // namespace kelvane
