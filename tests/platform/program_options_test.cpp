#include "platform/program_options.h"

#include <gtest/gtest.h>

#include <cstdio>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

const QList<ProgramOption> options{
    {u"level"_s, u"N"_s, u"how much"_s, false, u"3"_s},
    {u"quiet"_s, {}, u"says nothing"_s},
    {.name = u"style"_s, .value = u"NAME"_s, .mayHaveOneDash = true},
};

Program example() {
    return {.name = u"example"_s,
            .usage = u"[OPTION]... FILE"_s,
            .description = u"Does something."_s,
            .options = options,
            .maxArguments = 1,
            .isPassedOver = [](const QString& word) { return word.contains(u"odd"_s); }};
}

QString faultOf(const QStringList& words, const QList<ProgramOption>& table = options) {
    try {
        readOptions(table, words);
        return {};
    } catch (const CommandLineFault& fault) {
        return fault.text;
    }
}

ProgramAnswer answerTo(const QStringList& words) {
    try {
        readCommandLine(example(), words);
        return {u"none"_s, -1};
    } catch (const ProgramAnswer& answer) {
        return answer;
    }
}

} // namespace

TEST(ProgramOptions, AreReadInOneWordOrTwoAndTheLastOneCounts) {
    const auto read = readOptions(
        options, {u"a"_s, u"--level"_s, u"--quiet"_s, u"b"_s, u"--level=5"_s, u"-style"_s, u"x=y"_s});
    EXPECT_EQ(read.arguments, (QStringList{u"a"_s, u"b"_s}));
    EXPECT_EQ(read.value(u"level"_s), u"5"_s);
    EXPECT_EQ(read.values(u"level"_s), (QStringList{u"--quiet"_s, u"5"_s}));
    EXPECT_EQ(read.value(u"style"_s), u"x=y"_s);
    EXPECT_FALSE(read.isSet(u"quiet"_s));
}

TEST(ProgramOptions, ThatAreNotGivenHaveTheirOtherValue) {
    const auto read = readOptions(options, {u"--quiet"_s});
    EXPECT_TRUE(read.isSet(u"quiet"_s));
    EXPECT_FALSE(read.isSet(u"level"_s));
    EXPECT_EQ(read.value(u"level"_s), u"3"_s);
    EXPECT_EQ(read.value(u"style"_s), QString());
    EXPECT_TRUE(read.values(u"level"_s).isEmpty());
}

TEST(ProgramOptions, EndBehindTwoDashesAndADashAloneIsNone) {
    EXPECT_EQ(readOptions(options, {u"-"_s, u"--"_s, u"--quiet"_s, u"--"_s}).arguments,
              (QStringList{u"-"_s, u"--quiet"_s, u"--"_s}));
}

TEST(ProgramOptions, ThatCantBeUnderstoodAreNamed) {
    const struct {
        QStringList words;
        QString fault;
    } rows[] = {
        {{u"--loud"_s}, u"unknown option --loud"_s},
        {{u"--loud=yes"_s}, u"unknown option --loud"_s},
        {{u"-quiet"_s}, u"unknown option -quiet"_s},
        {{u"-q"_s}, u"unknown option -q"_s},
        {{u"--quiet=yes"_s}, u"--quiet takes no value"_s},
        {{u"--level"_s}, u"--level needs a value"_s},
        {{u"-style"_s}, u"-style needs a value"_s},
        {{u"--style"_s, u"x"_s}, {}},
        {{u"--level="_s}, {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(faultOf(row.words), row.fault) << row.words.join(u' ').toStdString();
    EXPECT_EQ(faultOf({u"x"_s}, {{u"memory"_s, u"FILE"_s, u"it"_s, true}}), u"--memory is missing"_s);
}

TEST(ProgramCommandLine, HelpAndVersionAreAnsweredWhateverElseIsWrong) {
    const auto help = answerTo({u"--help"_s, u"--loud"_s});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.text, u"Usage: example [OPTION]... FILE\n"
                         "Does something.\n\n"
                         "Options:\n"
                         "  --level=N  how much\n"
                         "  --quiet    says nothing\n"
                         "  --help     this text\n"
                         "  --version  the version of the program\n"_s);
    const auto version = answerTo({u"a"_s, u"--version"_s, u"b"_s});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.text, u"example %1\n"_s.arg(QStringLiteral(KELVANE_PROJECT_VERSION)));
}

TEST(ProgramCommandLine, AFaultSaysWhereToLookAndHasStatus2) {
    for (const auto& [words, text] : {std::pair{QStringList{u"--loud"_s}, u"unknown option --loud"_s},
                                      std::pair{QStringList{u"a"_s, u"b"_s}, u"b is not understood"_s}}) {
        const auto answer = answerTo(words);
        EXPECT_EQ(answer.status, 2);
        EXPECT_EQ(answer.text, text + u"; see example --help"_s);
    }
}

TEST(ProgramCommandLine, PassesOverWhatTheProgramSays) {
    const auto read = readCommandLine(example(), {u"odd"_s, u"--odder"_s, u"--level=odd"_s, u"file"_s});
    EXPECT_EQ(read.arguments, QStringList{u"file"_s});
    EXPECT_EQ(read.value(u"level"_s), u"odd"_s);
}

TEST(ProgramHelp, WrapsWhatIsLongBesideItsName) {
    const auto lines =
        helpTable(QList<std::pair<QString, QString>>{{u"short"_s, QString(u"word "_s).repeated(30).trimmed()},
                                                     {u"a-name-that-has-no-room-in-the-column"_s, u"last"_s}})
            .split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 5);
    EXPECT_TRUE(lines[0].startsWith(u"  short  word word"_s)) << lines[0].toStdString();
    EXPECT_TRUE(lines[1].startsWith(u"         word word"_s)) << lines[1].toStdString();
    EXPECT_EQ(lines[3], u"  a-name-that-has-no-room-in-the-column"_s);
    EXPECT_EQ(lines[4], u"         last"_s);
    for (const auto& line : lines)
        EXPECT_LE(line.size(), 80) << line.toStdString();
}

TEST(ProgramWords, AreThoseOfTheCommandLine) {
    const char* const words[] = {"example", "--texts", "Prüfung"};
    EXPECT_EQ(wordsOf(3, words), (QStringList{u"example"_s, u"--texts"_s, u"Prüfung"_s}));
}

#ifdef Q_OS_UNIX
TEST(ProgramAnswers, ThatCanNotBeWrittenAreAFailureHoweverLongTheyAre) {
    const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
    if (full < 0)
        GTEST_SKIP() << "this system has no full device";
    for (const int length : {1, 1'000'000}) {
        std::fflush(stdout);
        const int output = ::dup(STDOUT_FILENO);
        ::dup2(full, STDOUT_FILENO);
        const int status = writeAnswer(u"example"_s, {QString(length, u'x')});
        ::dup2(output, STDOUT_FILENO);
        ::close(output);
        EXPECT_EQ(status, 1) << length;
    }
    ::close(full);
}
#endif

} // namespace kelvane
