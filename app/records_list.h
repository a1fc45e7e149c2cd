#pragma once

#include "app/records_command_line.h"
#include "data/session.h"

namespace kelvane {

/// The list that is asked for, with titles, in UTF-8. Throws `ProgramAnswer` with status 1 for an asset
/// number that the inventory does not know. Nothing after an error that a routine has reported.
std::optional<QByteArray> listAsCsv(Session& session, const RecordsRequest& request);

/// Writes a list to the standard output or into the file of the request, which is replaced as a whole or
/// stays as it was. Throws `ProgramAnswer` with status 1 when it can't be written.
void writeList(const RecordsRequest& request, const QByteArray& list);

} // namespace kelvane
