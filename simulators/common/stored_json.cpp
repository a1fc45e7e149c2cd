#include "simulators/common/stored_json.h"

#include "simulators/common/c_text.h"

#include <QDate>
#include <QRegularExpression>
#include <QTime>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

QString pad(qint16 number, int width) {
    return QString::number(number).rightJustified(width, u'0');
}

QString wordsOf(const Place& place, const QString& key) {
    return u"%1, \"%2\""_s.arg(place.words, key);
}

float floatFrom(const QJsonValue& value, const QString& where) {
    const double number = value.toDouble();
    if (!value.isDouble() || std::abs(number) > static_cast<double>(std::numeric_limits<float>::max()))
        throwInvalid(where, u"not a number that the calibrator can keep"_s);
    return static_cast<float>(number);
}

float resultFrom(const QJsonValue& value, const QString& where) {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    if (value == "nan"_L1)
        return std::numeric_limits<float>::quiet_NaN();
    if (value == "inf"_L1 || value == "-inf"_L1)
        return value == "inf"_L1 ? infinity : -infinity;
    return floatFrom(value, where);
}

} // namespace

// ---- writing

QJsonValue numberJson(float value) {
    const QString digits = digitsOf(value);
    return std::isfinite(value) ? QJsonValue(digits.toDouble()) : QJsonValue(digits);
}

QJsonArray textsJson(const std::vector<QString>& texts) {
    QJsonArray array;
    for (const QString& text : texts)
        array += text;
    return array;
}

QJsonObject strategyJson(const Strategy& strategy) {
    QJsonArray points;
    for (const float point : strategy.points)
        points += numberJson(point);
    return {{u"name"_s, strategy.name}, {u"points"_s, points}};
}

QJsonObject promptJson(const Prompt& prompt) {
    return {{u"key"_s, prompt.key}, {u"text"_s, prompt.text}};
}

QJsonArray entriesJson(const std::vector<Entry>& entries) {
    QJsonArray array;
    for (const Entry& entry : entries)
        array += QJsonArray{numberJson(entry.applied), numberJson(entry.reading), numberJson(entry.error)};
    return array;
}

void putTime(QJsonObject& object, const ClockTime& time) {
    object[u"date"_s] = pad(time.year, 4) + u'-' + pad(time.month, 2) + u'-' + pad(time.day, 2);
    object[u"time"_s] = pad(time.hour, 2) + u':' + pad(time.minute, 2) + u':' + pad(time.second, 2);
}

// ---- reading

QString shortTextAt(const Place& place, const QString& key, qsizetype longest) {
    QString text = textAt(place, key);
    if (text.size() > longest)
        throwInvalid(place.words, u"\"%1\" has more than %2 characters"_s.arg(key).arg(longest));
    return text;
}

qint32 wholeAt(const Place& place, const QString& key, qint32 low, qint32 high) {
    return numberFrom(place.object[key], 1.0, low, high, wordsOf(place, key));
}

bool flagAt(const Place& place, const QString& key) {
    return valueOf(place, key, QJsonValue::Bool).toBool();
}

float floatAt(const Place& place, const QString& key) {
    return floatFrom(place.object[key], wordsOf(place, key));
}

qint32 idAt(const Place& place, const QString& key, std::size_t count) {
    return wholeAt(place, key, 1, static_cast<qint32>(count));
}

Strategy strategyFrom(const Place& place, qsizetype longestName) {
    refuseOtherKeys(place, {u"name"_s, u"points"_s});
    Strategy strategy{shortTextAt(place, u"name"_s, longestName), {}};
    for (const QJsonValue value : valueOf(place, u"points"_s, QJsonValue::Array).toArray())
        strategy.points.push_back(floatFrom(value, wordsOf(place, u"points"_s)));
    if (strategy.points.empty() || strategy.points.size() > maxPoints)
        throwInvalid(place.words, u"a strategy has 1 to %1 points"_s.arg(maxPoints));
    return strategy;
}

std::vector<Prompt> promptsAt(const Place& whole) {
    std::vector<Prompt> prompts;
    QSet<QString> keys;
    for (const Place& place : objectsAt(whole, u"prompts"_s)) {
        refuseOtherKeys(place, {u"key"_s, u"text"_s});
        prompts.push_back(
            {shortTextAt(place, u"key"_s, longestKey), shortTextAt(place, u"text"_s, longestPrompt)});
        const QString& key = prompts.back().key;
        if (keys.contains(key))
            throwInvalid(place.words, u"the key \"%1\" stands twice"_s.arg(key));
        keys += key;
    }
    return prompts;
}

QSet<QString> keysOf(const std::vector<Prompt>& prompts) {
    QSet<QString> keys;
    for (const Prompt& prompt : prompts)
        keys += prompt.key;
    return keys;
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

ClockTime timeAt(const Place& place) {
    static const QRegularExpression date(u"^(\\d{4})-(\\d\\d)-(\\d\\d)$"_s);
    const QRegularExpressionMatch parts = date.match(textAt(place, u"date"_s));
    const QTime time = QTime::fromString(textAt(place, u"time"_s), u"HH:mm:ss"_s);
    const ClockTime clock{parts.captured(1).toShort(),        parts.captured(2).toShort(),
                          parts.captured(3).toShort(),        static_cast<qint16>(time.hour()),
                          static_cast<qint16>(time.minute()), static_cast<qint16>(time.second())};
    const bool notSet = clock.year == 0 && clock.month == 0 && clock.day == 0;
    if (!parts.hasMatch() || !time.isValid() ||
        !(notSet || QDate::isValid(clock.year, clock.month, clock.day)))
        throwInvalid(place.words, u"not a date and time (\"2026-11-21\", \"09:30:00\")"_s);
    return clock;
}

QString entriesKey() {
    return u"applied, reading, error"_s;
}

std::vector<Entry> entriesAt(const Place& place) {
    const QString where = wordsOf(place, entriesKey());
    std::vector<Entry> entries;
    for (const QJsonValue value : valueOf(place, entriesKey(), QJsonValue::Array).toArray()) {
        const QJsonArray numbers = value.toArray();
        if (numbers.size() != 3)
            throwInvalid(where, u"an entry has three numbers"_s);
        entries.push_back(
            {resultFrom(numbers[1], where), resultFrom(numbers[0], where), resultFrom(numbers[2], where)});
    }
    if (entries.size() > static_cast<std::size_t>(std::numeric_limits<qint16>::max()))
        throwInvalid(where, u"more entries than the calibrator can keep"_s);
    return entries;
}

} // namespace kelvane::simulators
