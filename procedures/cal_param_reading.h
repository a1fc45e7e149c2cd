#pragma once

#include "data/parameters/cal_params.h"
#include "data/routine.h"

#include <optional>

namespace kelvane {

/// Test messages, by name: those before the test and those after it.
struct MessageLists {
    QStringList pre;
    QStringList post;
};

/// What the parameter editor shows of an instrument.
struct StoredCalParams {
    /// The strategies to choose from.
    QStringList strategies;
    /// The zeroed record when the instrument has no parameters.
    CalParamRecord record;
    /// The messages that the instrument displays, in their order, and those that are left.
    MessageLists displayed;
    MessageLists available;
};

/// Reads all of it, as part of the routine that calls it; the messages are reported as
/// "FormCalParam,LoadPrompts". Nothing when a report came: half an instrument on the screen would be saved as
/// if it were all of it.
std::optional<StoredCalParams> readCalParams(Session& session, Routine& routine, const QString& instrument);

/// True when an instrument has stored parameters.
bool hasStoredCalParams(const Session& session, Routine& routine, const QString& instrument);

} // namespace kelvane
