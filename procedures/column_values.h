#pragma once

#include "data/routine.h"

#include <QStringList>

namespace kelvane {

/// The first column of all rows of a query, in the order of the database. A null is error 94.
QStringList columnValues(Routine& routine, const Sql& query);
/// The same without the nulls.
QStringList columnValuesNotNull(Routine& routine, const Sql& query);

} // namespace kelvane
