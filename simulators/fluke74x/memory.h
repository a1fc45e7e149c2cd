#pragma once

#include "simulators/common/memory_file.h"
#include "simulators/common/stored_parts.h"
#include "simulators/fluke74x/maps.h"

namespace kelvane::simulators::fluke74x {

// The longest texts that only this calibrator cuts so, in characters.
inline constexpr qsizetype longestStrategyName = 15;
inline constexpr qsizetype longestModule = 32;

/// Which sides the user reads and enters; the others are the calibrator's own.
struct ByHand {
    bool measure = false;
    bool source = false;

    bool operator==(const ByHand&) const = default;
};

/// What is to be done on one instrument: prompts, the test, prompts.
struct Task {
    QString tag;
    std::vector<QString> before; ///< keys of prompts
    std::vector<QString> after;
    qint32 strategy = 0; ///< 0: none, and so it can't be carried out
    qint32 state = 0;
    ByHand byHand;
    QString instrument; ///< the tag that its results bear
    QString serial;

    bool operator==(const Task&) const = default;
};

/// A task carried out once.
struct Run {
    ClockTime time;
    QString tag;
    QString serial;
    QString technician;
    QString measureModule; ///< serial number of the pressure module; empty: none
    QString sourceModule;
    qint32 state = 0;
    ByHand byHand;
    /// In the calibrator's units, what is by hand as it was entered; the error in percent of span.
    std::vector<Entry> entries;

    bool operator==(const Run&) const = default;
};

/// What a download brings and an upload fetches.
struct Contents {
    std::vector<Strategy> strategies;
    std::vector<Prompt> prompts;
    std::vector<State> states;
    std::vector<Task> tasks;
    std::vector<Run> runs;

    bool operator==(const Contents&) const = default;
};

struct Identity {
    QString model = QStringLiteral("743B");
    QString serial = QStringLiteral("7112044");
    QString software = QStringLiteral("V3.1");
    qint32 room = 1000; ///< how many tasks it takes

    bool operator==(const Identity&) const = default;
};

/// What the calibrator keeps when it is switched off.
struct Memory {
    Identity identity;
    Contents contents;

    bool operator==(const Memory&) const = default;
};

/// The mark of the file.
QString memoryFormat();
/// The memory as readable JSON, and back. `memoryFrom` throws `Failure` with the reason when the text is not
/// such a memory: it never repairs and never drops anything.
QByteArray textOf(const Memory& memory);
Memory memoryFrom(const QByteArray& text);

using MemoryFile = MemoryFileOf<Memory, memoryFrom>;

} // namespace kelvane::simulators::fluke74x
