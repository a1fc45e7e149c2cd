#pragma once

#include "data/session.h"

namespace kelvane {

/// The login that a report's connect string holds.
struct ReportLogin {
    QString dataSource;
    QString user;
    QString password;
};

/// Takes "DSN = name;UID = user;PWD = password" apart. Nothing in it is escaped: the password is the whole
/// rest, whatever it holds. Throws a `ReportError` that quotes nothing of it.
ReportLogin reportLogin(const QString& connect);

/// Opens the connection of a session with the login, and fills the session values of its user. Throws a
/// `ReportError` that names data source and user; the error itself is reported, too.
void logIn(Session& session, const ReportLogin& login);

} // namespace kelvane
