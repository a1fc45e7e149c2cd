#pragma once

#include "admin/database_address.h"

#include <QStringList>

namespace kelvane::admin {

/// Carries out a script of `database/`, the one for the address's engine, in the place of this program: its
/// output, its errors and its exit status become those of the program. Comes back only by a `Failure`, when
/// the script can't be started.
[[noreturn]] void becomeScript(const QString& name, const DatabaseAddress& address,
                               const QStringList& arguments);

} // namespace kelvane::admin
