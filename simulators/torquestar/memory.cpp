#include "simulators/torquestar/memory.h"

#include "simulators/common/json_place.h"

#include <QDate>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QTime>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

template <typename List>
auto* findNamed(List& list, const QString& name) {
    const auto place =
        std::find_if(list.begin(), list.end(), [&](const auto& entry) { return entry.name == name; });
    return place == list.end() ? nullptr : &*place;
}

// ---- writing

QString dateText(qint32 date) {
    return QDate(date / 10000, date / 100 % 100, date % 100).toString(Qt::ISODate);
}

QString timeText(qint32 time) {
    return QTime(time / 10000, time / 100 % 100, time % 100).toString(Qt::ISODate);
}

QJsonObject jsonOf(const Fields& fields) {
    QJsonObject object;
    for (std::size_t field = 0; field < FieldCount; ++field) {
        const FieldShape& shape = shapeOf(field);
        if (const std::optional<qint32> value = fields.at(field))
            object[QLatin1StringView(shape.name)] =
                shape.scaled ? QJsonValue(*value / scale) : QJsonValue(*value);
    }
    return object;
}

QJsonObject jsonOf(const Result& result) {
    QJsonArray samples;
    for (const qint32 sample : result.samples)
        samples += sample / scale;
    return {{u"date"_s, dateText(result.date)}, {u"time"_s, timeText(result.time)}, {u"samples"_s, samples}};
}

QJsonObject jsonOf(const Characteristic& characteristic) {
    QJsonArray results;
    for (const Result& result : characteristic.results)
        results += jsonOf(result);
    return {{u"name"_s, characteristic.name},
            {u"fields"_s, jsonOf(characteristic.fields)},
            {u"comment"_s, characteristic.comment},
            {u"results"_s, results}};
}

QJsonObject jsonOf(const Round& round) {
    QJsonArray names;
    for (const QString& name : round.characteristics)
        names += name;
    return {{u"name"_s, round.name}, {u"sample mode"_s, round.sampleMode}, {u"characteristics"_s, names}};
}

// ---- reading

Fields fieldsFrom(const Place& place) {
    QStringList known;
    Fields fields;
    for (std::size_t field = 0; field < FieldCount; ++field) {
        const FieldShape& shape = shapeOf(field);
        const QString key = QString::fromLatin1(shape.name);
        known += key;
        if (!place.object.contains(key))
            continue;
        const bool wide = shape.width == 4;
        const qint32 low = wide ? std::numeric_limits<qint32>::min() : 0;
        const qint32 high = wide ? std::numeric_limits<qint32>::max() : (1 << 8 * shape.width) - 1;
        fields.at(field) = numberFrom(place.object[key], shape.scaled ? scale : 1.0, low, high,
                                      u"%1, \"%2\""_s.arg(place.words, key));
    }
    refuseOtherKeys(place, known);
    return fields;
}

Result resultFrom(const Place& place) {
    refuseOtherKeys(place, {u"date"_s, u"time"_s, u"samples"_s});
    const QDate date = QDate::fromString(textAt(place, u"date"_s), Qt::ISODate);
    const QTime time = QTime::fromString(textAt(place, u"time"_s), u"HH:mm:ss"_s);
    if (!date.isValid() || !time.isValid())
        throwInvalid(place.words, u"not a date and time (\"2026-11-21\", \"09:30:00\")"_s);
    Result result{date.year() * 10000 + date.month() * 100 + date.day(),
                  time.hour() * 10000 + time.minute() * 100 + time.second(),
                  {}};
    for (const QJsonValue sample : valueOf(place, u"samples"_s, QJsonValue::Array).toArray())
        result.samples.push_back(numberFrom(sample, scale, std::numeric_limits<qint32>::min(),
                                            std::numeric_limits<qint32>::max(),
                                            place.words + u", \"samples\""_s));
    return result;
}

QString nameAt(const Place& place, QSet<QString>& taken) {
    QString name = textAt(place, u"name"_s);
    if (name.isEmpty() || name.size() > longestName)
        throwInvalid(place.words, u"a name has 1 to %1 characters"_s.arg(longestName));
    if (taken.contains(name))
        throwInvalid(place.words, u"the name \"%1\" stands twice"_s.arg(name));
    taken += name;
    return name;
}

Characteristic characteristicFrom(const Place& place, QSet<QString>& taken) {
    refuseOtherKeys(place, {u"name"_s, u"fields"_s, u"comment"_s, u"results"_s});
    Characteristic characteristic;
    characteristic.name = nameAt(place, taken);
    const QString words = u"%1 (%2)"_s.arg(place.words, characteristic.name);
    characteristic.fields = fieldsFrom({valueOf(place, u"fields"_s, QJsonValue::Object).toObject(), words});
    characteristic.comment = textAt(place, u"comment"_s);
    for (const Place& result : objectsAt({place.object, words}, u"results"_s))
        characteristic.results.push_back(resultFrom(result));
    return characteristic;
}

Round roundFrom(const Place& place, QSet<QString>& taken) {
    refuseOtherKeys(place, {u"name"_s, u"sample mode"_s, u"characteristics"_s});
    Round round;
    round.name = nameAt(place, taken);
    round.sampleMode =
        numberFrom(place.object[u"sample mode"_s], 1.0, 0, 255, place.words + u", \"sample mode\""_s);
    for (const QJsonValue name : valueOf(place, u"characteristics"_s, QJsonValue::Array).toArray()) {
        if (!name.isString())
            throwInvalid(place.words, u"\"characteristics\" holds names"_s);
        round.characteristics.push_back(name.toString());
    }
    return round;
}

} // namespace

Characteristic* Memory::find(const QString& name) {
    return findNamed(characteristics, name);
}

Round* Memory::findRound(const QString& name) {
    return findNamed(rounds, name);
}

void Memory::remove(const QString& name) {
    std::erase_if(characteristics, [&](const Characteristic& entry) { return entry.name == name; });
    for (Round& round : rounds)
        std::erase(round.characteristics, name);
}

QString memoryFormat() {
    return u"kelvane-torquestar memory 1"_s;
}

QByteArray textOf(const Memory& memory) {
    QJsonArray rounds;
    for (const Round& round : memory.rounds)
        rounds += jsonOf(round);
    QJsonArray characteristics;
    for (const Characteristic& characteristic : memory.characteristics)
        characteristics += jsonOf(characteristic);
    const QJsonObject whole{
        {u"format"_s, memoryFormat()}, {u"rounds"_s, rounds}, {u"characteristics"_s, characteristics}};
    return QJsonDocument(whole).toJson();
}

Memory memoryFrom(const QByteArray& text) {
    const Place whole = wholeFrom(text, memoryFormat());
    refuseOtherKeys(whole, {u"format"_s, u"rounds"_s, u"characteristics"_s});

    Memory memory;
    QSet<QString> roundNames;
    for (const Place& place : objectsAt(whole, u"rounds"_s))
        memory.rounds.push_back(roundFrom(place, roundNames));
    QSet<QString> names;
    for (const Place& place : objectsAt(whole, u"characteristics"_s))
        memory.characteristics.push_back(characteristicFrom(place, names));
    return memory;
}

} // namespace kelvane::simulators
