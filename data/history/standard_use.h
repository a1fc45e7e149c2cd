#pragma once

#include "data/history/stored_values.h"
#include "data/session.h"

#include <QList>

namespace kelvane {

/// A calibration that was carried out with a standard.
struct StandardUse {
    QString asset = {};
    QString description = {};
    StoredMoment date = {};
    StoredMoment time = {};
    QString state = {};
    /// "Y" or "N".
    QString passed = {};
    QString ctag = {};
};

/// The calibrations of the session's owner that name a standard, by its asset number, from the day `since`
/// on, the newest first. Records without a date come last: they may be of any day. None for a standard that
/// is not in the inventory; nothing after an error, which is reported as "History,standardUse".
std::optional<QList<StandardUse>> usesOfStandard(Session& session, const QString& standard,
                                                 const QDate& since);

} // namespace kelvane
