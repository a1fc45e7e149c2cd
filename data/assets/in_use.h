#pragma once

#include "data/session.h"

namespace kelvane {

/// When an instrument was sent to a calibrator, and by whom. The two keys stay empty: the caller knows them.
struct InUseData {
    QString serial_number;
    Moment entered_date;
    QString mtag;
    QString tech;
};

namespace ModuleGlobals {

/// Registers an instrument on the calibrator of that serial number, and the calibrator as its standard. An
/// empty `tech` is stored as null.
void AddInUse(Session& session, const QString& serial, const QString& mtag, const QString& tech);
/// Deletes the registrations of a calibrator, and every row older than 30 days.
void ClearInUse(Session& session, const QString& serial);
/// When the instrument was sent to the calibrator, and by whom; empty values without a row.
InUseData GetInUseData(Session& session, const QString& serial, const QString& mtag);
/// Fills `StandardsInUse` for an asset; gives the number of entries, 0 after an error (reported as
/// "ModuleGlobals,GetInUseData").
qint16 GetStandardsInUse(Session& session, const QString& asset);
/// Deletes rows and packages older than 90 days; called at each login.
void ClearSystemTables(Session& session);

} // namespace ModuleGlobals
} // namespace kelvane
