#include "simulators/fluke74x/memory.h"

#include "simulators/common/stored_json.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke74x {

namespace {

const QString measureByHand = u"measure by hand"_s;
const QString sourceByHand = u"source by hand"_s;

// ---- writing

QJsonValue valueJson(const Value& value) {
    if (const auto* const number = std::get_if<float>(&value))
        return numberJson(*number);
    if (const auto* const whole = std::get_if<qint32>(&value))
        return *whole;
    const auto* const unit = std::get_if<Unit>(&value);
    return unit == nullptr ? std::get<Word>(value).text : unit->name;
}

QJsonObject stateJson(const State& state) {
    QJsonObject object;
    for (std::size_t place = 0; place < items().size(); ++place)
        object[items()[place].name.toString()] = valueJson(state.values()[place]);
    return object;
}

QJsonObject taskJson(const Task& task) {
    return {{u"tag"_s, task.tag},
            {u"before"_s, textsJson(task.before)},
            {u"after"_s, textsJson(task.after)},
            {u"strategy"_s, task.strategy},
            {u"state"_s, task.state},
            {measureByHand, task.byHand.measure},
            {sourceByHand, task.byHand.source},
            {u"instrument"_s, task.instrument},
            {u"serial"_s, task.serial}};
}

QJsonObject runJson(const Run& run) {
    QJsonObject object{{u"tag"_s, run.tag},
                       {u"serial"_s, run.serial},
                       {u"technician"_s, run.technician},
                       {u"measure module"_s, run.measureModule},
                       {u"source module"_s, run.sourceModule},
                       {u"state"_s, run.state},
                       {measureByHand, run.byHand.measure},
                       {sourceByHand, run.byHand.source},
                       {entriesKey(), entriesJson(run.entries)}};
    putTime(object, run.time);
    return object;
}

// ---- reading

/// A value of the kind of the item.
Value valueAt(const Place& place, const QString& key, const Item& item) {
    if (std::holds_alternative<float>(item.initial))
        return floatAt(place, key);
    if (std::holds_alternative<qint32>(item.initial))
        return wholeAt(place, key, 0, item.highest);
    if (std::holds_alternative<Unit>(item.initial))
        return Unit{textAt(place, key)};
    return Word{textAt(place, key)};
}

State stateFrom(const Place& place) {
    QStringList known;
    State state;
    for (const Item& item : items()) {
        known += item.name.toString();
        if (state.set(known.constLast(), valueAt(place, known.constLast(), item)) != Done)
            throwInvalid(place.words, u"\"%1\" is not in the maps"_s.arg(known.constLast()));
    }
    refuseOtherKeys(place, known);
    return state;
}

ByHand byHandAt(const Place& place) {
    return {flagAt(place, measureByHand), flagAt(place, sourceByHand)};
}

Task taskFrom(const Place& place, const Contents& contents, const QSet<QString>& prompts) {
    refuseOtherKeys(place, {u"tag"_s, u"before"_s, u"after"_s, u"strategy"_s, u"state"_s, measureByHand,
                            sourceByHand, u"instrument"_s, u"serial"_s});
    return {shortTextAt(place, u"tag"_s, longestTag),
            keysAt(place, u"before"_s, prompts),
            keysAt(place, u"after"_s, prompts),
            wholeAt(place, u"strategy"_s, 0, static_cast<qint32>(contents.strategies.size())),
            idAt(place, u"state"_s, contents.states.size()),
            byHandAt(place),
            shortTextAt(place, u"instrument"_s, longestTag),
            shortTextAt(place, u"serial"_s, longestSerial)};
}

Run runFrom(const Place& place, const Contents& contents) {
    refuseOtherKeys(place, {u"date"_s, u"time"_s, u"tag"_s, u"serial"_s, u"technician"_s, u"measure module"_s,
                            u"source module"_s, u"state"_s, measureByHand, sourceByHand, entriesKey()});
    return {timeAt(place),
            shortTextAt(place, u"tag"_s, longestTag),
            shortTextAt(place, u"serial"_s, longestSerial),
            shortTextAt(place, u"technician"_s, longestTechnician),
            shortTextAt(place, u"measure module"_s, longestModule),
            shortTextAt(place, u"source module"_s, longestModule),
            idAt(place, u"state"_s, contents.states.size()),
            byHandAt(place),
            entriesAt(place)};
}

} // namespace

QString memoryFormat() {
    return u"kelvane-fluke74x memory 1"_s;
}

QByteArray textOf(const Memory& memory) {
    const Contents& contents = memory.contents;
    const QJsonObject whole{{u"format"_s, memoryFormat()},
                            {u"calibrator"_s, identityJson(memory.identity)},
                            {u"strategies"_s, objectsOf(contents.strategies, strategyJson)},
                            {u"prompts"_s, objectsOf(contents.prompts, promptJson)},
                            {u"states"_s, objectsOf(contents.states, stateJson)},
                            {u"tasks"_s, objectsOf(contents.tasks, taskJson)},
                            {u"runs"_s, objectsOf(contents.runs, runJson)}};
    return QJsonDocument(whole).toJson();
}

Memory memoryFrom(const QByteArray& text) {
    const Place whole = wholeFrom(text, memoryFormat());
    refuseOtherKeys(whole, {u"format"_s, u"calibrator"_s, u"strategies"_s, u"prompts"_s, u"states"_s,
                            u"tasks"_s, u"runs"_s});
    Memory memory;
    memory.identity = identityAt<Identity>(whole);
    Contents& contents = memory.contents;
    for (const Place& place : objectsAt(whole, u"strategies"_s))
        contents.strategies.push_back(strategyFrom(place, longestStrategyName));
    contents.prompts = promptsAt(whole);
    const QSet<QString> keys = keysOf(contents.prompts);
    for (const Place& place : objectsAt(whole, u"states"_s))
        contents.states.push_back(stateFrom(place));
    for (const Place& place : objectsAt(whole, u"tasks"_s))
        contents.tasks.push_back(taskFrom(place, contents, keys));
    for (const Place& place : objectsAt(whole, u"runs"_s))
        contents.runs.push_back(runFrom(place, contents));
    return memory;
}

} // namespace kelvane::simulators::fluke74x
