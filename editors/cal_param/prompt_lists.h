#pragma once

#include "editors/cal_param/cal_param_controls.h"

namespace kelvane {

struct Workstation;

/// Lets the four lists of test messages work: a double-click, or Return, moves a row to the other list of its
/// pair; the buttons move the selected row of a list of displayed messages. Nothing is stored.
void connectPromptLists(const CalParamControls& controls, Workstation& workstation);

} // namespace kelvane
