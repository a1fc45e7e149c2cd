#pragma once

#include <QList>

#include <optional>

namespace kelvane {

/// One thing of the database, looked for by what identifies it.
template <class Thing>
struct Lookup {
    std::optional<Thing> found = {};
    /// After an error, which is reported: what was looked for may be there.
    bool hasFailed = false;

    /// True when the database does not have it.
    bool isAbsent() const { return !found && !hasFailed; }
};

/// The first row of what a query for one has given; nothing after an error.
template <class Thing>
Lookup<Thing> lookupOf(const std::optional<QList<Thing>>& rows) {
    if (!rows)
        return {.hasFailed = true};
    return rows->isEmpty() ? Lookup<Thing>() : Lookup<Thing>{rows->constFirst()};
}

} // namespace kelvane
