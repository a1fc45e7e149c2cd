#include "admin/command_line.h"

#include "admin/failure.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::admin {

namespace {

const QString help = u"--help"_s;
const QString version = u"--version"_s;

template <class Entry>
const Entry* findNamed(const QList<Entry>& entries, const QString& name) {
    const auto found = std::ranges::find_if(entries, [&](const Entry& entry) { return entry.name == name; });
    return found == entries.end() ? nullptr : &*found;
}

QString usageOf(const Command& command) {
    QStringList words{u"kelvane-admin"_s, command.name};
    words << command.arguments;
    for (const auto& option : command.options) {
        const QString name =
            u"--"_s + option.name + (option.value.isEmpty() ? QString() : u'=' + option.value);
        words << (option.isRequired ? name : u'[' + name + u']');
    }
    return words.join(u' ');
}

/// The words behind a command. Throws `CommandLineFault`.
Invocation invocationOf(const Command& command, const QStringList& words) {
    const auto options = readOptions(command.options + QList{helpOption()}, words);
    if (options.isSet(helpOption().name))
        return {Invocation::Kind::help, &command, {}, {}};
    options.refuseRepeated();
    const auto given = options.arguments.size();
    const auto needed = command.arguments.size();
    if (given < needed)
        throw CommandLineFault{u"%1 is missing"_s.arg(command.arguments[given])};
    if (given > needed)
        throw CommandLineFault{u"one argument too many"_s}; // which may be a password, and is not repeated
    return {Invocation::Kind::run, &command, options.arguments, options};
}

} // namespace

Invocation invocationOf(const QList<Command>& commands, const QStringList& words) {
    if (words.isEmpty())
        throw usageFailure(u"a command is missing; see kelvane-admin --help"_s);
    const auto& first = words.first();
    if (first == help)
        return {Invocation::Kind::help, nullptr, {}, {}};
    if (first == version)
        return {Invocation::Kind::version, nullptr, {}, {}};
    const auto* command = findNamed(commands, first);
    if (command == nullptr)
        throw usageFailure(u"unknown %1 %2; see kelvane-admin --help"_s.arg(
            first.startsWith(u'-') ? u"option"_s : u"command"_s, first));
    try {
        return invocationOf(*command, words.mid(1));
    } catch (const CommandLineFault& fault) {
        throw usageFailure(u"%1; see kelvane-admin %2 --help"_s.arg(fault.text, command->name));
    }
}

QString helpText(const QList<Command>& commands) {
    QList<std::pair<QString, QString>> rows;
    for (const auto& command : commands)
        rows << std::pair{command.name, command.summary};
    return u"Usage: kelvane-admin COMMAND ...\n"
           "Makes and looks after the database of the workstations.\n\n"
           "Commands:\n"_s +
           helpTable(rows) +
           u"\nADDRESS is a folder (the embedded engine) or postgresql://USER@HOST/DATABASE (a server). Its\n"
           "query part takes what libpq knows, such as ?host=%2Fvar%2Frun%2Fpostgresql for a socket.\n"
           "Passwords are read from the terminal, or as a line of the standard input.\n\n"
           "Options:\n"_s +
           helpTable({{u"COMMAND --help"_s, u"the arguments and options of a command"_s},
                      {help, helpOption().help},
                      {version, versionOption().help}});
}

QString helpText(const Command& command) {
    auto text = u"Usage: %1\n%2.\n"_s.arg(usageOf(command), command.summary);
    if (!command.details.isEmpty())
        text += u'\n' + command.details + u'\n';
    if (!command.options.isEmpty())
        text += u"\nOptions:\n"_s + optionTable(command.options);
    return text;
}

} // namespace kelvane::admin
