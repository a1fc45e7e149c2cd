#pragma once

#include "data/session.h"

#include <QStringList>

#include <functional>

class QWidget;

namespace kelvane {

/// What the making of a package needs of the program around it: its own connections only read.
struct PackageAccess {
    /// They may write.
    ConnectionFactory connections = {};
    /// Opens the connection of a session for a user and fills the session values; throws the `Error` that
    /// stopped it.
    std::function<void(Session& session, const QString& user, const QString& password)> logIn = {};
};

/// Makes a predefined task package of instruments, as the editor of packages would: asks over `window` for
/// the login of a user who may edit packages, tells which of the instruments can't be part of one, and asks
/// for a name until it is free. The package is stored as a whole or not at all, over a connection that is
/// closed at once. `tell` gets what has become of it, unless the user gave up or was told in a box.
void makePackage(const Session& session, const PackageAccess& access, const QStringList& assets,
                 QWidget* window, const std::function<void(const QString& outcome)>& tell);

} // namespace kelvane
