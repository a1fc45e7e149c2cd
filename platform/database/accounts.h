#pragma once

#include <QByteArray>
#include <QString>

namespace kelvane {

/// True when `password` gives `hash`, a hash with its setting in front ("$y$j9T$...$..."). The time depends
/// on the setting alone. An invalid hash, and a password with a character of code 0, match nothing.
bool passwordMatches(const QString& password, const QByteArray& hash);

/// A new hash of a password in UTF-8, each time another one; empty when it can't be made.
QByteArray newHash(const QByteArray& password);

/// A hash that no password gives, at the usual cost: for a name that has no account, so that the answer takes
/// as long as for one that has.
QByteArray dummyHash();

} // namespace kelvane
