#pragma once

#include "app/records_command_line.h"
#include "data/session.h"

namespace kelvane {

/// Opens the session's connection with a user's own login and fills the session values. Nothing is stored:
/// neither in the settings, nor in the database, whose own tables are not swept. Throws the `Error` that
/// stopped it.
void logInToRead(Session& session, const QString& dataSource, const QString& user, const QString& password);

/// The list that is asked for, with titles, in UTF-8. Throws `ProgramAnswer` with status 1 for an asset
/// number that the inventory does not know. Nothing after an error that a routine has reported.
std::optional<QByteArray> listAsCsv(Session& session, const RecordsRequest& request);

/// Writes a list to the standard output or into the file of the request, which is replaced as a whole or
/// stays as it was. Throws `ProgramAnswer` with status 1 when it can't be written.
void writeList(const RecordsRequest& request, const QByteArray& list);

} // namespace kelvane
