#pragma once

#include "admin/command_line.h"

namespace kelvane::admin {

// The commands for accounts, as the table of commands runs them.

QString listAccounts(const Invocation& invocation);
QString setAccount(const Invocation& invocation);
QString setLevel(const Invocation& invocation);
QString setPassword(const Invocation& invocation);
QString removeAccount(const Invocation& invocation);

} // namespace kelvane::admin
