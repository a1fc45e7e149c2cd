#pragma once

#include "platform/settings_store.h"

#include <QHash>
#include <QStringList>

namespace kelvane {

/// The devices that a command line names for the ports, as "--port COM1=/dev/ttyUSB0" or
/// "--port=COM1=/dev/ttyUSB0", by port. Other words are passed over.
QHash<QString, QString> portsOf(const QStringList& arguments);

/// A settings store whose section "Ports" is answered by the command line first. They hold for this start
/// only: nothing of it is stored.
class SettingsWithPorts final : public SettingsStore {
  public:
    SettingsWithPorts(SettingsStore& store, QHash<QString, QString> ports);
    QString value(const QString& section, const QString& key) const override;
    void setValue(const QString& section, const QString& key, const QString& value) override;

  private:
    SettingsStore& store_;
    QHash<QString, QString> ports_;
};

} // namespace kelvane
