#include "admin/command_line.h"

#include "admin/failure.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::admin {

namespace {

const QString helpOption = u"--help"_s;
const QString versionOption = u"--version"_s;

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

/// Walks over the words behind a command.
class WordReader {
  public:
    WordReader(const Command& command, const QStringList& words) : words_(words) {
        invocation_.command = &command;
    }

    Invocation read() {
        bool takesOptions = true;
        for (; at_ < words_.size(); ++at_) {
            const auto& word = words_[at_];
            if (takesOptions && word == u"--")
                takesOptions = false;
            else if (takesOptions && word == helpOption)
                return {Invocation::Kind::help, invocation_.command, {}, {}};
            else if (takesOptions && word.startsWith(u'-') && word != u"-")
                readOption();
            else
                invocation_.arguments << word;
        }
        requireAll();
        return invocation_;
    }

  private:
    const Command& command() const { return *invocation_.command; }

    [[noreturn]] void fail(const QString& text) const {
        throw usageFailure(u"%1; see kelvane-admin %2 --help"_s.arg(text, command().name));
    }

    void readOption() {
        const auto name = words_[at_].section(u'=', 0, 0);
        const bool isInOneWord = name.size() < words_[at_].size();
        const auto* option = name.startsWith(u"--"_s) ? findNamed(command().options, name.mid(2)) : nullptr;
        if (option == nullptr)
            fail(u"unknown option %1"_s.arg(name));
        if (invocation_.options.contains(option->name))
            fail(u"%1 was given twice"_s.arg(name));
        QString value;
        if (option->value.isEmpty()) {
            if (isInOneWord)
                fail(u"%1 takes no value"_s.arg(name));
        } else if (isInOneWord) {
            value = words_[at_].mid(name.size() + 1);
        } else if (++at_ < words_.size()) {
            value = words_[at_];
        } else {
            fail(u"%1 needs a value"_s.arg(name));
        }
        invocation_.options.insert(option->name, value);
    }

    void requireAll() const {
        const auto given = invocation_.arguments.size();
        const auto needed = command().arguments.size();
        if (given < needed)
            fail(u"%1 is missing"_s.arg(command().arguments[given]));
        if (given > needed)
            fail(u"one argument too many"_s); // which may be a password, and is not repeated
        for (const auto& option : command().options) {
            if (option.isRequired && !invocation_.options.contains(option.name))
                fail(u"--%1 is missing"_s.arg(option.name));
        }
    }

    const QStringList& words_;
    qsizetype at_ = 0;
    Invocation invocation_;
};

/// Names and what they mean, in two columns.
QString table(const QList<std::pair<QString, QString>>& rows) {
    qsizetype width = 0;
    for (const auto& row : rows)
        width = std::max(width, row.first.size());
    QString lines;
    for (const auto& row : rows)
        lines += u"  "_s + row.first.leftJustified(width + 2) + row.second + u'\n';
    return lines;
}

} // namespace

Invocation invocationOf(const QList<Command>& commands, const QStringList& words) {
    if (words.isEmpty())
        throw usageFailure(u"a command is missing; see kelvane-admin --help"_s);
    const auto& first = words.first();
    if (first == helpOption)
        return {Invocation::Kind::help, nullptr, {}, {}};
    if (first == versionOption)
        return {Invocation::Kind::version, nullptr, {}, {}};
    const auto* command = findNamed(commands, first);
    if (command == nullptr)
        throw usageFailure(u"unknown %1 %2; see kelvane-admin --help"_s.arg(
            first.startsWith(u'-') ? u"option"_s : u"command"_s, first));
    return WordReader(*command, words.mid(1)).read();
}

QString helpText(const QList<Command>& commands) {
    QList<std::pair<QString, QString>> rows;
    for (const auto& command : commands)
        rows << std::pair{command.name, command.summary};
    return u"Usage: kelvane-admin COMMAND ...\n"
           "Makes and looks after the database of the workstations.\n\n"
           "Commands:\n"_s +
           table(rows) +
           u"\nADDRESS is a folder (the embedded engine) or postgresql://USER@HOST/DATABASE (a server). Its\n"
           "query part takes what libpq knows, such as ?host=%2Fvar%2Frun%2Fpostgresql for a socket.\n"
           "Passwords are read from the terminal, or as a line of the standard input.\n\n"
           "Options:\n"_s +
           table({{u"COMMAND --help"_s, u"the arguments and options of a command"_s},
                  {helpOption, u"this text"_s},
                  {versionOption, u"the version of the program"_s}});
}

QString helpText(const Command& command) {
    QList<std::pair<QString, QString>> rows;
    for (const auto& option : command.options) {
        const auto value = option.value.isEmpty() ? QString() : u'=' + option.value;
        rows << std::pair{u"--"_s + option.name + value, option.help};
    }
    auto text = u"Usage: %1\n%2.\n"_s.arg(usageOf(command), command.summary);
    if (!command.details.isEmpty())
        text += u'\n' + command.details + u'\n';
    if (!rows.isEmpty())
        text += u"\nOptions:\n"_s + table(rows);
    return text;
}

} // namespace kelvane::admin
