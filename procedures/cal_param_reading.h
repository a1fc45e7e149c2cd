#pragma once

#include "data/parameters/cal_params.h"

#include <QStringList>

#include <functional>
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

/// Asks for an instrument number until the inventory knows it; nothing when the user gives up or the database
/// failed. Reported as "MDIFormMain,GetAsset".
std::optional<QString> askForInstrument(Session& session);

/// Asks for the instrument that gets the parameters of another one, and whether it may lose its own; nothing
/// when the user gives up or the database failed. Reported as "FormCalParam,CommandClone".
std::optional<QString> askForCloneTarget(Session& session);

/// Reads all of it and hands it to `show`. False when a report came, be it that of `show`; when it came while
/// all was read, nothing is shown: half an instrument on the screen would be saved as if it were all of it.
/// Reported as "FormCalParam,LoadControls", the messages as "FormCalParam,LoadPrompts".
bool loadCalParams(Session& session, const QString& instrument,
                   const std::function<void(const StoredCalParams&)>& show);

} // namespace kelvane
