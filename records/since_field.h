#pragma once

#include "data/session.h"
#include "resources/strings.h"

namespace kelvane {

class DateField;

/// The day that a list begins with until the user says another: a year ago.
QDate usualSince(const Session& session);
/// The field "DateSince" for the day that a list begins with; it shows the usual one.
DateField* sinceField(const Session& session, TextId toolTip);

} // namespace kelvane
