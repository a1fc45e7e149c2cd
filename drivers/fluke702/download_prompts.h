#pragma once

#include "drivers/fluke702/dpclnk.h"
#include "drivers/fluke_prompts.h"
#include "drivers/link_status.h"

namespace kelvane::Module702Interface {

/// Reads the messages of an asset and defines them on the calibrator, empty ones too. False when a status
/// ended it. Error 9 at the 52nd message.
bool definePrompts(Session& session, Dpclnk& link, StatusRule& rule, const QString& asset,
                   FlukePrompts& prompts);
/// Puts every message for before the test into the current task.
bool placeBefore(Dpclnk& link, StatusRule& rule, const FlukePrompts& prompts);
/// Puts the first message for after the test into the current task; no task refers to a second one.
bool placeAfter(Dpclnk& link, StatusRule& rule, const FlukePrompts& prompts);

} // namespace kelvane::Module702Interface
