#pragma once

#include "data/session.h"
#include "drivers/fluke_limits.h"

namespace kelvane {

/// How one Fluke calibrator answers whether it can take an instrument.
struct FlukeAcceptance {
    /// The name under which errors are reported.
    QStringView routine;
    FlukeLimits limits;
    bool refusesIndicatedInput;
    /// What is said of an input in a unit that it doesn't know: the reason of a refusal, or a note.
    TextId unknownInput;
    bool refusesUnknownInput;
};

/// Whether the calibrator can take the instrument: empty, or the reason why not. What it can't read by itself
/// is shown in a box and is no reason.
QString flukeAcceptable(Session& session, const FlukeAcceptance& acceptance, const QString& asset);

} // namespace kelvane
