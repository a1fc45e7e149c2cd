#pragma once

#include <QString>

#include <variant>
#include <vector>

namespace kelvane::simulators::fluke74x {

struct Range {
    float low = 0;
    float high = 0;

    bool operator==(const Range&) const = default;
};

struct Unit {
    QString name;

    bool operator==(const Unit&) const = default;
};

/// Seconds since 1970.
struct Seconds {
    qint32 count = 0;

    bool operator==(const Seconds&) const = default;
};

/// A word out of the maps.
struct Word {
    QString text;

    bool operator==(const Word&) const = default;
};

/// What a bucket holds; its type is the place in this list, from 1.
using Value = std::variant<float, QString, Range, Unit, qint32, Seconds, Word>;

inline qint16 typeOf(const Value& value) {
    return static_cast<qint16>(value.index() + 1);
}

/// A named item of a setup state.
struct Bucket {
    QString name;
    Value value;

    bool operator==(const Bucket&) const = default;
};

/// The three numbers by which the image finds something that it keeps.
struct References {
    qint32 first = 0;
    qint32 second = 0;
    qint32 third = 0;

    bool operator==(const References&) const = default;
};

} // namespace kelvane::simulators::fluke74x
