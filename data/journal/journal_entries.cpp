#include "data/journal/journal_entries.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// The texts of an entry and their keys in its line.
constexpr struct {
    QLatin1StringView key;
    QString JournalEntry::*text;
} textKeys[] = {
    {"moment"_L1, &JournalEntry::moment}, {"user"_L1, &JournalEntry::user},
    {"owner"_L1, &JournalEntry::owner},   {"driver"_L1, &JournalEntry::driver},
    {"serial"_L1, &JournalEntry::serial}, {"calibrator"_L1, &JournalEntry::calibrator},
    {"asset"_L1, &JournalEntry::asset},   {"mtag"_L1, &JournalEntry::mtag},
    {"date"_L1, &JournalEntry::date},     {"time"_L1, &JournalEntry::time},
    {"why"_L1, &JournalEntry::why},
};

constexpr struct {
    QLatin1StringView key;
    QStringList JournalEntry::*list;
} listKeys[] = {
    {"readings"_L1, &JournalEntry::readings},
    {"lines"_L1, &JournalEntry::lines},
    {"standards"_L1, &JournalEntry::standards},
    {"others"_L1, &JournalEntry::others},
};

constexpr auto rawKey = "raw"_L1;
constexpr auto fieldsKey = "fields"_L1;
constexpr auto preparedKey = "prepared"_L1;

QStringList textsOf(const QJsonValue& value) {
    QStringList texts;
    const auto array = value.toArray();
    for (const auto& text : array)
        texts << text.toString();
    return texts;
}

} // namespace

QJsonObject contentOf(const JournalEntry& entry) {
    QJsonObject content;
    for (const auto& field : textKeys)
        content[field.key] = entry.*field.text;
    for (const auto& field : listKeys)
        content[field.key] = QJsonArray::fromStringList(entry.*field.list);
    QJsonArray fields;
    for (const auto& [column, value] : entry.fields)
        fields << QJsonArray{column, value};
    content[fieldsKey] = fields;
    content[rawKey] = entry.raw;
    content[preparedKey] = entry.prepared;
    content[journal_key::begun] = entry.begun;
    return content;
}

JournalEntry entryOf(const QString& id, const QJsonObject& content) {
    JournalEntry entry;
    entry.id = id;
    for (const auto& field : textKeys)
        entry.*field.text = content[field.key].toString();
    for (const auto& field : listKeys)
        entry.*field.list = textsOf(content[field.key]);
    const auto fields = content[fieldsKey].toArray();
    for (const auto& field : fields)
        entry.fields << std::pair(field[0].toString(), field[1].toString());
    entry.raw = content[rawKey].toObject();
    entry.prepared = content[preparedKey].toBool();
    // Earlier versions of the program did not note it.
    entry.begun = content[journal_key::begun].toBool(true);
    return entry;
}

JournalEntries::JournalEntries(const QList<QByteArray>& lines) {
    for (const auto& line : lines)
        take(line);
}

QString JournalEntries::idOf(const QByteArray& line) {
    return QJsonDocument::fromJson(line).object()[journal_key::id].toString();
}

bool JournalEntries::isEnd(const QJsonObject& content) {
    const auto state = content[journal_key::state].toString();
    return !state.isEmpty() && state != journal_key::unfinished;
}

void JournalEntries::take(const QByteArray& line) {
    const auto content = QJsonDocument::fromJson(line).object();
    const auto id = content[journal_key::id].toString();
    if (id.isEmpty()) {
        strangeLines_ += line.trimmed().isEmpty() ? 0 : 1;
        return;
    }
    if (!entries_.contains(id))
        order_ << id;
    auto& entry = entries_[id];
    entry.size += line.size() + 1;
    if (entry.hasEnded)
        return;
    for (auto key = content.begin(); key != content.end(); ++key)
        entry.content[key.key()] = key.value();
    entry.isWhole = entry.isWhole || content.contains(rawKey);
    entry.hasEnded = isEnd(content);
}

} // namespace kelvane
