#pragma once

#include "platform/error.h"

#include <initializer_list>

class QWidget;

namespace kelvane {

/// A column that a save writes, and the field of the screen that its value comes from.
struct FieldOfColumn {
    QLatin1StringView column;
    QWidget* field;
};

/// True when the error names that column.
bool namesColumn(const Error& error, QLatin1StringView column);
/// True when it says that the column had no value: the record that the value was to be read from is not
/// there.
bool saysMissing(const Error& error, QLatin1StringView column);
/// The field of the column that the error names; null when it names none of these.
QWidget* refusedField(const Error& error, std::initializer_list<FieldOfColumn> fields);

} // namespace kelvane
