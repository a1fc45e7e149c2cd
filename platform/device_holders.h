#pragma once

#include <QList>
#include <QString>

namespace kelvane {

/// A process that keeps a device.
struct DeviceHolder {
    qint64 process = 0;
    /// Its name; empty when the system doesn't tell it.
    QString program;
    friend bool operator==(const DeviceHolder&, const DeviceHolder&) = default;
};

/// The other processes that have a device open, or have locked it by a lock file, as far as this user may see
/// them. None where the system tells nothing of it.
QList<DeviceHolder> otherHoldersOf(const QString& device);

/// Removes lock files of a device that their programs made more than a second ago and did not fill: a program
/// that was killed while it locked the device would keep every other one from it for half a minute.
void removeUnfinishedLocks(const QString& device);

/// True when this user may read and write the device.
bool mayUse(const QString& device);

} // namespace kelvane
