#pragma once

#include "editors/cal_param/cal_param_controls.h"

class QWidget;

namespace kelvane {

/// Makes all controls of the calibration parameter editor, as they stand before any record is shown, and
/// lays them out; gives the widget that holds them.
QWidget* makeCalParamPages(CalParamControls& controls);

} // namespace kelvane
