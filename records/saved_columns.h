#pragma once

#include "platform/workstation.h"

#include <QList>

class QHeaderView;

namespace kelvane {

/// A column of a table whose order, width and choice the user can change.
struct SavedColumn {
    /// In the settings; letters alone.
    QString name;
    bool isShownAtFirst = true;
};

/// Lays the columns out as they were left the last time: section "Records" of the settings, key the table's
/// name, columns from left to right as "Asset=120,-Model", with a minus before those that are not shown, and
/// with the widths that somebody has set. What is not stored there, or is no such entry, stays as it is at
/// first. True when widths are stored.
bool restoreColumns(const Workstation& workstation, const QString& table, const QList<SavedColumn>& columns,
                    QHeaderView& header);
/// Stores them, unless they are stored so already.
void storeColumns(const Workstation& workstation, const QString& table, const QList<SavedColumn>& columns,
                  const QHeaderView& header, bool areWidthsSet);

/// The numbers of the columns that are shown, from left to right.
QList<int> shownColumns(const QHeaderView& header);

} // namespace kelvane
