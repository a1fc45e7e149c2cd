#pragma once

#include "data/session.h"
#include "platform/database/sql.h"

#include <QList>

namespace kelvane {

class Routine;

/// An instrument of the inventory.
struct AssetEntry {
    QString asset = {};
    QString mtag = {};
    QString serial = {};
};

namespace ModuleGlobals {

/// The asset number of the instrument with this serial number, or empty. Reported as
/// "ModuleGlobals,AssetfromSerial".
QString AssetfromSerial(Session& session, const QString& serial);
/// The first asset whose serial number and asset number begin so; any of them when there are several.
QString AssetfromSerial(Session& session, const QString& serial_start, const QString& asset_start);

/// The `mtag` of an asset, or empty when it doesn't exist.
QString CheckAsset(Session& session, const QString& asset);
/// True when the inventory has the asset; quotes in its number are doubled. Runs under the routine that is
/// given, and throws what fails.
bool isInInventory(const Session& session, Routine& routine, const QString& asset);

/// The instruments of a task package, by its name or tag; none for an unknown package or after an error. More
/// than 501 are error 9.
QList<AssetEntry> GetAssetsInTaskPackage(Session& session, const QString& task);

/// True when instruments were put into the package of that tag, whether the inventory knows them or not.
bool PackageHasMembers(Session& session, const QString& tag);

/// The instruments in use with the standard (a calibrator) of that serial number; none after an error. More
/// than 501 are error 9. Reported as "ModuleGlobals,GetAssetsInTaskPackage" like the routine above.
QList<AssetEntry> GetAssetsInUseWithStandard(Session& session, const QString& serial);

/// "select mtag from OWNER.inventory where i4201 = 'ASSET'". The number is inserted unchanged.
Sql mtagQuery(const Session& session, const QString& asset);
/// "(select mtag from OWNER.inventory where i4201 = 'ASSET')", the way in which every statement finds an
/// instrument's key; the asset number is inserted unchanged.
Sql mtagOf(const Session& session, const QString& asset);

} // namespace ModuleGlobals
} // namespace kelvane
