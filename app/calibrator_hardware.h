#pragma once

#include "drivers/fluke702/dpclnk_library.h"
#include "drivers/fluke74x/dpclnk3_library.h"
#include "drivers/torquestar/qt_serial_port.h"
#include "platform/installed_files.h"
#include "workflow/calibrators.h"

namespace kelvane {

/// The real serial line and the real link libraries; the port names of the settings count.
struct CalibratorHardware {
    /// Link libraries are looked for in the folder `libraries` first.
    explicit CalibratorHardware(SettingsStore& settings,
                                const QString& libraries = InstalledFiles::programFolder())
        : line(settings), dpclnk(libraries), dpclnk3(libraries) {}
    CalibratorLinks links() { return {line, dpclnk, dpclnk3}; }

    QtSerialPort line;
    DpclnkLibrary dpclnk;
    Dpclnk3Library dpclnk3;
};

} // namespace kelvane
