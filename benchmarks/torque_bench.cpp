// A download and an upload of 47 torque tools: the exchange against the line's own time, and the database
// against plain ODBC firing the same statements. Usage: bench_torque SIMULATOR TECHNICIAN DATABASE

#include "benchmarks/torque_site.h"
#include "benchmarks/watched.h"
#include "data/assets/assets.h"
#include "drivers/torquestar/driver.h"
#include "drivers/torquestar/qt_serial_port.h"

#include <QCoreApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace kelvane::bench {

namespace {

constexpr int baud = 9600;
constexpr double bitsOfByte = 10;
constexpr int maxTools = 47;

/// What one run of so many tools took.
struct Figures {
    int tools = 0;
    int statements = 0;
    double seconds = 0;
    double database = 0;
    double line = 0;
    double exchanges = 0;
    int messages = 0;
};

/// Runs `command` (a download or an upload) and measures it.
template <class Command>
Figures measure(TorqueSite& site, int tools, Command command) {
    auto& log = site.log;
    log = {};
    WatchedPort port(site.port);
    TorqueStar driver{site.session, port};
    const auto start = Clock::now();
    const QString failure = command(driver);
    const Seconds whole = Clock::now() - start;
    port.endExchange();
    site.port.setPortOpen(false);
    require(failure.isEmpty(), failure);
    site.requireNoErrors();
    return {tools,
            static_cast<int>(log.statements.size()),
            whole.count(),
            log.time.count(),
            static_cast<double>(port.bytes) * bitsOfByte / baud,
            port.time.count(),
            port.exchanges};
}

void print(const char* command, const Figures& f) {
    std::printf("%-9s %3d tools  %6.1f statements/tool  %7.2f ms/tool  database %5.1f %%\n", command, f.tools,
                double(f.statements) / f.tools, 1000 * f.seconds / f.tools, 100 * f.database / f.seconds);
}

Figures download(TorqueSite& site, int tools) {
    const auto tag = site.packageOf(tools);
    return measure(site, tools,
                   [&](TorqueStar& driver) { return ModuleTSInterface::TorqueStar_download(driver, tag); });
}

Figures upload(TorqueSite& site, int tools) {
    site.carryOut(tools);
    return measure(site, tools, ModuleTSInterface::TorqueStar_upload);
}

void measurePacedLine(const TorqueSite::Programs& programs) {
    TorqueSite site(programs, {u"--baud"_s, QString::number(baud)});
    const auto loaded = download(site, maxTools);
    std::printf("exchange at %d baud / its bytes on the line: %.3f   (%d messages, %.2f s against %.2f s)\n",
                baud, loaded.exchanges / loaded.line, loaded.messages, loaded.exchanges, loaded.line);
}

void measureFastLine(const TorqueSite::Programs& programs) {
    TorqueSite site(programs, {u"--no-pace"_s});
    for (const int tools : {1, 12, maxTools}) {
        const auto down = download(site, tools);
        print("download", down);
        const auto statements = site.log;
        const auto up = upload(site, tools);
        print("upload", up);
        if (tools == maxTools) {
            std::printf("a message without delay on the line: %.2f ms\n",
                        1000 * down.exchanges / down.messages);
            Replay plainly(site.database);
            const double plain = plainly.run(statements) + plainly.run(site.log);
            std::printf("database of download and upload / plain ODBC with the same statements: %.2f\n",
                        (down.database + up.database) / plain);
        }
    }
}

} // namespace

} // namespace kelvane::bench

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc != 4)
        kelvane::bench::giveUp(u"usage: bench_torque SIMULATOR TECHNICIAN DATABASE"_s);
    const kelvane::bench::TorqueSite::Programs programs{
        QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3])};
    kelvane::bench::measureFastLine(programs);
    kelvane::bench::measurePacedLine(programs);
    return 0;
}
