#include "app/login.h"

#include "app/menu_options.h"
#include "data/assets/in_use.h"
#include "data/routine.h"
#include "data/session_values.h"
#include "platform/values/texts.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace kelvane {

QString chosenDataSource(const Session& session) {
    const auto stored = ModuleGlobals::GetRegSetting(session, u"Workstation"_s, u"ODBC"_s);
    return stored.isEmpty() ? u"Calibration Data"_s : stored;
}

void logIn(Session& session, Menu& menu, const QString& username, const QString& password) {
    const auto name = trimBlanks(username);
    session.SessionDataSource = chosenDataSource(session);
    sharedConnection(session).open(u"DSN="_s + session.SessionDataSource, name, trimBlanks(password));
    ModuleGlobals::SaveRegSetting(session, u"Defaults"_s, u"Username"_s, username);
    session.SessionPassword = trimBlanks(password);
    session.SessionUser = name;
    session.SessionConnected = true;
    enableMenuForLogin(menu);
    readSessionValues(session, name);
    ModuleGlobals::SetMenuOptions(session, menu);
    ModuleGlobals::ClearSystemTables(session);
}

void logInToRead(Session& session, const QString& dataSource, const QString& user, const QString& password) {
    const auto name = trimBlanks(user);
    session.SessionDataSource = dataSource;
    sharedConnection(session).open(u"DSN="_s + dataSource, name, trimBlanks(password));
    session.SessionUser = name;
    session.SessionConnected = true;
    readSessionValues(session, name);
}

bool logInAgain(Session& session, Menu& menu, const QString& password) {
    const auto before = databaseValuesOf(session);
    auto undo = qScopeGuard([&] {
        closeConnection(session);
        setDatabaseValues(session, before);
    });
    // The same object stays: a command that waits behind the screens may use it.
    closeConnection(session);
    sharedConnection(session).open(u"DSN="_s + session.SessionDataSource, session.SessionUser,
                                   trimBlanks(password));
    readSessionValues(session, session.SessionUser);
    if (databaseValuesOf(session) != before)
        return false;
    undo.dismiss();
    session.SessionPassword = trimBlanks(password);
    session.SessionConnected = true;
    ModuleGlobals::SetMenuOptions(session, menu);
    return true;
}

void disconnectSession(Session& session) {
    if (!session.SessionConnected)
        return;
    // Released in any case: a connection that can't even be closed is of no more use.
    const auto released = qScopeGuard([&session] {
        session.SharedConnection.reset();
        session.SessionConnected = false;
    });
    Routine routine(session, u"MDIFormMain,mnuLogout"_s);
    routine.run([&session] { sharedConnection(session).close(); });
}

} // namespace kelvane
