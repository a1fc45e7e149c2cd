#pragma once

#include "drivers/fluke702/driver.h"

namespace kelvane::Module702Interface {

/// The modes of a contact.
inline constexpr qint16 modeDownload = 1;
inline constexpr qint16 modeUpload = 2;

/// Opens the link, identifies the calibrator, moves the whole image and closes the link, with the progress
/// window. Empty on success, else the text of the failure. A warning at any call ends it there, is shown and
/// counts as success, so the image may then be incomplete. An upload from a calibrator that the database
/// doesn't know is a failure. The hourglass may remain after a failure or a warning: the caller sets the
/// normal pointer.
QString Communicate702(Fluke702& driver, qint16 mode);

/// The text for a status. Below 2001 they are shown in a box, with `name` (an asset number or nothing) before
/// them, and the result is empty; from 2001 on they are the result.
QString DPCStatusText(Session& session, qint16 code, const QString& name);

/// The words and the name of a status, and its name alone, such as "DPCERR_MEMORY_SIZE"; empty for a code
/// that the library's description lacks.
QString statusWords(qint16 code);
QString statusName(qint16 code);

} // namespace kelvane::Module702Interface
