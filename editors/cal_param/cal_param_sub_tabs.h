#pragma once

#include "editors/cal_param/cal_param_controls.h"

class QGroupBox;

namespace kelvane {

class CalParamFields;

/// The panels "Input Configuration" and "Output Configuration" with the sub-tabs of each side, all of them
/// hidden; the frame is as large as the largest one.
QGroupBox* makeInputConfiguration(CalParamControls& controls, const CalParamFields& fields);
QGroupBox* makeOutputConfiguration(CalParamControls& controls, const CalParamFields& fields);

} // namespace kelvane
