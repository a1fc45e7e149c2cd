#pragma once

#include "simulators/common/json_place.h"
#include "simulators/common/stored_parts.h"

#include <QJsonArray>
#include <QSet>

namespace kelvane::simulators {

// The parts of a memory as they stand in its file, and back. Reading throws `Failure` with the place in the
// file of what is not as it should be.

/// What is no number is written as a text.
QJsonValue numberJson(float value);
QJsonArray textsJson(const std::vector<QString>& texts);
QJsonObject strategyJson(const Strategy& strategy);
QJsonObject promptJson(const Prompt& prompt);
QJsonArray entriesJson(const std::vector<Entry>& entries);
/// "date" and "time".
void putTime(QJsonObject& object, const ClockTime& time);

template <class Kept>
QJsonArray objectsOf(const std::vector<Kept>& list, QJsonObject (*object)(const Kept&)) {
    QJsonArray array;
    for (const Kept& kept : list)
        array += object(kept);
    return array;
}

QString shortTextAt(const Place& place, const QString& key, qsizetype longest);
qint32 wholeAt(const Place& place, const QString& key, qint32 low, qint32 high);
bool flagAt(const Place& place, const QString& key);
float floatAt(const Place& place, const QString& key);
qint32 idAt(const Place& place, const QString& key, std::size_t count);

Strategy strategyFrom(const Place& place, qsizetype longestName);
/// The memory's "prompts", each with a key of its own.
std::vector<Prompt> promptsAt(const Place& whole);
QSet<QString> keysOf(const std::vector<Prompt>& prompts);
/// A list of keys of those prompts.
std::vector<QString> keysAt(const Place& place, const QString& key, const QSet<QString>& prompts);
ClockTime timeAt(const Place& place);
/// A broken calibrator may have stored anything: what is no number, too.
std::vector<Entry> entriesAt(const Place& place);
/// The name under which entries stand.
QString entriesKey();

/// Who the calibrator is: model, serial number, software and the number of tasks that it takes.
template <class Identity>
QJsonObject identityJson(const Identity& identity) {
    return {{QStringLiteral("model"), identity.model},
            {QStringLiteral("serial"), identity.serial},
            {QStringLiteral("software"), identity.software},
            {QStringLiteral("room"), identity.room}};
}

template <class Identity>
Identity identityAt(const Place& whole) {
    const Place place{valueOf(whole, QStringLiteral("calibrator"), QJsonValue::Object).toObject(),
                      QStringLiteral("\"calibrator\"")};
    refuseOtherKeys(place, {QStringLiteral("model"), QStringLiteral("serial"), QStringLiteral("software"),
                            QStringLiteral("room")});
    return {shortTextAt(place, QStringLiteral("model"), 15), shortTextAt(place, QStringLiteral("serial"), 9),
            shortTextAt(place, QStringLiteral("software"), 39),
            wholeAt(place, QStringLiteral("room"), 0, 1'000'000)};
}

} // namespace kelvane::simulators
