#include "platform/program_options.h"

#include "platform/version.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr qsizetype lineWidth = 80;
constexpr qsizetype longestNameInColumn = 26;

/// Walks over the words of a command line.
class WordReader {
  public:
    WordReader(const QList<ProgramOption>& options, const QStringList& words, PassedOver isPassedOver)
        : options_(options), words_(words), isPassedOver_(isPassedOver) {
        for (const auto& option : options)
            result_.otherwise.insert(option.name, option.otherwise);
    }

    GivenOptions read() {
        bool takesOptions = true;
        for (; at_ < words_.size(); ++at_) {
            const auto& word = words_[at_];
            const bool looksLikeOption = takesOptions && word.startsWith(u'-') && word != u"-";
            const auto* option = looksLikeOption ? find(word) : nullptr;
            if (takesOptions && word == u"--")
                takesOptions = false;
            else if (option == nullptr && isPassedOver_ != nullptr && isPassedOver_(word))
                continue;
            else if (looksLikeOption)
                readOption(option);
            else
                result_.arguments << word;
            if (endsReading())
                return result_;
        }
        requireAll();
        return result_;
    }

  private:
    const ProgramOption* find(const QString& word) const {
        const bool hasTwoDashes = word.startsWith(u"--"_s);
        const auto name = word.section(u'=', 0, 0).mid(hasTwoDashes ? 2 : 1);
        const auto found = std::ranges::find_if(options_, [&](const ProgramOption& option) {
            return option.name == name && (hasTwoDashes || option.mayHaveOneDash);
        });
        return found == options_.end() ? nullptr : &*found;
    }

    void readOption(const ProgramOption* option) {
        const auto name = words_[at_].section(u'=', 0, 0);
        const bool isInOneWord = name.size() < words_[at_].size();
        if (option == nullptr)
            throw CommandLineFault{u"unknown option %1"_s.arg(name)};
        QString value;
        if (option->value.isEmpty()) {
            if (isInOneWord)
                throw CommandLineFault{u"%1 takes no value"_s.arg(name)};
        } else if (isInOneWord) {
            value = words_[at_].mid(name.size() + 1);
        } else if (++at_ < words_.size()) {
            value = words_[at_];
        } else {
            throw CommandLineFault{u"%1 needs a value"_s.arg(name)};
        }
        result_.given[option->name] << value;
    }

    bool endsReading() const {
        return result_.isSet(helpOption().name) || result_.isSet(versionOption().name);
    }

    void requireAll() const {
        for (const auto& option : options_) {
            if (option.isRequired && !result_.isSet(option.name))
                throw CommandLineFault{u"--%1 is missing"_s.arg(option.name)};
        }
    }

    const QList<ProgramOption>& options_;
    const QStringList& words_;
    PassedOver isPassedOver_;
    qsizetype at_ = 0;
    GivenOptions result_;
};

/// A text in lines of at most that width, where its words allow it.
QStringList wrap(const QString& text, qsizetype width) {
    QStringList lines;
    const auto words = text.split(u' ');
    for (const auto& word : words) {
        if (!lines.isEmpty() && lines.last().size() + 1 + word.size() <= width)
            lines.last() += u' ' + word;
        else
            lines << word;
    }
    return lines;
}

QString helpOf(const Program& program, const QList<ProgramOption>& options) {
    return u"Usage: %1\n%2\n\nOptions:\n%3"_s.arg((program.name + u' ' + program.usage).trimmed(),
                                                  program.description, optionTable(options));
}

bool write(FILE* stream, const QString& text) {
    const auto bytes = text.toLocal8Bit();
    const auto size = static_cast<std::size_t>(bytes.size());
    return std::fwrite(bytes.constData(), 1, size, stream) == size && std::fflush(stream) == 0;
}

} // namespace

ProgramOption helpOption() {
    return {.name = u"help"_s, .help = u"this text"_s};
}

ProgramOption versionOption() {
    return {.name = u"version"_s, .help = u"the version of the program"_s};
}

QString GivenOptions::value(const QString& name) const {
    const auto found = given.constFind(name);
    return found == given.cend() ? otherwise.value(name) : found->last();
}

void GivenOptions::refuseRepeated() const {
    auto names = given.keys();
    names.sort();
    for (const auto& name : std::as_const(names)) {
        if (values(name).size() > 1)
            throw CommandLineFault{u"--%1 was given twice"_s.arg(name)};
    }
}

GivenOptions readOptions(const QList<ProgramOption>& options, const QStringList& words,
                         PassedOver isPassedOver) {
    return WordReader(options, words, isPassedOver).read();
}

GivenOptions readCommandLine(const Program& program, const QStringList& words) {
    const auto options = program.options + QList{helpOption(), versionOption()};
    try {
        auto read = readOptions(options, words, program.isPassedOver);
        if (read.isSet(helpOption().name))
            throw ProgramAnswer{helpOf(program, options)};
        if (read.isSet(versionOption().name))
            throw ProgramAnswer{program.name + u' ' + programVersion() + u'\n'};
        if (read.arguments.size() > program.maxArguments)
            throw CommandLineFault{u"%1 is not understood"_s.arg(read.arguments[program.maxArguments])};
        return read;
    } catch (const CommandLineFault& fault) {
        throw usageAnswer(program.name, fault.text);
    }
}

ProgramAnswer usageAnswer(const QString& program, const QString& fault) {
    return {u"%1; see %2 --help"_s.arg(fault, program), 2};
}

QStringList wordsOf(int count, const char* const* words) {
    QStringList texts;
    for (int i = 0; i < count; ++i)
        texts << QString::fromLocal8Bit(words[i]);
    return texts;
}

int writeAnswer(const QString& program, const ProgramAnswer& answer) {
    if (answer.status != 0) {
        write(stderr, program + u": "_s + answer.text + u'\n');
        return answer.status;
    }
    if (write(stdout, answer.text))
        return 0;
    return writeAnswer(program, {u"the output can't be written"_s, 1});
}

QString helpTable(const QList<std::pair<QString, QString>>& rows) {
    qsizetype width = 0;
    for (const auto& row : rows) {
        if (row.first.size() <= longestNameInColumn)
            width = std::max(width, row.first.size());
    }
    const auto column = width + 4;
    QString lines;
    for (const auto& row : rows) {
        auto name = u"  "_s + row.first;
        if (row.first.size() > width) {
            lines += name + u'\n';
            name.clear();
        }
        for (const auto& line : wrap(row.second, lineWidth - column)) {
            lines += name.leftJustified(column) + line + u'\n';
            name.clear();
        }
    }
    return lines;
}

QString optionTable(const QList<ProgramOption>& options) {
    QList<std::pair<QString, QString>> rows;
    for (const auto& option : options) {
        const auto value = option.value.isEmpty() ? QString() : u'=' + option.value;
        if (!option.help.isEmpty())
            rows << std::pair{u"--"_s + option.name + value, option.help};
    }
    return helpTable(rows);
}

} // namespace kelvane
