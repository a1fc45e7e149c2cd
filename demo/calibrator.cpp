#include "demo/calibrator.h"

#include "demo/difference.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::demo {

namespace {

QString program(const QString& name) {
    return QDir(QCoreApplication::applicationDirPath()).filePath(name);
}

} // namespace

Calibrator::Calibrator(const QString& folder) : folder_(folder) {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(program(u"kelvane-torquestar"_s),
                   {u"--memory"_s, memory(), u"--serial"_s, u"48213"_s, u"--link"_s, device(), u"--baud"_s,
                    u"9600"_s, u"--record"_s, QDir(folder_).filePath(u"conversation.log"_s)});
    if (!process_.waitForStarted() || !process_.waitForReadyRead())
        throw Difference(u"the simulated calibrator did not start"_s);
}

Calibrator::~Calibrator() {
    process_.terminate();
    process_.waitForFinished();
}

QString Calibrator::device() const {
    return QDir(folder_).filePath(u"COM1"_s);
}

QString Calibrator::memory() const {
    return QDir(folder_).filePath(u"torquestar.json"_s);
}

void Calibrator::carryOut(const QByteArray& plan) const {
    const auto path = QDir(folder_).filePath(u"plan.txt"_s);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(plan) != plan.size())
        throw Difference(u"the plan could not be written"_s);
    file.close();
    QProcess technician;
    technician.setProcessChannelMode(QProcess::ForwardedChannels);
    technician.start(program(u"kelvane-technician"_s),
                     {u"--memory"_s, memory(), u"carry-out"_s, u"--plan"_s, path});
    if (!technician.waitForFinished() || technician.exitCode() != 0)
        throw Difference(u"the work in the plant could not be carried out"_s);
}

} // namespace kelvane::demo
