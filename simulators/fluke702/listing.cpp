#include "simulators/fluke702/listing.h"

#include "simulators/common/c_text.h"
#include "simulators/common/listing_parts.h"
#include "simulators/fluke702/plan.h"

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke702 {

namespace {

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

QStringList runLines(const Run& run) {
    QString head = u"  %1 "_s.arg(wordOf(run.kind)) + whenAndWho(run.time, run.technician);
    if (!run.module.isEmpty())
        head += u", pressure module "_s + run.module;
    return QStringList{head} + entryLines(run.entries);
}

} // namespace

QStringList listing(const Memory& memory) {
    const Contents& contents = memory.contents;
    const QHash<QString, QString> prompts = promptTexts(contents.prompts);
    QStringList lines{u"Fluke %1, serial number %2"_s.arg(memory.identity.model, memory.identity.serial)};
    if (contents.tasks.empty())
        lines += u"The calibrator is empty."_s;
    for (const Task& task : contents.tasks) {
        lines += headLine(task.tag, task.serial, *byId(contents.strategies, task.strategy)) +
                 (task.byHand ? u", read by hand"_s : QString());
        lines += setupLine(*byId(contents.states, task.state));
        lines += promptLines(u"before"_s, task.before, prompts);
        lines += promptLines(u"after"_s, task.after, prompts);
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
