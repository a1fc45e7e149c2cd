#pragma once

#include "platform/program_options.h"

namespace kelvane::admin {

struct Invocation;

/// A command of the program, as its help shows it and the command line takes it.
struct Command {
    QString name;
    /// What has to follow the name, in this order.
    QStringList arguments;
    QList<ProgramOption> options;
    /// One line for the list of the commands.
    QString summary;
    /// What else its own help says, in lines.
    QString details;
    /// Carries it out, and gives what goes to the standard output. Throws `Failure`.
    QString (*run)(const Invocation&) = nullptr;
};

/// What a command line asks for.
struct Invocation {
    enum class Kind { run, help, version };
    Kind kind = Kind::run;
    /// Null for the help of the whole program, and for the version.
    const Command* command = nullptr;
    QStringList arguments;
    GivenOptions options;
};

/// Reads the words behind the program's name. `commands` has to outlive the result. Throws a `Failure` of
/// status 2 that names what can't be understood.
Invocation invocationOf(const QList<Command>& commands, const QStringList& words);

/// The help of the whole program.
QString helpText(const QList<Command>& commands);
/// The help of one command.
QString helpText(const Command& command);

} // namespace kelvane::admin
