#pragma once

#include "platform/clock.h"
#include "platform/settings_store.h"
#include "platform/user_interface.h"

namespace kelvane {

/// The outside things that every routine may need. They are owned by the program's `main` (or by a test).
struct Workstation {
    UserInterface& ui;
    const Clock& clock;
    SettingsStore& settings;
};

} // namespace kelvane
