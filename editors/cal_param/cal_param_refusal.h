#pragma once

#include "editors/cal_param/cal_param_controls.h"
#include "platform/error.h"

#include <QString>

namespace kelvane {

/// Brings up the field whose value kept the parameters from being saved and gives it the focus: one that has
/// left its place in the statement, or the one whose column the error names. Nothing happens when neither can
/// be told. A field out of reach, whose sub-tabs the units do not call for, is put within reach.
void goToRefused(const CalParamControls& controls, const QString& instrument, const Error& error);

} // namespace kelvane
