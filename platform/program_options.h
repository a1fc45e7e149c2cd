#pragma once

#include <QHash>
#include <QStringList>

namespace kelvane {

/// An option of a program, written "--name=VALUE", "--name VALUE" or, without a value, "--name".
struct ProgramOption {
    QString name;
    /// What its value is called in the help; empty when it has none.
    QString value = {};
    /// One without is not shown in the help.
    QString help = {};
    bool isRequired = false;
    /// Its value when it is not given.
    QString otherwise = {};
    /// It is also written "-name", as the toolkit's options are.
    bool mayHaveOneDash = false;
};

/// "--help" and "--version": reading ends at either, whatever else is right or wrong.
ProgramOption helpOption();
ProgramOption versionOption();

/// Why a command line can't be understood, without the program's name.
struct CommandLineFault {
    QString text;
};

/// What the words behind a program's name say.
struct GivenOptions {
    /// The words that are no options.
    QStringList arguments = {};
    /// The values of each option that was given; a switch has an empty one.
    QHash<QString, QStringList> given = {};
    /// The values of options that need not be given.
    QHash<QString, QString> otherwise = {};

    bool isSet(const QString& name) const { return given.contains(name); }
    /// The value, the last one of several, or that of an option that is not given.
    QString value(const QString& name) const;
    QStringList values(const QString& name) const { return given.value(name); }
    /// Throws `CommandLineFault` when an option was given more than once.
    void refuseRepeated() const;
};

/// Tells words that are neither options nor arguments of a program.
using PassedOver = bool (*)(const QString& word);

/// Reads words by a table of options. Behind "--" nothing is an option. Throws `CommandLineFault`.
GivenOptions readOptions(const QList<ProgramOption>& options, const QStringList& words,
                         PassedOver isPassedOver = nullptr);

/// A program, as its help shows it and its command line is read.
struct Program {
    QString name;
    /// What stands behind the name in the first line of the help.
    QString usage;
    /// What it does, in lines.
    QString description;
    /// All but "--help" and "--version".
    QList<ProgramOption> options;
    qsizetype maxArguments = 0;
    PassedOver isPassedOver = nullptr;
};

/// What a program says in the place of its work, and its exit status: 0 for what was asked for, 2 for a
/// command line that can't be understood, 1 for all else.
struct ProgramAnswer {
    QString text;
    int status = 0;
};

/// Reads the words behind the program's name. Throws `ProgramAnswer` for the help, the version, and what
/// can't be understood.
GivenOptions readCommandLine(const Program& program, const QStringList& words);

/// A command line that can't be understood, with the advice where to look.
ProgramAnswer usageAnswer(const QString& program, const QString& fault);

/// The words of a command line, the program's name first. It needs no application object.
QStringList wordsOf(int count, const char* const* words);

/// Writes an answer: on the standard output with status 0, otherwise on the standard error, in one line
/// behind the program's name. Returns the exit status, which is 1 for an output that can't be written.
int writeAnswer(const QString& program, const ProgramAnswer& answer);

/// Names and what they mean, in two columns of a help.
QString helpTable(const QList<std::pair<QString, QString>>& rows);
/// The same for options.
QString optionTable(const QList<ProgramOption>& options);

} // namespace kelvane
