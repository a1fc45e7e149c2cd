#include "platform/program_options.h"
#include "simulators/common/failure.h"
#include "simulators/torquestar/conversation.h"
#include "simulators/torquestar/pitfalls.h"
#include "simulators/torquestar/terminal.h"

#include <QCoreApplication>

#include <cstdio>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

void say(FILE* stream, const QString& text) {
    std::fprintf(stream, "%s\n", text.toLocal8Bit().constData());
    std::fflush(stream);
}

struct Options {
    QString memory;
    qint32 serial = 0;
    QString link;
    std::optional<int> baud;
    char acknowledge = Dle;
    std::size_t room = 0;
    QString record;
    QStringList faults;
};

qint32 numberOf(const GivenOptions& given, const QString& name) {
    bool read = false;
    const qint32 number = given.value(name).toInt(&read);
    if (!read || number < 1)
        throw Failure(
            u"--%1 needs a whole number from 1 to %2."_s.arg(name).arg(std::numeric_limits<qint32>::max()));
    return number;
}

Program program() {
    return {
        .name = u"kelvane-torquestar"_s,
        .usage = u"--memory=FILE --serial=NUMBER [OPTION]..."_s,
        .description =
            u"A simulated Crane TorqueStar IVc torque calibrator on a pseudo terminal. Prints the device to "
            "open,\nanswers until it is ended, and keeps its memory in a file.\n\n"
            "Faults: KIND[:VALUE][@MESSAGE][+AFTER][*TIMES], such as drop-byte:3@T1D+2*1, which spares the\n"
            "first two results; several may be given.\n"_s +
            faultHelp(),
        .options =
            {
                {u"memory"_s, u"FILE"_s, u"The calibrator's memory; made when it is not there."_s, true},
                {u"serial"_s, u"NUMBER"_s, u"Its serial number."_s, true},
                {u"link"_s, u"PATH"_s, u"A link to the device, removed at the end."_s},
                {u"baud"_s, u"N"_s, u"The speed of the line, at ten bits a byte. Default: 9600."_s, false,
                 u"9600"_s},
                {u"no-pace"_s, {}, u"Bytes take no time."_s},
                {u"acknowledge"_s, u"WHICH"_s, u"The acknowledge character: dle or ack. Default: dle."_s,
                 false, u"dle"_s},
                {u"room"_s, u"N"_s, u"How many characteristics its memory takes. Default: 500."_s, false,
                 u"500"_s},
                {u"fault"_s, u"FAULT"_s, u"A way to misbehave, see above."_s},
                {u"record"_s, u"FILE"_s, u"Appends each message and reply to this file."_s},
            },
    };
}

Options optionsFrom(const GivenOptions& given) {
    Options options;
    options.memory = given.value(u"memory"_s);
    options.serial = numberOf(given, u"serial"_s);
    options.link = given.value(u"link"_s);
    const int baud = numberOf(given, u"baud"_s);
    if (!given.isSet(u"no-pace"_s))
        options.baud = baud;
    const QString acknowledge = given.value(u"acknowledge"_s);
    if (acknowledge != u"dle"_s && acknowledge != u"ack"_s)
        throw Failure(u"--acknowledge is dle or ack."_s);
    options.acknowledge = acknowledge == u"dle"_s ? Dle : Ack;
    options.room = static_cast<std::size_t>(numberOf(given, u"room"_s));
    options.record = given.value(u"record"_s);
    options.faults = given.values(u"fault"_s);
    return options;
}

void run(const Options& options) {
    blockEndSignals();
    Faults faults;
    for (const QString& fault : options.faults)
        faults.add(fault);
    Record record(options.record);
    MemoryFile memory(options.memory);
    // A damaged memory, or one that can't be reached, is reported before the link to the calibrator is
    // opened.
    memory.use([](const Memory&) { return false; });
    Messages messages(memory, options.serial, options.room);
    VirtualLine line(options.baud);
    Conversation conversation(options.acknowledge, faults, record, line, messages);
    const Terminal terminal(options.link);
    for (const QString& note : pitfallsOfSerial(options.serial))
        say(stderr, u"note: "_s + note);
    say(stdout, terminal.device());

    while (!isEndRequested() && !line.hasVanished()) {
        terminal.wait(line.next());
        line.addReceived(terminal.read(), std::chrono::steady_clock::now());
        while (const std::optional<VirtualLine::Event> event = line.take(std::chrono::steady_clock::now())) {
            if (event->inbound)
                conversation.receive(event->bytes.front(), line.following());
            else
                terminal.write(event->bytes);
        }
    }
}

} // namespace

} // namespace kelvane::simulators

int main(int argc, char** argv) {
    using namespace kelvane;

    const QCoreApplication application(argc, argv);
    const Program program = simulators::program();
    try {
        const auto given = readCommandLine(program, QCoreApplication::arguments().mid(1));
        simulators::run(simulators::optionsFrom(given));
    } catch (const ProgramAnswer& answer) {
        return writeAnswer(program.name, answer);
    } catch (const simulators::Failure& failure) {
        return writeAnswer(program.name, {failure.text(), 1});
    }
    return 0;
}
