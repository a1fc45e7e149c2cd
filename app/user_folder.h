#pragma once

#include <QString>

namespace kelvane {

/// The folder that is the user's own for the workstation, whether or not it has been made.
QString userFolder();

/// Makes the folder that is the user's own for this program, `$XDG_DATA_HOME/kelvane`, where there is none
/// (for nobody else to read), and makes it the current one. Returns why that failed; empty when it did not.
QString enterUserFolder();

/// The same with the folder for the "errors.log" of kelvane-records, `$XDG_STATE_HOME/kelvane-records`: so
/// that it never writes into the one of a workstation.
QString enterRecordsFolder();

} // namespace kelvane
