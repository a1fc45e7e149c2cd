#pragma once

#include "data/session.h"

#include <QDate>
#include <QMap>

namespace kelvane {

/// How often instruments were in tolerance as they were found.
struct PassRate {
    qint64 passed = 0;
    qint64 failed = 0;

    qint64 counted() const { return passed + failed; }
    /// 0 to 100; of none it is 0.
    double percent() const {
        return counted() == 0 ? 0 : static_cast<double>(passed) * 100 / static_cast<double>(counted());
    }
};

/// The pass rates of a time, and the records that had to be left out.
struct PassRates {
    /// The first and the last day that is counted.
    QDate since = {};
    QDate until = {};
    PassRate all = {};
    /// By months as "2026-03"; the months between the first and the last one are all there.
    QMap<QString, PassRate> byMonth = {};
    /// Empty for instruments without one, as for records of an instrument that is not in the inventory.
    QMap<QString, PassRate> byModel = {};
    QMap<QString, PassRate> byGroup = {};

    /// Without a readable date, so that they may be of any day.
    qint64 undated = 0;
    qint64 inFuture = 0;
    /// Of another state than AS-FOUND, FOUND-LEFT and AS-LEFT.
    qint64 otherState = 0;
    /// Neither passed nor failed.
    qint64 otherResult = 0;
};

/// Counts the records as found of all instruments of the session's owner, from a day on until today: those of
/// the states AS-FOUND and FOUND-LEFT. A record is in one count only, of these and of what was left out, in
/// the order above; those as left are in none. Nothing after an error, which is reported as
/// "History,passRates".
std::optional<PassRates> passRatesSince(Session& session, const QDate& since);

} // namespace kelvane
