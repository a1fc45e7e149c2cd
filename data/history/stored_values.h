#pragma once

#include "platform/values/moments.h"

#include <optional>

namespace kelvane {

/// A date, a time or both as a column holds them. A text that is none of them stays a text: it can be shown,
/// and nothing is reckoned from it.
struct StoredMoment {
    /// As the column has it; empty for a null.
    QString text = {};
    /// Empty for a null and for a text that is no date or time.
    Moment moment = {};

    bool hasDate() const { return moment.date.isValid(); }
};

/// The value of a date, time or timestamp column.
StoredMoment storedMomentOf(const std::optional<QString>& value);
/// The value of a text column, without the blanks with which a column of a fixed width is filled up; empty
/// for a null.
QString storedText(const std::optional<QString>& value);

/// "YYYY-MM-DD", or the text as it is stored when that is no date.
QString dateText(const StoredMoment& stored);
/// "HH:NN:SS", or the text as it is stored when that is no time.
QString timeText(const StoredMoment& stored);

} // namespace kelvane
