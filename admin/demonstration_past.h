#pragma once

#include <QDate>
#include <QString>

#include <functional>

namespace kelvane::admin {

/// Told of each record that was made: how many there are, and how many there will be.
using RecordsMade = std::function<void(qsizetype made, qsizetype all)>;

/// Gives the instruments and standards of `past_instruments.h` their records of the years before `day`. What
/// is read in a calibration comes from the behaviour of its instrument; it is judged, laid out and written by
/// the routines that an upload uses, with the clock at that day and the technician logged in, by the result
/// template of the demonstration.
///
/// `folder` holds a database of the embedded engine with the demonstration data and these instruments, which
/// have no records yet. All records are made or none: what is in the way is a `Failure` or an `Error`.
void makeDemonstrationPast(const QString& folder, const QDate& day, const RecordsMade& made);

} // namespace kelvane::admin
