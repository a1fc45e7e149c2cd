#include "tests/simulators/programs.h"

#include <QCoreApplication>
#include <QFile>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

constexpr int patience = 20000; // milliseconds

} // namespace

QByteArray SimulatorFolder::contentOf(const QString& name) const {
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void SimulatorFolder::put(const QString& name, const QByteArray& content) const {
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        throw std::runtime_error("the file can't be written: " + name.toStdString());
}

std::unique_ptr<QProcess> startProgram(const QString& program, const QStringList& arguments) {
    auto process = std::make_unique<QProcess>();
    process->start(QCoreApplication::applicationDirPath() + u'/' + program, arguments);
    if (!process->waitForStarted(patience))
        throw std::runtime_error("the program does not start: " + program.toStdString());
    return process;
}

Outcome outcomeOf(QProcess& process) {
    if (process.state() != QProcess::NotRunning && !process.waitForFinished(patience))
        return {};
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -2,
            QString::fromLocal8Bit(process.readAllStandardOutput()),
            QString::fromLocal8Bit(process.readAllStandardError())};
}

Outcome runProgram(const QString& program, const QStringList& arguments) {
    const std::unique_ptr<QProcess> process = startProgram(program, arguments);
    return outcomeOf(*process);
}

Calibrator::Calibrator(const SimulatorFolder& simulatorFolder, const QStringList& more)
    : process_(startProgram(u"kelvane-torquestar"_s,
                            QStringList{u"--memory"_s, simulatorFolder.memory(), u"--serial"_s, u"48213"_s,
                                        u"--link"_s, simulatorFolder.link(), u"--record"_s,
                                        simulatorFolder.record()} +
                                more)) {
    while (!process_->canReadLine())
        if (!process_->waitForReadyRead(patience))
            throw std::runtime_error("the calibrator does not start: " +
                                     process_->readAllStandardError().toStdString());
    device_ = QString::fromLocal8Bit(process_->readLine()).trimmed();
}

Calibrator::~Calibrator() {
    process_->terminate();
    if (process_->state() != QProcess::NotRunning && !process_->waitForFinished(patience))
        process_->kill();
}

QStringList Calibrator::faulty(const QStringList& faults) {
    QStringList arguments{u"--no-pace"_s};
    for (const QString& fault : faults)
        arguments += {u"--fault"_s, fault};
    return arguments;
}

} // namespace kelvane::simulators
