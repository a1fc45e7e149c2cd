#pragma once

#include "data/session.h"

#include <QStringList>

namespace kelvane {

class Routine;

/// When an instrument was sent to a calibrator, and by whom. The two keys stay empty: the caller knows them.
struct InUseData {
    QString serial_number;
    Moment entered_date;
    QString mtag;
    QString tech;
};

namespace ModuleGlobals {

inline constexpr qsizetype maxStandardsInUse = 51;

/// Registers an instrument on the calibrator of that serial number, and the calibrator as its standard. An
/// empty `tech` is stored as null.
void AddInUse(Session& session, const QString& serial, const QString& mtag, const QString& tech);
/// Deletes the registrations of a calibrator, and every row older than 30 days.
void ClearInUse(Session& session, const QString& serial);
/// When the instrument was sent to the calibrator, and by whom; empty values without a row.
InUseData GetInUseData(Session& session, const QString& serial, const QString& mtag);
/// The asset numbers of the standards in use with an asset. After an error, reported as
/// "ModuleGlobals,GetInUseData", they are given as far as they were read; more than `maxStandardsInUse` are
/// error 9.
QStringList GetStandardsInUse(Session& session, const QString& asset);

// What follows runs under the routine that is given, and throws what fails. Asset numbers are inserted
// unchanged.

/// Registers a standard as in use with an asset.
void addStandardInUse(const Session& session, Routine& routine, const QString& standard,
                      const QString& asset);
/// Deletes the standards in use with an asset.
void clearStandardsInUse(const Session& session, Routine& routine, const QString& asset);
/// The asset number of the standard that an asset had last; empty when it is not known.
QString lastStandard(const Session& session, Routine& routine, const QString& asset);
/// Notes the standard that an asset has now; one that was noted before stays until it is forgotten.
void addLastStandard(const Session& session, Routine& routine, const QString& standard, const QString& asset);
void forgetLastStandard(const Session& session, Routine& routine, const QString& asset);

/// Deletes rows and packages older than 90 days; called at each login.
void ClearSystemTables(Session& session);

} // namespace ModuleGlobals
} // namespace kelvane
