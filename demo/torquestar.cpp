#include "demo/torquestar.h"

#include "demo/technician.h"
#include "testkit/difference.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane::demo {

TorqueStar::TorqueStar(const QString& folder) : folder_(folder) {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(programBeside(u"kelvane-torquestar"_s),
                   {u"--memory"_s, memory(), u"--serial"_s, u"48213"_s, u"--link"_s, device(), u"--baud"_s,
                    u"9600"_s, u"--record"_s, QDir(folder_).filePath(u"conversation.log"_s)});
    if (!process_.waitForStarted() || !process_.waitForReadyRead())
        throw Difference(u"the simulated calibrator did not start"_s);
}

TorqueStar::~TorqueStar() {
    process_.terminate();
    process_.waitForFinished();
}

QString TorqueStar::device() const {
    return QDir(folder_).filePath(u"COM1"_s);
}

QString TorqueStar::memory() const {
    return QDir(folder_).filePath(u"torquestar.json"_s);
}

} // namespace kelvane::demo
