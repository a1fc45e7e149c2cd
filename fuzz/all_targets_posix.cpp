// Runs the fuzz targets without a fuzzer: each on its seeds, and then on changes of them for a while.
//
//     fuzz_targets FOLDER [--seed N] [--seconds S] [--only SUBJECT] [--input FILE]
//
// FOLDER holds a folder of seeds for each subject, and may hold SUBJECT.dict beside it. The input that a
// target fails on is kept as "failure-SUBJECT" in the folder where the program was started.

#include "fuzz/input.h"

#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QRegularExpression>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <random>

using namespace Qt::StringLiterals;

// Without a fuzzer the targets stand in one program, under a name each.
extern "C" {
int fuzz_dialect(const std::uint8_t* data, std::size_t size);
int fuzz_journal(const std::uint8_t* data, std::size_t size);
int fuzz_layout(const std::uint8_t* data, std::size_t size);
int fuzz_macros(const std::uint8_t* data, std::size_t size);
int fuzz_memory(const std::uint8_t* data, std::size_t size);
int fuzz_settings(const std::uint8_t* data, std::size_t size);
int fuzz_template(const std::uint8_t* data, std::size_t size);
int fuzz_torque(const std::uint8_t* data, std::size_t size);
int fuzz_values(const std::uint8_t* data, std::size_t size);
}

namespace kelvane::fuzz {

namespace {

struct Target {
    const char* subject;
    int (*run)(const std::uint8_t* data, std::size_t size);
};

constexpr Target targets[] = {
    {"dialect", fuzz_dialect},   {"journal", fuzz_journal}, {"layout", fuzz_layout},
    {"macros", fuzz_macros},     {"memory", fuzz_memory},   {"settings", fuzz_settings},
    {"template", fuzz_template}, {"torque", fuzz_torque},   {"values", fuzz_values},
};

using Generator = std::mt19937_64;

qsizetype below(Generator& generator, qsizetype limit) {
    return static_cast<qsizetype>(generator() % static_cast<quint64>(limit));
}

/// What is being run, for the case that it does not come back.
QByteArray runningInput;
QByteArray failurePath;

void keepInput(int) {
    if (auto* file = std::fopen(failurePath.constData(), "wb")) {
        std::fwrite(runningInput.constData(), 1, static_cast<std::size_t>(runningInput.size()), file);
        std::fclose(file);
    }
    std::fprintf(stderr, "The input is kept as %s\n", failurePath.constData());
    std::signal(SIGABRT, SIG_DFL);
    std::abort();
}

/// The marks of a dictionary: name="mark", with \xNN for a byte.
QList<QByteArray> marksOf(const QString& path) {
    static const QRegularExpression line(u"\"((?:[^\"\\\\]|\\\\.)*)\""_s);
    static const QRegularExpression byte(u"\\\\(x[0-9A-Fa-f]{2}|.)"_s);
    QList<QByteArray> marks;
    for (const auto& text : readFile(path).split('\n')) {
        const auto quoted = line.match(QString::fromUtf8(text));
        if (text.startsWith('#') || !quoted.hasMatch())
            continue;
        const auto written = quoted.captured(1);
        QByteArray mark;
        qsizetype at = 0;
        for (const auto& code : byte.globalMatch(written)) {
            mark += written.mid(at, code.capturedStart() - at).toUtf8();
            const auto name = code.captured(1);
            mark += name.size() == 3 ? QByteArray::fromHex(name.mid(1).toLatin1()) : name.toUtf8();
            at = code.capturedEnd();
        }
        marks << mark + written.mid(at).toUtf8();
    }
    return marks;
}

/// Makes new inputs out of seeds.
class Mutator {
  public:
    Mutator(QList<QByteArray> seeds, QList<QByteArray> marks, quint64 seed)
        : seeds_(std::move(seeds)), marks_(std::move(marks)), generator_(seed) {}

    QByteArray next() {
        auto input = seeds_.isEmpty() ? QByteArray() : seeds_[below(generator_, seeds_.size())];
        const auto changes = 1 + below(generator_, 6);
        for (qsizetype change = 0; change < changes; ++change)
            mutate(input);
        return input;
    }

