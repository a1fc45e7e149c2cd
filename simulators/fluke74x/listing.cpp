#include "simulators/fluke74x/listing.h"

#include "simulators/common/c_text.h"
#include "simulators/common/listing_parts.h"
#include "simulators/fluke74x/step_buckets.h"

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke74x {

namespace {

/// The names of a side's items.
struct SideItems {
    QStringView mode;
    QStringView thermocouple;
    QStringView resistor;
    QStringView customUnit;
};

constexpr SideItems sourceItems{u"scMode", u"sTcType", u"sRtdType", u"sCustomUnit"};
constexpr SideItems measureItems{u"mcMode", u"mTcType", u"mRtdType", u"mCustomUnit"};

QString unitsOf(const State& state, const SideItems& items) {
    const QString mode = state.word(items.mode);
    if (mode == "TC"_L1)
        return u' ' + state.word(items.thermocouple) + u' ' + state.word(u"defaultTemp");
    if (mode.endsWith("RTD"_L1))
        return u' ' + state.word(items.resistor) + u' ' + state.word(u"defaultTemp");
    return mode == "Pressure"_L1 ? u' ' + state.word(u"defaultPres") : QString();
}

QString sideOf(const State& state, const SideItems& items, const Scale& scale, bool byHand) {
    const QString range = u" %1 to %2"_s.arg(digitsOf(scale.low), digitsOf(scale.high));
    if (byHand)
        return u"by hand"_s + range + u' ' + state.word(items.customUnit);
    return state.word(items.mode) + unitsOf(state, items) + range;
}

QString setupLine(const State& state, const ByHand& byHand) {
    QString line = u"  source %1, measure %2"_s.arg(
        sideOf(state, sourceItems, sourceScale(state, byHand), byHand.source),
        sideOf(state, measureItems, measureScale(state, byHand), byHand.measure));
    if (state.word(u"loop") != "Disabled"_L1)
        line += u", loop power "_s + state.word(u"loop");
    return line + u", tolerance %1 percent of span"_s.arg(digitsOf(state.number(u"tol")));
}

QString moduleWords(const QString& side, const QString& serial) {
    return serial.isEmpty() ? QString() : u", %1 module %2"_s.arg(side, serial);
}

QStringList runLines(const Run& run, int number) {
    const QString head = u"  run %1: "_s.arg(number) + whenAndWho(run.time, run.technician) +
                         moduleWords(u"source"_s, run.sourceModule) +
                         moduleWords(u"measure"_s, run.measureModule);
    return QStringList{head} + entryLines(run.entries);
}

QStringList resultLines(const Task& task, const std::vector<Run>& runs) {
    QStringList lines;
    int number = 0;
    for (const Run& run : runs)
        if (run.tag == task.instrument && run.serial == task.serial)
            lines += runLines(run, ++number);
    return lines.isEmpty() ? QStringList{u"  no results"_s} : lines;
}

QString taskLine(const Task& task, const std::vector<Strategy>& strategies) {
    const Strategy* const strategy = byId(strategies, task.strategy);
    if (strategy == nullptr)
        return u"%1 (serial number %2): no test strategy, can't be carried out"_s.arg(task.tag, task.serial);
    return headLine(task.tag, task.serial, *strategy);
}

} // namespace

QStringList listing(const Memory& memory) {
    const Contents& contents = memory.contents;
    const QHash<QString, QString> prompts = promptTexts(contents.prompts);
    QStringList lines{u"Fluke %1, serial number %2"_s.arg(memory.identity.model, memory.identity.serial)};
    if (contents.tasks.empty())
        lines += u"The calibrator is empty."_s;
    for (const Task& task : contents.tasks) {
        lines += taskLine(task, contents.strategies);
        lines += setupLine(*byId(contents.states, task.state), task.byHand);
        lines += promptLines(u"before"_s, task.before, prompts);
        lines += promptLines(u"after"_s, task.after, prompts);
        lines += resultLines(task, contents.runs);
    }
    return lines;
}

} // namespace kelvane::simulators::fluke74x
