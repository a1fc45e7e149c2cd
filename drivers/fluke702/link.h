#pragma once

#include "drivers/fluke702/fluke702.h"

namespace kelvane::Module702Interface {

/// Opens the link, identifies the calibrator, moves the whole image (`mode` 1: to the calibrator, 2: from it)
/// and closes the link, with the progress window. Empty on success (a warning in mid-transfer ends it early
/// and counts as success), else the words of the failure. An upload from a calibrator that the database
/// doesn't know is a failure.
QString Communicate702(Fluke702& driver, qint16 mode);

/// The words for a status. Below 2001 they are shown in a box, with `name` (an asset number or nothing)
/// before them, and the result is empty; from 2001 on they are the result.
QString DPCStatusText(Session& session, qint16 code, const QString& name);

/// The errors: an operation that gives one of these, 2000 included, ends the transfer in hand.
constexpr bool isFatal(Dpclnk::Status status) {
    return status >= 2000;
}

} // namespace kelvane::Module702Interface
