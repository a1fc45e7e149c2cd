#pragma once

#include "data/session.h"

namespace kelvane {

class Routine;

/// The session values that the database holds: of the user, and of the site.
struct DatabaseValues {
    QString owner;
    qint16 level = 0;
    QString dateFormat;
    qint16 version = 0;
    bool bCal4225 = false;
    bool bCal4224 = false;
    bool bCalP = false;
    bool operator==(const DatabaseValues&) const = default;
};

DatabaseValues databaseValuesOf(const Session& session);
void setDatabaseValues(Session& session, const DatabaseValues& values);

/// Fills the session values that the database holds for a user, over the open connection: owner and level
/// from the list of users, date format, version and switches from the site's configuration. Throws the
/// `Error` that stopped it; what was filled before stays.
void readSessionValues(Session& session, const QString& user);

/// The lowest level that may edit procedures at this site, read anew at each call. Runs under the routine
/// that is given, and throws what fails.
double levelOfProcedureEditors(Routine& routine);

/// True for a level from 1 to 5 that may edit procedures and task packages; no other level may. Runs under
/// the routine that is given, and throws what fails.
bool mayEditProcedures(Routine& routine, qint16 level);

} // namespace kelvane
