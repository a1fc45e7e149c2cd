#pragma once

#include <QFile>
#include <QHash>

namespace kelvane {

/// The locks that the connections of an embedded database have among each other: each name is a byte of the
/// empty file "kelvane.lock" beside the database. They end with this object, and with the process in whatever
/// way. Two names may share a byte: then one waits for the other.
class EmbeddedLocks {
  public:
    /// The path of the lock file beside `database`, the file of the accounts.
    static QString fileBeside(const QString& database);
    /// The byte of a name; the same in every version of the program.
    static qint64 byteOf(const QString& name);

    bool isOpen() const { return file_.isOpen(); }
    /// Opens the lock file beside `database`, and makes it where there is none, for the same users. Error 75
    /// when that fails.
    void open(const QString& database);
    /// Tries to take the lock; false while another connection has it. Whoever takes a byte more than once
    /// releases it as often. Error 75 where the folder knows no locks.
    bool take(const QString& name);
    /// Does nothing for a lock that was not taken.
    void release(const QString& name);

  private:
    QFile file_;
    /// How often each byte has been taken.
    QHash<qint64, int> taken_;
};

} // namespace kelvane
