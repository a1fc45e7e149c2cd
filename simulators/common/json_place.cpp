#include "simulators/common/json_place.h"

#include "simulators/common/failure.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

void throwInvalid(const QString& where, const QString& what) {
    throw Failure(where + u": "_s + what);
}

Place wholeFrom(const QByteArray& text, const QString& format) {
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError)
        throw Failure(u"at byte %1: %2"_s.arg(error.offset).arg(error.errorString()));
    Place whole{document.object(), u"the memory"_s};
    if (whole.object[u"format"_s].toString() != format)
        throw Failure(u"it does not bear the mark \"%1\""_s.arg(format));
    return whole;
}

QJsonValue valueOf(const Place& place, const QString& key, QJsonValue::Type type) {
    QJsonValue value = place.object[key];
    if (value.type() != type)
        throwInvalid(place.words, value.isUndefined() ? u"\"%1\" is missing"_s.arg(key)
                                                      : u"\"%1\" is of the wrong kind"_s.arg(key));
    return value;
}

QString textAt(const Place& place, const QString& key) {
    return valueOf(place, key, QJsonValue::String).toString();
}

qint32 numberFrom(const QJsonValue& value, double factor, qint32 low, qint32 high, const QString& where) {
    const double number = std::round(value.toDouble() * factor);
    if (!value.isDouble() || !(number >= low && number <= high))
        throwInvalid(where, u"not a number that the calibrator can keep"_s);
    if (factor == 1.0 && number != value.toDouble())
        throwInvalid(where, u"not a whole number"_s);
    return static_cast<qint32>(number);
}

std::vector<Place> objectsAt(const Place& place, const QString& key) {
    std::vector<Place> places;
    for (const QJsonValue entry : valueOf(place, key, QJsonValue::Array).toArray()) {
        const QString words = u"%1, entry %2 of \"%3\""_s.arg(place.words).arg(places.size() + 1).arg(key);
        if (!entry.isObject())
            throwInvalid(words, u"of the wrong kind"_s);
        places.push_back({entry.toObject(), words});
    }
    return places;
}

void refuseOtherKeys(const Place& place, const QStringList& known) {
    for (const QString& key : place.object.keys())
        if (!known.contains(key))
            throwInvalid(place.words, u"\"%1\" is unknown"_s.arg(key));
}

} // namespace kelvane::simulators
