#pragma once

#include "data/session.h"
#include "platform/database/sql.h"

namespace kelvane::ModuleGlobals {

/// The asset number of the instrument with this serial number, or empty. Reported as
/// "ModuleGlobals,AssetfromSerial".
QString AssetfromSerial(Session& session, const QString& serial);
/// The first asset whose serial number and asset number begin so; any of them when there are several.
QString AssetfromSerial(Session& session, const QString& serial_start, const QString& asset_start);

/// The `mtag` of an asset, or empty when it doesn't exist.
QString CheckAsset(Session& session, const QString& asset);

/// Fills `AssetList` from a task package's name or tag; gives the number of entries, 0 for an unknown
/// package.
qint16 GetAssetsInTaskPackage(Session& session, const QString& task);

/// True when instruments were put into the package of that tag, whether the inventory knows them or not.
bool PackageHasMembers(Session& session, const QString& tag);

/// Fills `AssetList` with the instruments in use with the standard (a calibrator) of that serial number;
/// gives the number of entries. Reported as "ModuleGlobals,GetAssetsInTaskPackage" like the routine above.
qint16 GetAssetsInUseWithStandard(Session& session, const QString& serial);

/// "select mtag from OWNER.inventory where i4201 = 'ASSET'". The number is inserted unchanged.
Sql mtagQuery(const Session& session, const QString& asset);
/// "(select mtag from OWNER.inventory where i4201 = 'ASSET')", the way in which every statement finds an
/// instrument's key; the asset number is inserted unchanged.
Sql mtagOf(const Session& session, const QString& asset);

} // namespace kelvane::ModuleGlobals
