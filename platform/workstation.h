#pragma once

#include "platform/clock.h"
#include "platform/settings_store.h"
#include "platform/user_interface.h"

namespace kelvane {

/// The environment that every routine may need. The program's `main` (or a test) owns its parts.
struct Workstation {
    UserInterface& ui;
    const Clock& clock;
    SettingsStore& settings;
};

} // namespace kelvane
