#pragma once

#include "simulators/common/memory_file.h"
#include "simulators/common/stored_parts.h"

#include <QString>

#include <vector>

namespace kelvane::simulators::fluke702 {

// The longest texts that only this calibrator cuts so, in characters.
inline constexpr qsizetype longestStrategyName = 13;
inline constexpr qsizetype longestModule = 9;

/// A setup state: what the calibrator sources and measures, and how.
struct State {
    QString temperatureUnits = QStringLiteral("celsius");
    QString coldJunction = QStringLiteral("measure");
    float coldJunctionTemperature = 0;
    QString temperatureStandard = QStringLiteral("its90");
    QString pressureUnits = QStringLiteral("psi");
    QString sourceMode; ///< empty: not set yet
    QString sourceSensor;
    float sourceValue = 0;
    float sourceAmplitude = 0;
    QString measureMode; ///< empty: not set yet
    QString measureSensor;
    bool automaticRange = true;
    float range = 0;
    QString loopPower = QStringLiteral("off");
    Scale source;
    Scale measured;
    float tolerance = 0; ///< in percent of span

    bool operator==(const State&) const = default;
};

/// What is to be done on one instrument: prompts, the test, prompts.
struct Task {
    QString tag;
    std::vector<QString> before; ///< keys of prompts
    std::vector<QString> after;
    qint32 strategy = 0;
    qint32 state = 0;
    bool byHand = false; ///< the output is read by the user
    QString instrument;  ///< the tag that its results bear
    QString serial;

    bool operator==(const Task&) const = default;
};

enum Kind : qint16 { AsFound = 1, AsLeft = 2 };

/// A task carried out once.
struct Run {
    qint16 kind = AsFound;
    ClockTime time;
    QString tag; ///< empty: none was saved
    QString serial;
    QString technician;
    QString module; ///< serial number of the pressure module; empty: none
    qint32 state = 0;
    std::vector<Entry> entries; ///< in base units, the error as a fraction of span

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
    QString model = QStringLiteral("702");
    QString serial = QStringLiteral("6841207");
    QString software = QStringLiteral("V2.3");
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

} // namespace kelvane::simulators::fluke702
