#pragma once

#include "drivers/fluke74x/driver.h"

namespace kelvane::Module74xInterface {

/// The modes of a contact. A download has two halves, between which the link and the progress window stay
/// open and the image is built.
inline constexpr qint16 modeBeginDownload = 1;
inline constexpr qint16 modeUpload = 2;
inline constexpr qint16 modeEndDownload = 3;

/// Moves what the mode says over the link, with the progress window: mode 1 opens the link, identifies the
/// calibrator and fetches the maps; mode 2 does the same, reads the memory twice and closes the link; mode 3
/// sends the image over the open link and closes it. Empty on success, else the text of the failure: a
/// warning at any call but the steps of a transfer ends the contact too, is shown and counts as success. A
/// calibrator that the database doesn't know is a failure after the transfer. A link that a failure has left
/// open is closed by the next contact. The progress window is closed on return, unless mode 1 has succeeded.
QString Communicate74x(Fluke74x& driver, qint16 mode);

/// The text for a status. From 100 to 1999 they are shown in a box, with `name` (an asset number or nothing)
/// before them, and the result is empty; all others are the result, which is empty for an unknown code.
QString DPC3StatusText(Session& session, qint16 code, const QString& name);

/// The words and the name of a status, and its name alone, such as "DPCERR_MEMORY_SIZE"; empty for a code
/// that the library's description lacks.
QString statusWords(qint16 code);
QString statusName(qint16 code);

} // namespace kelvane::Module74xInterface
