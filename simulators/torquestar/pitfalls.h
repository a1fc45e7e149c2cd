#pragma once

#include "simulators/torquestar/memory.h"

#include <QStringList>

namespace kelvane::simulators {

// What a workstation makes of some numbers is not what the calibrator sent. The calibrator sends them all the
// same; whoever prepares a demonstration or a test sees an error.

/// The workstation drops the leading zero of a byte 0A to 0F, and so reads another number when digits stand
/// before.
bool losesDigit(qint32 number);
/// The workstation takes a reply whose check bytes end in STX for the announcement of another one.
bool endsInAnnouncement(const QByteArray& reply);

/// One sentence each; empty when there is nothing to report.
QStringList pitfallsOfSerial(qint32 serial);
QStringList pitfallsOfResult(const Result& result);
QStringList pitfallsOfComment(const QString& comment);

} // namespace kelvane::simulators
