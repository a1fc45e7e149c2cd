#pragma once

#include "data/history/standard_use.h"
#include "reports/report.h"

#include <QDate>

namespace kelvane {

/// What the list of the calibrations with a standard says.
struct StandardUseList {
    Standard standard = {};
    QDate since = {};
    QList<StandardUse> uses = {};
};

/// How many of them have no readable date.
qsizetype undatedUses(const QList<StandardUse>& uses);
/// Of which standard since which day, how many calibrations and instruments they are, and how many of them
/// have no readable date.
QString standardUseCounts(const StandardUseList& list);

/// The title of the list on paper.
QString standardUseTitle(const StandardUseList& list);
/// The list as a report, asked for by the session's user now, by the layout "kvuses.rpt": that of the first
/// of these folders that has one, otherwise the one that is installed. Throws `ReportError`.
Report standardUseReport(const Session& session, const StandardUseList& list, const QStringList& folders);

} // namespace kelvane
