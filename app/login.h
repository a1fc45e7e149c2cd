#pragma once

#include "app/menu.h"
#include "data/session.h"

namespace kelvane {

/// The data source of the next login: the setting, or "Calibration Data".
QString chosenDataSource(const Session& session);

/// Opens `SharedConnection` with the user's own login, fills the session values, sets the menu and sweeps
/// the system tables. `username` and `password` are as typed. Throws the `Error` that stopped it; what was
/// done before stays.
void logIn(Session& session, Menu& menu, const QString& username, const QString& password);

/// Opens `SharedConnection` with a user's own login and fills the session values, for a program that only
/// reads. Nothing is stored: neither in the settings, nor in the database, whose own tables are not swept.
/// Throws the `Error` that stopped it.
void logInToRead(Session& session, const QString& dataSource, const QString& user, const QString& password);

/// Makes the connection of a session again that goes on: to the same data source, for the same user. Throws
/// the `Error` that stopped it; the session is as before then. False, and nothing done, when owner or level
/// of the user or the site's configuration (its date format, for one) are others now: what stands in the open
/// screens was typed by the old ones.
bool logInAgain(Session& session, Menu& menu, const QString& password);

/// Closes and releases the connection of a session that is connected. Reported as "MDIFormMain,mnuLogout".
void disconnectSession(Session& session);

} // namespace kelvane
