#include "drivers/asset_entries.h"

#include "data/assets/in_use.h"
#include "data/routine.h"
#include "resources/strings.h"
#include "resources/text_id.h"

namespace kelvane {

QString readPackage(Session& session, const QString& tag, QList<AssetEntry>& entries) {
    const ReportWatch reading(session);
    entries = ModuleGlobals::GetAssetsInTaskPackage(session, tag);
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
