#pragma once

#include "procedures/refusal.h"

#include <initializer_list>

class QWidget;

namespace kelvane {

/// A column that a save writes, and the field of the screen that its value comes from.
struct FieldOfColumn {
    QLatin1StringView column;
    QWidget* field;
};

/// The field of the column that the error names; null when it names none of these.
QWidget* refusedField(const Error& error, std::initializer_list<FieldOfColumn> fields);

} // namespace kelvane
