#pragma once

#include "platform/settings_store.h"

#include <QHash>
#include <QStringList>

namespace kelvane {

/// The devices that a command line names for the ports, as "--port COM1=/dev/ttyUSB0" or
/// "--port=COM1=/dev/ttyUSB0", by port. Other words are passed over.
QHash<QString, QString> portsOf(const QStringList& arguments);

/// Lays the files that a command line names, as "--texts FILE" or "--texts=FILE", over the table of texts.
/// Without the option no file is. Returns what can't be read, for the log; an empty text otherwise.
QString overlayTextsOf(const QStringList& arguments);

/// True when a command line has the option "--worksheets".
bool wantsWorksheets(const QStringList& arguments);

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
