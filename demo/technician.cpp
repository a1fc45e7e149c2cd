#include "demo/technician.h"

#include "testkit/difference.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace kelvane::demo {

QString programBeside(const QString& name) {
    return QDir(QCoreApplication::applicationDirPath()).filePath(name);
}

void carryOut(const QString& memory, const QByteArray& plan) {
    const auto path = QFileInfo(memory).dir().filePath(u"plan.txt"_s);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(plan) != plan.size())
        throw Difference(u"the plan could not be written"_s);
    file.close();
    QProcess technician;
    technician.setProcessChannelMode(QProcess::ForwardedChannels);
    technician.start(programBeside(u"kelvane-technician"_s),
                     {u"--memory"_s, memory, u"carry-out"_s, u"--plan"_s, path});
    if (!technician.waitForFinished() || technician.exitCode() != 0)
        throw Difference(u"the work in the plant could not be carried out"_s);
}

} // namespace kelvane::demo
