#pragma once

#include <QString>

namespace kelvane::testing {

inline const QString discardSinceSave =
    QStringLiteral("Are you sure you want to discard any changes made since last save?");
inline const QString discardChanges = QStringLiteral("Are you sure you want to discard changes made?");

} // namespace kelvane::testing
