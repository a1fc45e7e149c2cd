#include "platform/settings_store.h"

#include "platform/error.h"

#include <QFile>
#include <QSettings>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// A name as one level of the file: the characters that would part it into several levels are written as
/// codes. An empty name, which the file can't hold, is a lone "%".
QString asLevel(QString name) {
    if (name.isEmpty())
        return u"%"_s;
    return name.replace(u'%', "%25"_L1).replace(u'/', "%2F"_L1).replace(u'\\', "%5C"_L1);
}

QString place(const QString& section, const QString& key) {
    return asLevel(section) + u'/' + asLevel(key);
}

/// True when a line is none that a settings file can have. A file that was cut off or overwritten shows so.
bool isDamaged(const QString& path) {
    QFile file(path);
    if (!file.exists())
        return false;
    if (!file.open(QIODevice::ReadOnly))
        throw makeError(ErrorNumber::pathFileAccess);
    while (!file.atEnd()) {
        const auto line = file.readLine().trimmed();
        const bool known = line.isEmpty() || line.startsWith(';') || line.startsWith('#') ||
                           (line.startsWith('[') && line.endsWith(']')) || line.contains('=');
        if (!known || line.contains('\0'))
            return true;
    }
    return false;
}

void putAside(const QString& path) {
    const QString kept = path + u".damaged"_s;
    QFile::remove(kept);
    if (!QFile::rename(path, kept))
        throw makeError(ErrorNumber::pathFileAccess);
}

} // namespace

IniSettingsStore::IniSettingsStore(QString path) : path_(std::move(path)) {}

QString IniSettingsStore::value(const QString& section, const QString& key) const {
    if (isDamaged(path_))
        return {};
    const auto stored = QSettings(path_, QSettings::IniFormat).value(place(section, key));
    // A value with commas that somebody entered by hand, without quotes, comes as a list.
    return stored.toStringList().join(u", "_s);
}

void IniSettingsStore::setValue(const QString& section, const QString& key, const QString& value) {
    if (isDamaged(path_))
        putAside(path_);
    QSettings settings(path_, QSettings::IniFormat);
    const auto name = place(section, key);
    const auto before = settings.value(name);
    settings.setValue(name, value);
    settings.sync();
    if (settings.status() == QSettings::NoError)
        return;
    // Without this the value would stay in memory and be read back as if it were stored.
    if (before.isValid())
        settings.setValue(name, before);
    else
        settings.remove(name);
    throw makeError(ErrorNumber::pathFileAccess);
}

QString IniSettingsStore::defaultPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/KELVANE.ini"_s;
}

} // namespace kelvane
