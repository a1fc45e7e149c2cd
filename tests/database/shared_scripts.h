#pragma once

#include "tests/database/script_server.h"

#include <QTemporaryDir>

namespace kelvane::testing {

/// What the tests of the scripts for a server have in common.
class SharedScripts : public ScriptServer {
  protected:
    /// All definitions, rights and rows of a database, as text.
    static QString contentOfServer(const QString& database);
    static QString version(const QString& database);
    /// The number of databases on the server.
    static int databases();
    /// The groups that a login is in.
    static QString groupsOf(const QString& login);

    /// Adds to a file of a copy of the scripts.
    void write(const QString& file, const QByteArray& text) const;
    /// Writes a script of the copy anew.
    void replace(const QString& file, const QByteArray& text) const;
    Outcome runCopy(const QString& script, const QStringList& arguments) const;
    /// The folder of the copy.
    QString copyOfScripts() const;

    QTemporaryDir folder;
};

} // namespace kelvane::testing
