#include "drivers/asset_entries.h"

#include "data/assets/assets.h"
#include "data/assets/in_use.h"
#include "data/routine.h"
#include "resources/strings.h"

namespace kelvane {

QList<AssetEntry> assetEntries(const Session& session, int count) {
    QList<AssetEntry> entries;
    for (int i = 0; i < count; ++i)
        entries << session.AssetList[i];
    return entries;
}

QString readPackage(Session& session, const QString& tag, QList<AssetEntry>& entries) {
    const ReportWatch reading(session);
    entries = assetEntries(session, ModuleGlobals::GetAssetsInTaskPackage(session, tag));
    const bool isUnknown =
        entries.isEmpty() && !reading.sawReport() && ModuleGlobals::PackageHasMembers(session, tag);
    return isUnknown ? text(TextId::downloadInstrumentsUnknown) : QString();
}

void registerInUse(Session& session, const QString& serial, const QList<AssetEntry>& entries) {
    ModuleGlobals::ClearInUse(session, serial);
    for (const auto& entry : entries)
        ModuleGlobals::AddInUse(session, serial, entry.mtag, session.SessionUser);
}

} // namespace kelvane
