#pragma once

#include <QString>

namespace kelvane::admin {

/// Where a database is: a folder with the files of the embedded engine, or a database of a server.
struct DatabaseAddress {
    /// As it was given; a folder as an absolute path.
    QString text;
    bool isServer = false;

    // Of a server only:
    /// The host, or the folder of its socket.
    QString host = {};
    QString port = {};
    QString database = {};
    /// The kind of encryption that the address asks for; empty when it does not.
    QString sslMode = {};
    /// The file with the certificates that the server's own is checked against; empty for that of the user.
    QString rootCertificate = {};

    bool isSocket() const { return host.startsWith(u'/'); }
};

/// Reads an address. Throws `Failure` for one that can't be understood, and for one that holds a password:
/// everybody on the machine can read the command line.
DatabaseAddress databaseAddress(const QString& text);

} // namespace kelvane::admin
