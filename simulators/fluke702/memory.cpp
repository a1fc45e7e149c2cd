#include "simulators/fluke702/memory.h"

#include "simulators/common/stored_json.h"

#include <QJsonDocument>

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke702 {

namespace {

// The settings of a state as they stand in the file.
constexpr struct {
    const char16_t* key;
    QString State::*text;
} stateTexts[] = {
    {u"temperature units", &State::temperatureUnits},
    {u"cold junction", &State::coldJunction},
    {u"temperature standard", &State::temperatureStandard},
    {u"pressure units", &State::pressureUnits},
    {u"source mode", &State::sourceMode},
    {u"source sensor", &State::sourceSensor},
    {u"measure mode", &State::measureMode},
    {u"measure sensor", &State::measureSensor},
    {u"loop power", &State::loopPower},
};
constexpr struct {
    const char16_t* key;
    float State::*number;
} stateNumbers[] = {
    {u"cold junction temperature", &State::coldJunctionTemperature},
    {u"source value", &State::sourceValue},
    {u"source amplitude", &State::sourceAmplitude},
    {u"range", &State::range},
    {u"tolerance", &State::tolerance},
};
constexpr struct {
    const char16_t* key;
    Scale State::*scale;
} stateScales[] = {
    {u"source", &State::source},
    {u"measured", &State::measured},
};

QString keyOf(const char16_t* key) {
    return QString::fromUtf16(key);
}

// ---- writing

QJsonObject stateJson(const State& state) {
    QJsonObject object{{u"automatic range"_s, state.automaticRange}};
    for (const auto& field : stateTexts)
        object[keyOf(field.key)] = state.*field.text;
    for (const auto& field : stateNumbers)
        object[keyOf(field.key)] = numberJson(state.*field.number);
    for (const auto& field : stateScales) {
        const Scale& scale = state.*field.scale;
        object[keyOf(field.key)] =
            QJsonObject{{u"high"_s, numberJson(scale.high)}, {u"low"_s, numberJson(scale.low)}};
    }
    return object;
}

QJsonObject taskJson(const Task& task) {
    return {{u"tag"_s, task.tag},
            {u"before"_s, textsJson(task.before)},
            {u"after"_s, textsJson(task.after)},
            {u"strategy"_s, task.strategy},
            {u"state"_s, task.state},
            {u"by hand"_s, task.byHand},
            {u"instrument"_s, task.instrument},
            {u"serial"_s, task.serial}};
}

QJsonObject runJson(const Run& run) {
    QJsonObject object{{u"kind"_s, run.kind},
                       {u"tag"_s, run.tag},
                       {u"serial"_s, run.serial},
                       {u"technician"_s, run.technician},
                       {u"pressure module"_s, run.module},
                       {u"state"_s, run.state},
                       {entriesKey(), entriesJson(run.entries)}};
    putTime(object, run.time);
    return object;
}

// ---- reading

State stateFrom(const Place& place) {
    QStringList known{u"automatic range"_s};
    State state;
    state.automaticRange = flagAt(place, known.constFirst());
    for (const auto& field : stateTexts) {
        known += keyOf(field.key);
        state.*field.text = textAt(place, known.constLast());
    }
    for (const auto& field : stateNumbers) {
        known += keyOf(field.key);
        state.*field.number = floatAt(place, known.constLast());
    }
    for (const auto& field : stateScales) {
        known += keyOf(field.key);
        const Place scale{valueOf(place, known.constLast(), QJsonValue::Object).toObject(),
                          u"%1, \"%2\""_s.arg(place.words, known.constLast())};
        refuseOtherKeys(scale, {u"high"_s, u"low"_s});
        state.*field.scale = {floatAt(scale, u"high"_s), floatAt(scale, u"low"_s)};
    }
    refuseOtherKeys(place, known);
    return state;
}

Task taskFrom(const Place& place, const Contents& contents, const QSet<QString>& prompts) {
    refuseOtherKeys(place, {u"tag"_s, u"before"_s, u"after"_s, u"strategy"_s, u"state"_s, u"by hand"_s,
                            u"instrument"_s, u"serial"_s});
    return {shortTextAt(place, u"tag"_s, longestTag),
            keysAt(place, u"before"_s, prompts),
            keysAt(place, u"after"_s, prompts),
            idAt(place, u"strategy"_s, contents.strategies.size()),
            idAt(place, u"state"_s, contents.states.size()),
            flagAt(place, u"by hand"_s),
            shortTextAt(place, u"instrument"_s, longestTag),
            shortTextAt(place, u"serial"_s, longestSerial)};
}

Run runFrom(const Place& place, const Contents& contents) {
    refuseOtherKeys(place, {u"kind"_s, u"date"_s, u"time"_s, u"tag"_s, u"serial"_s, u"technician"_s,
                            u"pressure module"_s, u"state"_s, entriesKey()});
    Run run;
    run.kind = static_cast<qint16>(wholeAt(place, u"kind"_s, 0, std::numeric_limits<qint16>::max()));
    run.time = timeAt(place);
    run.tag = shortTextAt(place, u"tag"_s, longestTag);
    run.serial = shortTextAt(place, u"serial"_s, longestSerial);
    run.technician = shortTextAt(place, u"technician"_s, longestTechnician);
    run.module = shortTextAt(place, u"pressure module"_s, longestModule);
    run.state = idAt(place, u"state"_s, contents.states.size());
    run.entries = entriesAt(place);
    return run;
}

} // namespace

QString memoryFormat() {
    return u"kelvane-fluke702 memory 1"_s;
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

} // namespace kelvane::simulators::fluke702
