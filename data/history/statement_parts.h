#pragma once

#include "platform/database/sql.h"

#include <QDate>

namespace kelvane {

/// A day as a value of a statement.
Sql sqlDate(const QDate& day);
/// A column in an order, its nulls last: engines put them in other places. The direction follows.
Sql nullsLast(const Sql& column);

} // namespace kelvane
