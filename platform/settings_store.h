#pragma once

#include <QString>

namespace kelvane {

/// The small local store of a workstation's user: application "KELVANE", section, key.
class SettingsStore {
  public:
    virtual ~SettingsStore() = default;
    /// The stored text, or an empty one. Throws `Error` when the store can't be read.
    virtual QString value(const QString& section, const QString& key) const = 0;
    /// Stores a text; throws error 75 when it can't be stored.
    virtual void setValue(const QString& section, const QString& key, const QString& value) = 0;
};

/// The store in an INI file, the same on every platform: "[section]", "key=value", comment lines behind ";"
/// or "#", UTF-8; control characters, "%" and blanks at the ends stand as "%20". A user may edit it: comments
/// and order stay. Each call reads the file anew, so that stores of several programs agree, and a stored
/// value is on the disk when `setValue` returns. A damaged file counts as empty and is kept as
/// "<name>.damaged" when the next value is written.
class IniSettingsStore final : public SettingsStore {
  public:
    explicit IniSettingsStore(QString path);
    QString value(const QString& section, const QString& key) const override;
    void setValue(const QString& section, const QString& key, const QString& value) override;

    /// The user's own file of the application "KELVANE".
    static QString defaultPath();

  private:
    QString path_;
};

} // namespace kelvane
