#pragma once

#include "data/session.h"

#include <QList>

#include <utility>

namespace kelvane {

/// The first `count` entries of the asset list, taken out of it: while a long routine asks the operator
/// something, another screen may fill the list anew.
inline QList<AssetEntry> assetEntries(const Session& session, int count) {
    QList<AssetEntry> entries;
    for (int i = 0; i < count; ++i)
        entries << session.AssetList[i];
    return entries;
}

} // namespace kelvane
