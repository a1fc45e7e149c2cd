#include "simulators/fluke702/memory.h"

#include "simulators/common/c_text.h"
#include "simulators/common/json_place.h"

#include <QDate>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QSet>
#include <QTime>

#include <cmath>
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

/// What is no number is written as a text.
QJsonValue jsonOf(float value) {
    const QString digits = digitsOf(value);
    return std::isfinite(value) ? QJsonValue(digits.toDouble()) : QJsonValue(digits);
}

template <class Values>
QJsonArray jsonOf(const Values& values) {
    QJsonArray array;
    for (const auto& value : values)
        array += value;
    return array;
}

QJsonArray numbersOf(std::initializer_list<float> values) {
    QJsonArray array;
    for (const float value : values)
        array += jsonOf(value);
    return array;
}

QJsonObject jsonOf(const Strategy& strategy) {
    QJsonArray points;
    for (const float point : strategy.points)
        points += jsonOf(point);
    return {{u"name"_s, strategy.name}, {u"points"_s, points}};
}

QJsonObject jsonOf(const Prompt& prompt) {
    return {{u"key"_s, prompt.key}, {u"text"_s, prompt.text}};
}

QJsonObject jsonOf(const State& state) {
    QJsonObject object{{u"automatic range"_s, state.automaticRange}};
    for (const auto& field : stateTexts)
        object[keyOf(field.key)] = state.*field.text;
    for (const auto& field : stateNumbers)
        object[keyOf(field.key)] = jsonOf(state.*field.number);
    for (const auto& field : stateScales) {
        const Scale& scale = state.*field.scale;
        object[keyOf(field.key)] =
            QJsonObject{{u"high"_s, jsonOf(scale.high)}, {u"low"_s, jsonOf(scale.low)}};
    }
    return object;
}

QJsonObject jsonOf(const Task& task) {
    return {{u"tag"_s, task.tag},
            {u"before"_s, jsonOf(task.before)},
            {u"after"_s, jsonOf(task.after)},
            {u"strategy"_s, task.strategy},
            {u"state"_s, task.state},
            {u"by hand"_s, task.byHand},
            {u"instrument"_s, task.instrument},
            {u"serial"_s, task.serial}};
}

QString pad(qint16 number, int width) {
    return QString::number(number).rightJustified(width, u'0');
}

QJsonObject jsonOf(const Run& run) {
    QJsonArray entries;
    for (const Entry& entry : run.entries)
        entries += numbersOf({entry.applied, entry.reading, entry.error});
    return {{u"kind"_s, run.kind},
            {u"date"_s, pad(run.year, 4) + u'-' + pad(run.month, 2) + u'-' + pad(run.day, 2)},
            {u"time"_s, pad(run.hour, 2) + u':' + pad(run.minute, 2) + u':' + pad(run.second, 2)},
            {u"tag"_s, run.tag},
            {u"serial"_s, run.serial},
            {u"technician"_s, run.technician},
            {u"pressure module"_s, run.module},
            {u"state"_s, run.state},
            {u"applied, reading, error"_s, entries}};
}

QJsonObject jsonOf(const Identity& identity) {
    return {{u"model"_s, identity.model},
            {u"serial"_s, identity.serial},
            {u"software"_s, identity.software},
            {u"room"_s, identity.room}};
}

template <class Kept>
QJsonArray objectsOf(const std::vector<Kept>& list) {
    QJsonArray array;
    for (const Kept& kept : list)
        array += jsonOf(kept);
    return array;
}

// ---- reading

QString shortTextAt(const Place& place, const QString& key, qsizetype longest) {
    QString text = textAt(place, key);
    if (text.size() > longest)
        throwInvalid(place.words, u"\"%1\" has more than %2 characters"_s.arg(key).arg(longest));
    return text;
}

