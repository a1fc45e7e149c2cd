#pragma once

#include <QtGlobal>

namespace kelvane::simulators::fluke702 {

/// What an operation answers of itself; any other status comes only when it is asked for as a fault.
enum Code : qint16 {
    Done = 0,
    BadCombination = 2003,   ///< mode, sensor and terminals that don't go together
    SourceOutOfRange = 2004, ///< more than the calibrator can source
    BadRange = 2006,
    NoRoom = 2012,
    BadArgument = 2013, ///< a word that it doesn't know, no number, no place for an out value
    UnknownId = 2014,
    PromptTooLong = 2015,
    BadStrategy = 2016,
    NotOpen = 2017,
    NoAnswer = 2019, ///< the calibrator can't be reached
    CantWrite = 2020,
    CantRead = 2021,
    OutOfStep = 2023, ///< a call at the wrong time
    TooLong = 2024,
    StateInUse = 2025,
    NoTag = 2026,
};

} // namespace kelvane::simulators::fluke702
