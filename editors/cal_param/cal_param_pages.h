#pragma once

#include "editors/cal_param/cal_param_controls.h"

#include <QString>

class QWidget;

namespace kelvane {

class CalParamFields;

/// Makes the other controls of the calibration parameter editor, as they stand before any record is shown,
/// and lays them out with the fields; gives the widget that holds all of them.
QWidget* makeCalParamPages(CalParamControls& controls, const CalParamFields& fields);

/// Everything whose change counts as a change of the screen, in one text.
QString checkSumText(const CalParamFields& fields, const CalParamControls& controls);

} // namespace kelvane
