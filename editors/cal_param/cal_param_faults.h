#pragma once

#include "editors/cal_param/cal_param_controls.h"
#include "resources/strings.h"

#include <optional>

class QWidget;

namespace kelvane {

/// What keeps the calibration parameters on the screen from being saved.
struct CalParamFault {
    /// Page of `SSTab1` to show.
    int page = 0;
    /// Text by id.
    TextId message;
    /// The control to go to; null for none.
    QWidget* focus = nullptr;
    /// Sub-tabs and their page to show; null for none.
    QTabWidget* subTabs = nullptr;
    int subPage = 0;
};

/// The first fault of the screen, in the fixed order of the checks. Only what is needed by the units of each
/// side is examined: fields of sub-tabs that the units do not call for may hold anything.
std::optional<CalParamFault> firstFault(const CalParamControls& controls);

/// The value of a number field; 0 when it is empty or no number.
double numberIn(const QLineEdit& field);

} // namespace kelvane