qint32 wholeAt(const Place& place, const QString& key, qint32 low, qint32 high) {
    return numberFrom(place.object[key], 1.0, low, high, u"%1, \"%2\""_s.arg(place.words, key));
}

bool flagAt(const Place& place, const QString& key) {
    return valueOf(place, key, QJsonValue::Bool).toBool();
}

float floatFrom(const QJsonValue& value, const QString& where) {
    const double number = value.toDouble();
    if (!value.isDouble() || std::abs(number) > static_cast<double>(std::numeric_limits<float>::max()))
        throwInvalid(where, u"not a number that the calibrator can keep"_s);
    return static_cast<float>(number);
}

float floatAt(const Place& place, const QString& key) {
    return floatFrom(place.object[key], u"%1, \"%2\""_s.arg(place.words, key));
}

/// A broken calibrator may have stored anything.
float resultFrom(const QJsonValue& value, const QString& where) {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    if (value == "nan"_L1)
        return std::numeric_limits<float>::quiet_NaN();
    if (value == "inf"_L1 || value == "-inf"_L1)
        return value == "inf"_L1 ? infinity : -infinity;
    return floatFrom(value, where);
}

qint32 idAt(const Place& place, const QString& key, std::size_t count) {
    return wholeAt(place, key, 1, static_cast<qint32>(count));
}

std::vector<float> floatsAt(const Place& place, const QString& key) {
    std::vector<float> numbers;
    for (const QJsonValue value : valueOf(place, key, QJsonValue::Array).toArray())
        numbers.push_back(floatFrom(value, u"%1, \"%2\""_s.arg(place.words, key)));
    return numbers;
}

Strategy strategyFrom(const Place& place) {
    refuseOtherKeys(place, {u"name"_s, u"points"_s});
    Strategy strategy{shortTextAt(place, u"name"_s, longestStrategyName), floatsAt(place, u"points"_s)};
    if (strategy.points.empty() || strategy.points.size() > mostPoints)
        throwInvalid(place.words, u"a strategy has 1 to %1 points"_s.arg(mostPoints));
    return strategy;
}

Prompt promptFrom(const Place& place) {
    refuseOtherKeys(place, {u"key"_s, u"text"_s});
    return {shortTextAt(place, u"key"_s, longestKey), shortTextAt(place, u"text"_s, longestPrompt)};
}

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

