#include "simulators/torquestar/characteristic_fields.h"

#include <algorithm>
#include <numeric>

namespace kelvane::simulators {

namespace {

constexpr std::array<FieldShape, FieldCount> shapes = {{
    {"samples", 1, false, false},
    {"subgroups", 1, false, false},
    {"transducer number", 1, false, true},
    {"transducer type", 1, false, false},
    {"transducer span", 4, true, true},
    {"serial format", 1, false, false},
    {"units of span", 1, false, true},
    {"baud rate", 1, false, false},
    {"data bits or cycle end", 1, false, false},
    {"stop bits or measure mode", 1, false, false},
    {"parity or frequency response", 1, false, false},
    {"units of display", 1, false, true},
    {"direction", 1, false, false},
    {"maximum torque", 4, true, false},
    {"minimum torque", 4, true, false},
    {"threshold torque", 4, true, false},
    {"click dip threshold", 4, true, false},
    {"comment character", 1, false, false},
    {"secondary parameter", 1, false, false},
    {"maximum secondary parameter", 4, true, false},
    {"minimum secondary parameter", 4, true, false},
    {"fixed word", 2, false, false},
    {"millivolts per volt", 4, true, false},
    {"bridge resistance", 2, false, false},
    {"fixed number", 4, false, false},
}};

constexpr int length(bool shortForm) {
    int sum = 0;
    for (const FieldShape& shape : shapes)
        sum += shortForm && shape.leftOutForSerial ? 0 : shape.width;
    return sum;
}

constexpr int fullLength = length(false);
constexpr int shortLength = length(true);
// In the short form two fields stand before the transducer's type.
constexpr qsizetype typePlaceInShortForm = 2;

qint32 numberOf(QByteArrayView bytes) {
    return static_cast<qint32>(std::accumulate(bytes.begin(), bytes.end(), 0U, [](quint32 number, char byte) {
        return number << 8U | static_cast<unsigned char>(byte);
    }));
}

} // namespace

const FieldShape& shapeOf(std::size_t field) {
    return shapes.at(field);
}

FieldBytes readFields(QByteArrayView bytes, Fields& fields) {
    const bool shortForm = bytes.size() == shortLength && bytes[typePlaceInShortForm] == serialTransducer;
    if (!shortForm && bytes.size() != fullLength)
        return bytes.size() > fullLength ? FieldBytes::CommentTooLong : FieldBytes::Unreadable;
    fields = {};
    qsizetype place = 0;
    for (std::size_t field = 0; field < FieldCount; ++field) {
        if (shortForm && shapes.at(field).leftOutForSerial)
            continue;
        fields.at(field) = numberOf(bytes.sliced(place, shapes.at(field).width));
        place += shapes.at(field).width;
    }
    return FieldBytes::Read;
}

} // namespace kelvane::simulators
