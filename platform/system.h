#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

class QFile;

namespace kelvane {

// What each operating system does in its own way. Only these routines' sources, one for each system, use its
// headers and libraries.

/// Device and number of a file: together they are it, whatever it is called.
struct FileIdentity {
    quint64 device = 0;
    quint64 number = 0;
    bool operator==(const FileIdentity&) const = default;
};
/// The identity of the file at a path as the system takes it; nothing when there is none. Where a file that
/// is open can't be removed, every path has the same one.
std::optional<FileIdentity> identify(const QByteArray& path);

/// Returns when what was written to the file is on the disk; false when that failed.
bool flushToDisk(QFile& file);
/// The same for the names in a folder: a new file's name would otherwise not survive a power failure.
void flushFolder(const QString& path);

/// How a try to lock a byte of a file has ended.
enum class ByteLock { taken, heldElsewhere, failed };
/// Tries to lock the byte at `offset`, which the file need not have. Nobody else who has opened the file, in
/// this process or another, gets the same byte until `unlockByte`, the closing of `file`, or the end of the
/// process.
ByteLock lockByte(QFile& file, qint64 offset);
void unlockByte(QFile& file, qint64 offset);

/// True when there is a library of that file name, such as "libx.so", where the system looks for libraries,
/// or in one of the folders, whether or not it can be loaded. By default they are those of a site's own
/// libraries, of which the system knows only what `ldconfig` has found sound.
bool isLibraryInstalled(const QString& file, const QStringList& folders = {QStringLiteral("/usr/local/lib")});

/// Waits until a serial port, by its handle, has sent everything. Does nothing where closing waits for that.
void drainSerialPort(qintptr handle);

/// The hash of a phrase under a setting ("$y$j9T$..."), the setting in front. Empty when it is none, and
/// where there is no library that computes it.
QByteArray hashOf(const QByteArray& phrase, const QByteArray& setting);
/// A new setting for `hashOf`, of the strongest kind at its usual cost, with random characters of its own.
/// Empty where there is no such library.
QByteArray newHashSetting();

} // namespace kelvane
