#pragma once

#include "data/history/lookup.h"
#include "data/history/stored_values.h"
#include "data/session.h"

#include <QList>

namespace kelvane {

/// A calibration that was carried out with a standard.
struct StandardUse {
    /// As it is stored, with blanks at its end where the column has a fixed width.
    QString asset = {};
    QString description = {};
    StoredMoment date = {};
    StoredMoment time = {};
    QString state = {};
    /// "Y" or "N".
    QString passed = {};
    QString ctag = {};
    /// Of the instrument, also when the inventory does not hold it any more.
    QString mtag = {};
};

/// A standard of the inventory of the session's owner.
struct Standard {
    /// As it is stored, with blanks at its end where the column has a fixed width.
    QString asset = {};
    QString description = {};
    QString serial = {};
};

/// The standards that any calibration names, in the order of their asset numbers. Nothing after an error,
/// which is reported as "History,usedStandards".
std::optional<QList<Standard>> usedStandards(Session& session);

/// The asset of the inventory with this number, whose blanks at the end may be missing, as a standard. An
/// error is reported as "History,standardOf".
Lookup<Standard> standardOf(Session& session, const QString& asset);

/// The calibrations of the session's owner that name a standard, by its asset number as it is stored, from
/// the day `since` on, the newest first. Records without a date come last: they may be of any day. None for a
/// standard that is not in the inventory; nothing after an error, which is reported as "History,standardUse".
std::optional<QList<StandardUse>> usesOfStandard(Session& session, const QString& standard,
                                                 const QDate& since);

} // namespace kelvane
