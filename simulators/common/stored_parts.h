#pragma once

#include <QString>

#include <vector>

namespace kelvane::simulators {

// What the memories of calibrators that carry tasks out are made of. Ids count from 1, in the order of the
// lists in the memory.

// The longest texts that they take, in characters.
inline constexpr qsizetype longestKey = 10;
inline constexpr qsizetype longestPrompt = 255;
inline constexpr qsizetype longestTag = 29;
inline constexpr qsizetype longestSerial = 32;
inline constexpr qsizetype longestTechnician = 32;
inline constexpr std::size_t maxPoints = 50;

/// A test strategy: its points as fractions of the range.
struct Strategy {
    QString name;
    std::vector<float> points;

    bool operator==(const Strategy&) const = default;
};

/// Whether there are as many points as a strategy has, near the range each: some lie beyond it.
bool arePointsGood(const std::vector<float>& points);

struct Prompt {
    QString key;
    QString text;

    bool operator==(const Prompt&) const = default;
};

struct Scale {
    float high = 0;
    float low = 0;

    bool operator==(const Scale&) const = default;
};

/// A test point as it was carried out.
struct Entry {
    float reading = 0;
    float applied = 0;
    float error = 0;

    bool operator==(const Entry&) const = default;
};

/// What the calibrator's clock said; date all zero: it was not set.
struct ClockTime {
    qint16 year = 0;
    qint16 month = 0;
    qint16 day = 0;
    qint16 hour = 0;
    qint16 minute = 0;
    qint16 second = 0;

    bool operator==(const ClockTime&) const = default;
};

/// The entry of an id, null when there is none.
template <class Kept>
const Kept* byId(const std::vector<Kept>& list, qint32 id) {
    return id >= 1 && static_cast<std::size_t>(id) <= list.size() ? &list[static_cast<std::size_t>(id) - 1]
                                                                  : nullptr;
}

/// The id of the last one.
template <class Kept>
qint32 lastId(const std::vector<Kept>& list) {
    return static_cast<qint32>(list.size());
}

} // namespace kelvane::simulators
