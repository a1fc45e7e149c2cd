#include "app/command_line.h"

#include "resources/strings.h"
#include "resources/text_id.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

const QString portOption = u"--port"_s;
const QString textsOption = u"--texts"_s;
const QString worksheetsOption = u"--worksheets"_s;

/// An option of the command line. A switch has no value.
struct Option {
    QString name;
    QString value;
};

/// The options, as "--option value", "--option=value" or "--switch". The value of one option is never
/// another; one that lacks its value is left out.
QList<Option> optionsOf(const QStringList& arguments) {
    QList<Option> options;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const auto name = arguments[i].section(u'=', 0, 0);
        if (arguments[i] == worksheetsOption)
            options << Option{arguments[i], {}};
        if (name != portOption && name != textsOption)
            continue;
        const bool isInOneWord = name.size() < arguments[i].size();
        if (!isInOneWord && ++i == arguments.size())
            break;
        options << Option{name, isInOneWord ? arguments[i].mid(name.size() + 1) : arguments[i]};
    }
    return options;
}

QStringList valuesOf(const QString& option, const QStringList& arguments) {
    QStringList values;
    const auto options = optionsOf(arguments);
    for (const auto& given : options) {
        if (given.name == option)
            values << given.value;
    }
    return values;
}

} // namespace

QHash<QString, QString> portsOf(const QStringList& arguments) {
    QHash<QString, QString> ports;
    for (const auto& choice : valuesOf(portOption, arguments)) {
        const auto equals = choice.indexOf(u'=');
        if (equals > 0)
            ports.insert(choice.left(equals).toUpper(), choice.mid(equals + 1));
    }
    return ports;
}

QString overlayTextsOf(const QStringList& arguments) {
    QStringList unreadable;
    for (const auto& path : valuesOf(textsOption, arguments)) {
        if (!overlayStrings(path))
            unreadable << text(TextId::textsFileUnreadable).arg(path);
    }
    return unreadable.join(u' ');
}

bool wantsWorksheets(const QStringList& arguments) {
    const auto options = optionsOf(arguments);
    return std::any_of(options.cbegin(), options.cend(),
                       [](const Option& option) { return option.name == worksheetsOption; });
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
