#include "app/command_line.h"

#include "drivers/serial_ports.h"
#include "platform/communication_log.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

const QString logOption = u"log"_s;
const QString portOption = u"port"_s;
const QString textsOption = u"texts"_s;
const QString worksheetsOption = u"worksheets"_s;
const QString userFolderOption = u"user-folders"_s;

/// What the toolkit and its platforms take out of a command line by themselves.
QList<ProgramOption> toolkitOptions() {
    const auto named = [](const QString& name, const QString& value) {
        return ProgramOption{.name = name, .value = value, .mayHaveOneDash = true};
    };
    QList<ProgramOption> options;
    for (const auto* name : {"display", "geometry", "icon", "name", "platform", "platformpluginpath",
                             "platformtheme", "plugin", "qmljsdebugger", "qwindowgeometry", "qwindowicon",
                             "qwindowtitle", "session", "style", "stylesheet", "title"})
        options << named(QString::fromLatin1(name), u"VALUE"_s);
    for (const auto* name : {"dograb", "nograb", "reverse", "widgetcount"})
        options << named(QString::fromLatin1(name), {});
    return options;
}

QList<ProgramOption> ownOptions() {
    return {
        {logOption,
         {},
         u"logs the communication with every calibrator during this start; the configuration of the "
         "calibrators opens the log"_s},
        {portOption, u"PORT=DEVICE"_s,
         u"the device of a calibrator's port for this start, by its path or what it is, such as "
         "COM1=/dev/ttyUSB0 or COM1=A50285BI; may be given several times"_s},
        {textsOption, u"FILE"_s,
         u"lays a table of texts over the program's own; may be given several times"_s},
        {userFolderOption,
         {},
         u"works in the user's own folder ($XDG_DATA_HOME/kelvane, otherwise ~/.local/share/kelvane) instead "
         "of the current one"_s},
        {worksheetsOption, {}, u"shows the entries of paper worksheets in the menu"_s},
    };
}

bool isPassedOver(const QString& word) {
    return word.contains(u"KFDJ"_s, Qt::CaseInsensitive);
}

/// The port and the device of a value of `--port`; nothing when it has not both, or there is no such port.
std::optional<std::pair<QString, QString>> portOf(const QString& value) {
    const auto equals = value.indexOf(u'=');
    const auto port = value.left(equals).toUpper();
    if (equals < 0 || equals + 1 == value.size() || !portNames().contains(port))
        return {};
    return std::pair{port, value.mid(equals + 1)};
}

} // namespace

const Program& workstationCommandLine() {
    static const Program program{
        .name = u"kelvane"_s,
        .usage = u"[OPTION]..."_s,
        .description = u"The workstation: calibrates process instruments with documenting calibrators.\n"
                       "It works in the current folder: \"errors.log\" and the result template stand there.\n"
                       "Options of the toolkit, such as -platform and -style, count too."_s,
        .options = ownOptions() + toolkitOptions(),
        .isPassedOver = isPassedOver,
    };
    return program;
}

GivenOptions workstationOptions(const QStringList& words) {
    const auto& program = workstationCommandLine();
    const auto options = readCommandLine(program, words);
    for (const auto& value : options.values(portOption)) {
        if (!portOf(value))
            throw usageAnswer(program.name,
                              u"--port needs one of the ports COM1 to COM4 and its device, such as "
                              "COM1=/dev/ttyUSB0"_s);
    }
    return options;
}

QHash<QString, QString> portsOf(const GivenOptions& options) {
    QHash<QString, QString> ports;
    for (const auto& value : options.values(portOption)) {
        if (const auto port = portOf(value))
            ports.insert(port->first, port->second);
    }
    return ports;
}

QString overlayTextsOf(const GivenOptions& options) {
    QStringList unreadable;
    for (const auto& path : options.values(textsOption)) {
        if (!overlayStrings(path))
            unreadable << text(TextId::textsFileUnreadable).arg(path);
    }
    return unreadable.join(u' ');
}

bool wantsWorksheets(const GivenOptions& options) {
    return options.isSet(worksheetsOption);
}

bool wantsUserFolder(const GivenOptions& options) {
    return options.isSet(userFolderOption);
}

bool wantsLogs(const GivenOptions& options) {
    return options.isSet(logOption);
}

SettingsWithOptions::SettingsWithOptions(SettingsStore& store, const GivenOptions& options)
    : store_(store), ports_(portsOf(options)), logs_(wantsLogs(options)) {}

QString SettingsWithOptions::value(const QString& section, const QString& key) const {
    if (section == logSection && logs_)
        return u"1"_s;
    if (section == u"Ports") {
        if (const auto named = ports_.constFind(key); named != ports_.cend())
            return *named;
    }
    return store_.value(section, key);
}

void SettingsWithOptions::setValue(const QString& section, const QString& key, const QString& value) {
    store_.setValue(section, key, value);
}

} // namespace kelvane
