#pragma once

#include <QByteArray>

#include <array>
#include <optional>

namespace kelvane::simulators {

/// The fields of a characteristic, in the order in which they come behind its name.
enum Field : std::size_t {
    Samples,
    Subgroups,
    TransducerNumber,
    TransducerType,
    Span,
    SerialFormat,
    UnitsOfSpan,
    BaudRate,
    CycleEnd,          ///< the data bits of a Serial transducer
    MeasureMode,       ///< the stop bits of a Serial transducer
    FrequencyResponse, ///< the parity of a Serial transducer
    UnitsOfDisplay,
    Direction,
    MaximumTorque,
    MinimumTorque,
    ThresholdTorque,
    ClickDipThreshold,
    CommentCharacter,
    Secondary,
    MaximumSecondary,
    MinimumSecondary,
    FixedWord,
    MillivoltsPerVolt,
    BridgeResistance,
    FixedNumber,
    FieldCount,
};

/// A field's number as it came; a scaled one counts ten-thousandths. A field that did not come is empty.
using Fields = std::array<std::optional<qint32>, FieldCount>;

struct FieldShape {
    const char* name;      ///< as the memory file calls it
    int width;             ///< bytes on the line
    bool scaled;           ///< ten-thousandths
    bool leftOutForSerial; ///< missing in the short form of a Serial transducer
};

inline constexpr qint32 serialTransducer = 3;
inline constexpr double scale = 10000.0;

const FieldShape& shapeOf(std::size_t field);

enum class FieldBytes {
    Read,
    CommentTooLong, ///< more bytes than the fields have: only the comment could have grown
    Unreadable,     ///< no form of the message has this length
};

/// Reads the bytes behind the name, in the full form or in the short form of a Serial transducer.
FieldBytes readFields(QByteArrayView bytes, Fields& fields);

} // namespace kelvane::simulators
