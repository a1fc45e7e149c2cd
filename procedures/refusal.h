#pragma once

#include "platform/error.h"

namespace kelvane {

/// True when the error names that column.
bool namesColumn(const Error& error, QLatin1StringView column);
/// True when it says that the column had no value: the record that the value was to be read from is not
/// there.
bool saysMissing(const Error& error, QLatin1StringView column);

} // namespace kelvane
