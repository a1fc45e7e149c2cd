#pragma once

#include "app/records_command_line.h"
#include "data/session.h"

namespace kelvane {

/// Writes the certificate that is asked for into the file of the request, which is replaced as a whole or
/// stays as it was, by the layout of one of the folders or that which is installed. Needs a
/// `QGuiApplication`. Throws `ProgramAnswer` with status 1 for an asset number that
/// the inventory does not know, one without such a record, and a layout or a file that can't be used. False
/// after an error that a routine has reported.
bool writeCertificateFile(Session& session, const RecordsRequest& request, const QStringList& folders);

} // namespace kelvane
