#include "benchmarks/torque_site.h"

#include "resources/strings.h"
#include "resources/text_id.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::bench {

namespace {

constexpr int maxTools = 47;

/// The names of the first tools.
QStringList toolNames(int tools) {
    QStringList names;
    for (int number = 1; number <= tools; ++number)
        names << u"TWB-%1"_s.arg(number, 2, 10, QChar(u'0'));
    return names;
}

} // namespace

TorqueSite::TorqueSite(const Programs& programs, const QStringList& line)
    : Site(programs.database), port(settings), programs_(programs) {
    const auto link = folder.filePath(u"COM1"_s);
    settings.setValue(u"Ports"_s, u"COM1"_s, link);
    simulator_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    simulator_.start(programs_.simulator, QStringList{u"--memory"_s, folder.filePath(u"memory.json"_s),
                                                      u"--serial"_s, u"48213"_s, u"--link"_s, link} +
                                              line);
    require(simulator_.waitForStarted() && simulator_.waitForReadyRead(), u"the simulator did not start"_s);
    copyInstrument(u"TW-101"_s, toolNames(maxTools));
}

TorqueSite::~TorqueSite() {
    simulator_.terminate();
    simulator_.waitForFinished();
}

QString TorqueSite::packageOf(int tools) {
    auto& connection = sharedConnection(session);
    const auto names = toolNames(tools);
    connection.execute(u"delete from mt.hvm_kv_task_standards_inuse"_s);
    for (const auto& name : names)
        connection.execute(u"insert into mt.hvm_kv_task_standards_inuse (standard_mtag,entered_date,mtag) "
                           "values ((select mtag "
                           "from MT.inventory where i4201 = 'TT-0300F'),now(*),'%1');commit"_s.arg(name));
    return makePackage(names);
}

void TorqueSite::carryOut(int tools) {
    const auto plan = folder.filePath(u"plan.txt"_s);
    QFile file(plan);
    require(file.open(QIODevice::WriteOnly), u"no plan"_s);
    for (const auto& name : toolNames(tools))
        file.write(QStringLiteral("%1; 50, 150, 250; 0.5, -1, 1.5; bench\n").arg(name).toUtf8());
    file.close();
    // Each run needs a moment of its own, or its records would be there already.
    const auto moment = QTime(8, 0).addSecs(60 * tools).toString(u"HH:mm:ss"_s);
    QProcess technician;
    technician.start(programs_.technician, {u"--memory"_s, folder.filePath(u"memory.json"_s), u"carry-out"_s,
                                            u"--plan"_s, plan, u"--time"_s, moment});
    require(technician.waitForFinished() && technician.exitCode() == 0,
            QString::fromLocal8Bit(technician.readAllStandardError()));
}

} // namespace kelvane::bench
