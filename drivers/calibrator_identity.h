#pragma once

#include "resources/text_id.h"

#include <QStringView>

namespace kelvane {

/// By what a calibrator is known.
struct CalibratorIdentity {
    /// What it is called where that is stored or compared: in the settings, and between screens and drivers.
    QStringView name;
    /// What a user reads.
    TextId caption;
    /// The driver's name in entries of the journal.
    QStringView journalWord;
};

} // namespace kelvane