  private:
    void mutate(QByteArray& input) {
        const auto at = below(generator_, input.size() + 1);
        const auto length = std::min(below(generator_, 16) + 1, input.size() - at);
        switch (below(generator_, 7)) {
        case 0:
            input.insert(at, static_cast<char>(below(generator_, 256)));
            break;
        case 1:
            input.remove(at, length);
            break;
        case 2:
            if (at < input.size())
                input[at] = static_cast<char>(input[at] ^ (1 << below(generator_, 8)));
            break;
        case 3:
            input.insert(at, input.mid(below(generator_, input.size() + 1), length));
            break;
        case 4:
            if (at < input.size())
                input[at] = static_cast<char>(below(generator_, 256));
            break;
        case 5:
            if (!marks_.isEmpty())
                input.insert(at, marks_[below(generator_, marks_.size())]);
            break;
        default:
            splice(input, at);
        }
    }

    /// The rest comes from another seed.
    void splice(QByteArray& input, qsizetype at) {
        if (seeds_.isEmpty())
            return;
        const auto& other = seeds_[below(generator_, seeds_.size())];
        input = input.first(at) + other.sliced(below(generator_, other.size() + 1));
    }

    QList<QByteArray> seeds_;
    QList<QByteArray> marks_;
    Generator generator_;
};

void run(const Target& target, const QByteArray& input) {
    runningInput = input;
    target.run(reinterpret_cast<const std::uint8_t*>(input.constData()),
               static_cast<std::size_t>(input.size()));
}

QList<QByteArray> seedsIn(const QString& folder) {
    QList<QByteArray> seeds;
    for (const auto& file : QDir(folder).entryInfoList(QDir::Files, QDir::Name))
        seeds << readFile(file.filePath());
    return seeds;
}

void runFor(const Target& target, const QDir& folder, quint64 seed, int seconds) {
    const auto subject = QString::fromLatin1(target.subject);
    const auto seeds = seedsIn(folder.filePath(subject));
    run(target, {});
    for (const auto& input : seeds)
        run(target, input);
    Mutator mutator(seeds, marksOf(folder.filePath(subject + u".dict"_s)), seed);
    QElapsedTimer timer;
    timer.start();
    qint64 count = 0;
    for (; timer.elapsed() < qint64{1000} * seconds; ++count)
        run(target, mutator.next());
    std::printf("%-10s %2lld seeds and %lld changes of them\n", target.subject,
                static_cast<long long>(seeds.size()), static_cast<long long>(count));
}

} // namespace

int runTargets(const QStringList& arguments) {
    QCommandLineParser parser;
    const QCommandLineOption seedOption(u"seed"_s, {}, u"number"_s);
    const QCommandLineOption secondsOption(u"seconds"_s, {}, u"number"_s, u"1"_s);
    const QCommandLineOption onlyOption(u"only"_s, {}, u"subject"_s);
    const QCommandLineOption inputOption(u"input"_s, {}, u"file"_s);
    parser.addOptions({seedOption, secondsOption, onlyOption, inputOption});
    parser.addPositionalArgument(u"folder"_s, {});
    parser.process(arguments);
    const QDir start = QDir::current();
    const QDir folder(start.absoluteFilePath(parser.positionalArguments().value(0)));
    const quint64 seed =
        parser.isSet(seedOption) ? parser.value(seedOption).toULongLong() : std::random_device()();
    std::printf("seed %llu\n", static_cast<unsigned long long>(seed));
    std::fflush(stdout);
    std::signal(SIGABRT, keepInput);
    bool found = false;
    for (const auto& target : targets) {
        if (parser.isSet(onlyOption) && parser.value(onlyOption) != QLatin1StringView(target.subject))
            continue;
        found = true;
        failurePath = QFile::encodeName(start.filePath(u"failure-"_s + QLatin1StringView(target.subject)));
        if (parser.isSet(inputOption))
            run(target, readFile(start.absoluteFilePath(parser.value(inputOption))));
        else
            runFor(target, folder, seed, parser.value(secondsOption).toInt());
        std::fflush(stdout);
    }
    return found ? 0 : 2;
}

} // namespace kelvane::fuzz

int main(int count, char* arguments[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(count, arguments);
    return kelvane::fuzz::runTargets(QCoreApplication::arguments());
}
