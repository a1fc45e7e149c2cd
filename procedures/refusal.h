#pragma once

#include "platform/error.h"

namespace kelvane {

/// A save of which nothing is stored.
struct SaveFailure {
    /// As it was reported.
    Error error = {};
    /// The row of the saved list, from 0, that was being stored.
    int row = 0;
    /// The record that was to be changed does not exist any more. That alone is not reported.
    bool vanished = false;
};

/// False for a value that would end its own quotes in a statement that takes it as it stands.
bool isConfined(const QString& value);
/// True when the error names that column.
bool namesColumn(const Error& error, QLatin1StringView column);
/// True when it says that the column had no value: the record that the value was to be read from is not
/// there.
bool saysMissing(const Error& error, QLatin1StringView column);

} // namespace kelvane
