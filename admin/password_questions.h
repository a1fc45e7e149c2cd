#pragma once

#include "platform/password.h"

#include <QString>

namespace kelvane::admin {

/// The new password of an account: asked for twice on a terminal, else one line of the standard input. Throws
/// `Failure` for one that no login could use (empty, too long, blanks at its ends, not UTF-8), and when the
/// two differ.
Password newPassword(const QString& account);

/// The password with which the administrator logs in to a server, from the terminal. Throws `Failure` without
/// one: a line of the standard input belongs to the account.
Password serverPassword(const QString& user);

} // namespace kelvane::admin
