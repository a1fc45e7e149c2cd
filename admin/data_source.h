#pragma once

#include "admin/database_address.h"

namespace kelvane::admin {

/// The section of an odbc.ini that gives a database the name by which workstations know it. It holds neither
/// user nor password: each user logs in. Throws `Failure` for a name or a value that the driver manager would
/// not take whole.
QString dataSourceSection(const DatabaseAddress& address, const QString& name);

} // namespace kelvane::admin