std::vector<QString> keysAt(const Place& place, const QString& key, const QSet<QString>& prompts) {
    std::vector<QString> keys;
    for (const QJsonValue value : valueOf(place, key, QJsonValue::Array).toArray()) {
        if (!value.isString() || !prompts.contains(value.toString()))
            throwInvalid(place.words, u"\"%1\" names a prompt that is not there"_s.arg(key));
        keys.push_back(value.toString());
    }
    return keys;
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

void readMoment(Run& run, const Place& place) {
    static const QRegularExpression date(u"^(\\d{4})-(\\d\\d)-(\\d\\d)$"_s);
    const QRegularExpressionMatch parts = date.match(textAt(place, u"date"_s));
    const QTime time = QTime::fromString(textAt(place, u"time"_s), u"HH:mm:ss"_s);
    run.year = parts.captured(1).toShort();
    run.month = parts.captured(2).toShort();
    run.day = parts.captured(3).toShort();
    const bool notSet = run.year == 0 && run.month == 0 && run.day == 0;
    if (!parts.hasMatch() || !time.isValid() || !(notSet || QDate::isValid(run.year, run.month, run.day)))
        throwInvalid(place.words, u"not a date and time (\"2026-11-21\", \"09:30:00\")"_s);
    run.hour = static_cast<qint16>(time.hour());
    run.minute = static_cast<qint16>(time.minute());
    run.second = static_cast<qint16>(time.second());
}

Run runFrom(const Place& place, const Contents& contents) {
    const QString entries = u"applied, reading, error"_s;
    refuseOtherKeys(place, {u"kind"_s, u"date"_s, u"time"_s, u"tag"_s, u"serial"_s, u"technician"_s,
                            u"pressure module"_s, u"state"_s, entries});
    Run run;
    run.kind = static_cast<qint16>(wholeAt(place, u"kind"_s, 0, std::numeric_limits<qint16>::max()));
    readMoment(run, place);
    run.tag = shortTextAt(place, u"tag"_s, longestTag);
    run.serial = shortTextAt(place, u"serial"_s, longestSerial);
    run.technician = shortTextAt(place, u"technician"_s, longestTechnician);
    run.module = shortTextAt(place, u"pressure module"_s, longestModule);
    run.state = idAt(place, u"state"_s, contents.states.size());
    const QString where = u"%1, \"%2\""_s.arg(place.words, entries);
    for (const QJsonValue value : valueOf(place, entries, QJsonValue::Array).toArray()) {
        const QJsonArray entry = value.toArray();
        if (entry.size() != 3)
            throwInvalid(where, u"an entry has three numbers"_s);
        run.entries.push_back(
            {resultFrom(entry[1], where), resultFrom(entry[0], where), resultFrom(entry[2], where)});
    }
    if (run.entries.size() > static_cast<std::size_t>(std::numeric_limits<qint16>::max()))
        throwInvalid(where, u"more entries than the calibrator can keep"_s);
    return run;
}

Identity identityFrom(const Place& place) {
    refuseOtherKeys(place, {u"model"_s, u"serial"_s, u"software"_s, u"room"_s});
    return {shortTextAt(place, u"model"_s, 15), shortTextAt(place, u"serial"_s, 9),
            shortTextAt(place, u"software"_s, 39), wholeAt(place, u"room"_s, 0, 1'000'000)};
}

} // namespace

QString memoryFormat() {
    return u"kelvane-fluke702 memory 1"_s;
}

QByteArray textOf(const Memory& memory) {
    const Contents& contents = memory.contents;
    const QJsonObject whole{{u"format"_s, memoryFormat()},
                            {u"calibrator"_s, jsonOf(memory.identity)},
                            {u"strategies"_s, objectsOf(contents.strategies)},
                            {u"prompts"_s, objectsOf(contents.prompts)},
                            {u"states"_s, objectsOf(contents.states)},
                            {u"tasks"_s, objectsOf(contents.tasks)},
                            {u"runs"_s, objectsOf(contents.runs)}};
    return QJsonDocument(whole).toJson();
}

Memory memoryFrom(const QByteArray& text) {
    const Place whole = wholeFrom(text, memoryFormat());
    refuseOtherKeys(whole, {u"format"_s, u"calibrator"_s, u"strategies"_s, u"prompts"_s, u"states"_s,
                            u"tasks"_s, u"runs"_s});
    Memory memory;
    memory.identity =
        identityFrom({valueOf(whole, u"calibrator"_s, QJsonValue::Object).toObject(), u"\"calibrator\""_s});
    Contents& contents = memory.contents;
    for (const Place& place : objectsAt(whole, u"strategies"_s))
        contents.strategies.push_back(strategyFrom(place));
    QSet<QString> keys;
    for (const Place& place : objectsAt(whole, u"prompts"_s)) {
        contents.prompts.push_back(promptFrom(place));
        const QString& key = contents.prompts.back().key;
        if (keys.contains(key))
            throwInvalid(place.words, u"the key \"%1\" stands twice"_s.arg(key));
        keys += key;
    }
    for (const Place& place : objectsAt(whole, u"states"_s))
        contents.states.push_back(stateFrom(place));
    for (const Place& place : objectsAt(whole, u"tasks"_s))
        contents.tasks.push_back(taskFrom(place, contents, keys));
    for (const Place& place : objectsAt(whole, u"runs"_s))
        contents.runs.push_back(runFrom(place, contents));
    return memory;
}

} // namespace kelvane::simulators::fluke702
