#pragma once

#include <QHash>
#include <QString>

namespace kelvane::testing {

/// Adds a data source of these settings for this program; gives its name, which is never used twice.
QString addDataSource(const QHash<QString, QString>& settings);

} // namespace kelvane::testing
