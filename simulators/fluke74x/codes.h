#pragma once

#include <QtGlobal>

namespace kelvane::simulators::fluke74x {

/// What an operation answers of itself; any other status comes only when it is asked for as a fault.
enum Code : qint16 {
    Done = 0,
    NotFound = 2001,    ///< a name or a reference that stands for nothing
    NoRoom = 2002,      ///< more tasks than the calibrator takes
    TooLong = 2003,     ///< a text
    OutOfStep = 2004,   ///< a call at the wrong time
    BadArgument = 2006, ///< a word, number, index or kind that does not fit, no place for an out value
    NoAnswer = 2007,    ///< the calibrator can't be reached, or the link is open already
    CantWrite = 2011,
    CantRead = 2012,
    NoMaps = 2013, ///< they were not fetched
    NoData = 2014, ///< no state was restored
    NotOpen = 2015,
    BadSettings = 2016, ///< a speed or a port that is none
};

} // namespace kelvane::simulators::fluke74x
