#include "simulators/fluke702/listing.h"

#include "simulators/common/c_text.h"
#include "simulators/fluke702/plan.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke702 {

namespace {

QString pointsOf(const Strategy& strategy) {
    QStringList percents;
    for (const float point : strategy.points)
        percents += QString::number(static_cast<double>(point) * 100, 'g', 6);
    return percents.join(u' ');
}

QString headLine(const Task& task, const Strategy& strategy) {
    return u"%1 (serial number %2): %3 at %4 percent%5"_s.arg(task.tag, task.serial, strategy.name,
                                                              pointsOf(strategy),
                                                              task.byHand ? u", read by hand"_s : QString());
}

QString sideOf(const QString& mode, const QString& sensor, const State& state, const Scale& scale) {
    QString side = mode;
    if (!sensor.isEmpty())
        side += u' ' + sensor;
    if (mode == "pressure"_L1)
        side += u' ' + state.pressureUnits;
    if (mode.endsWith("rtd"_L1) || mode == "tc"_L1)
        side += u' ' + state.temperatureUnits;
    return side + u" %1 to %2"_s.arg(digitsOf(scale.low), digitsOf(scale.high));
}

QString setupLine(const State& state) {
    QString line = u"  source %1, measure %2"_s.arg(
        sideOf(state.sourceMode, state.sourceSensor, state, state.source),
        sideOf(state.measureMode, state.measureSensor, state, state.measured));
    if (state.loopPower != "off"_L1)
        line += u", loop power "_s + state.loopPower;
    return line + u", tolerance %1 percent of span"_s.arg(digitsOf(state.tolerance));
}

/// A prompt in one line, whatever line ends it has.
QString promptLine(const QString& when, const QString& prompt) {
    return u"  %1: %2"_s.arg(when, prompt.simplified());
}

QStringList runLines(const Run& run) {
    QString head = u"  %1 %2-%3-%4 %5:%6:%7 by %8"_s.arg(wordOf(run.kind))
                       .arg(run.year, 4, 10, QChar(u'0'))
                       .arg(run.month, 2, 10, QChar(u'0'))
                       .arg(run.day, 2, 10, QChar(u'0'))
                       .arg(run.hour, 2, 10, QChar(u'0'))
                       .arg(run.minute, 2, 10, QChar(u'0'))
                       .arg(run.second, 2, 10, QChar(u'0'))
                       .arg(run.technician);
    if (!run.module.isEmpty())
        head += u", pressure module "_s + run.module;
    QStringList lines{head};
    for (const Entry& entry : run.entries)
        lines += u"    applied %1, read %2, error shown %3"_s.arg(
            digitsOf(entry.applied), digitsOf(entry.reading), digitsOf(entry.error));
    return lines;
}

} // namespace

QStringList listing(const Memory& memory) {
    const Contents& contents = memory.contents;
    QHash<QString, QString> prompts;
    for (const Prompt& prompt : contents.prompts)
        prompts[prompt.key] = prompt.text;
    QStringList lines{u"Fluke %1, serial number %2"_s.arg(memory.identity.model, memory.identity.serial)};
    if (contents.tasks.empty())
        lines += u"The calibrator is empty."_s;
    for (const Task& task : contents.tasks) {
        lines += headLine(task, *byId(contents.strategies, task.strategy));
        lines += setupLine(*byId(contents.states, task.state));
        for (const QString& key : task.before)
            lines += promptLine(u"before"_s, prompts[key]);
        for (const QString& key : task.after)
            lines += promptLine(u"after"_s, prompts[key]);
        const qsizetype without = lines.size();
        for (const Run& run : contents.runs)
            if (run.tag == task.instrument && run.serial == task.serial)
                lines += runLines(run);
        if (lines.size() == without)
            lines += u"  no results"_s;
    }
    return lines;
}

} // namespace kelvane::simulators::fluke702
