#include "app/command_line.h"

using namespace Qt::StringLiterals;

namespace kelvane {

QHash<QString, QString> portsOf(const QStringList& arguments) {
    QHash<QString, QString> ports;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        QString choice;
        if (arguments[i] == u"--port" && i + 1 < arguments.size())
            choice = arguments[++i];
        else if (arguments[i].startsWith(u"--port="))
            choice = arguments[i].mid(7);
        const auto equals = choice.indexOf(u'=');
        if (equals > 0)
            ports.insert(choice.left(equals).toUpper(), choice.mid(equals + 1));
    }
    return ports;
}

SettingsWithPorts::SettingsWithPorts(SettingsStore& store, QHash<QString, QString> ports)
    : store_(store), ports_(std::move(ports)) {}

QString SettingsWithPorts::value(const QString& section, const QString& key) const {
    if (section == u"Ports") {
        if (const auto named = ports_.constFind(key); named != ports_.cend())
            return *named;
    }
    return store_.value(section, key);
}

void SettingsWithPorts::setValue(const QString& section, const QString& key, const QString& value) {
    store_.setValue(section, key, value);
}

} // namespace kelvane
