#include "benchmarks/peak_memory.h"

#include "benchmarks/require.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::bench {

double peakMegabytes() {
    QFile status(u"/proc/self/status"_s);
    require(status.open(QIODevice::ReadOnly), u"the system tells no memory"_s);
    for (const auto& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.simplified().split(' ').at(1).toDouble() / 1024;
    }
    giveUp(u"the system tells no memory"_s);
}

void forgetPeak() {
    QFile peak(u"/proc/self/clear_refs"_s);
    require(peak.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && peak.write("5") == 1,
            u"the system forgets no peak"_s);
}

} // namespace kelvane::bench
