#pragma once

#include "data/session.h"
#include "resources/strings.h"

class QDateEdit;

namespace kelvane {

/// The field "DateSince" for the day that a list begins with: a year ago at first.
QDateEdit* sinceField(const Session& session, TextId toolTip);

} // namespace kelvane
