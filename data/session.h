#pragma once

#include "data/tolerances/result_template.h"
#include "platform/database/connection.h"
#include "platform/values/fixed_list.h"
#include "platform/workstation.h"

#include <memory>

namespace kelvane {

/// A substitution row of the result template.
struct SubstRow {
    /// Two characters, upper-cased.
    QString code;
    QString from;
    QString to;
};

/// The session values: one set for the whole program, passed to every routine. They stay after log out and
/// are overwritten by the next login.
struct Session : Workstation {
    Session(const Workstation& workstation, ConnectionFactory connections)
        : Workstation(workstation), makeConnection(std::move(connections)) {}

    /// The one connection; made by its first use (see `sharedConnection`), released by log out.
    std::unique_ptr<Connection> SharedConnection;
    ConnectionFactory makeConnection;

    QString SessionDataSource;
    QString SessionUser;
    QString SessionPassword;
    /// Prefix of the tables `inventory`, `calibration`, `location`, `repair` and `customers`.
    QString SessionOwner;
    qint16 SessionLevel = 0;
    /// "MM/DD/YYYY", "DD/MM/YYYY", "YYYY/MM/DD", or empty.
    QString SessionDateFormat;
    qint16 SessionDbVersion = 0;
    bool BCal4225 = false;
    bool BCal4224 = false;
    bool BCalP = false;
    /// True from a good login to log out, or until the connection is lost.
    bool SessionConnected = false;
    /// How many errors routines have reported so far, but for those that came during a question of another
    /// routine.
    int reportCount = 0;
    /// True once an unreadable journal has been reported, until it can be read again.
    bool hasReportedJournal = false;

    bool CommandLineFlag = false;
    QString WinDir;
    FixedList<SubstRow, 500> SubstTable;
    /// The body line of the result template, upper-cased; empty: results can't be laid out in this session.
    ResultTemplate ResultTemplateLine;
};

/// The one connection of the session, made on first use.
Connection& sharedConnection(Session& session);

/// Closes the connection, if there is one, because its work or the process ends. A failure is not reported.
void closeConnection(Session& session);

} // namespace kelvane
