#pragma once

#include "platform/database/connection.h"

#include <QSet>
#include <QStringList>

namespace kelvane::endure {

/// Records of calibrations that the run has not made, with their lines and standards.
struct SiteRows {
    QStringList records; ///< sorted, as are the others
    QStringList lines;
    QStringList standards;
};

/// Reads what belongs to none of the records `own`, which are keys (ctag).
SiteRows readSiteRows(Connection& connection, const QSet<QString>& own = {});

/// What has become of these rows, which nobody edits: none for rows that are all as they were.
QStringList faultsOfSiteRows(const SiteRows& before, const SiteRows& after);

} // namespace kelvane::endure
