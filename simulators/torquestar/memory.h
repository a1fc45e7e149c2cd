#pragma once

#include "simulators/torquestar/characteristic_fields.h"

#include <QString>

#include <vector>

namespace kelvane::simulators {

inline constexpr qsizetype longestName = 11;

/// One result of a characteristic: its moment as the calibrator keeps it, and its samples in ten-thousandths.
struct Result {
    qint32 date = 0; ///< YYYYMMDD as a decimal number
    qint32 time = 0; ///< HHMMSS as a decimal number
    std::vector<qint32> samples;

    bool operator==(const Result&) const = default;
};

struct Characteristic {
    QString name;
    Fields fields;
    QString comment;
    std::vector<Result> results;

    bool operator==(const Characteristic&) const = default;
};

/// A stored round: a named list of characteristics.
struct Round {
    QString name;
    int sampleMode = 0;
    std::vector<QString> characteristics;

    bool operator==(const Round&) const = default;
};

/// What the calibrator keeps when it is switched off.
struct Memory {
    std::vector<Round> rounds;
    std::vector<Characteristic> characteristics;

    /// Null when there is none of that name.
    Characteristic* find(const QString& name);
    Round* findRound(const QString& name);
    /// Takes the characteristic out of the rounds too.
    void remove(const QString& name);

    bool operator==(const Memory&) const = default;
};

/// The mark of the file.
QString memoryFormat();
/// The memory as readable JSON, and back. `memoryFrom` throws `Failure` with the reason when the text is not
/// such a memory: it never repairs and never drops anything.
QByteArray textOf(const Memory& memory);
Memory memoryFrom(const QByteArray& text);

} // namespace kelvane::simulators
