#include "data/journal/journal.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>
#include <QUuid>

#include <algorithm>
#include <map>

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

constexpr auto idKey = "id"_L1;
constexpr auto stateKey = "state"_L1;
constexpr auto rawKey = "raw"_L1;
constexpr auto fieldsKey = "fields"_L1;
constexpr auto preparedKey = "prepared"_L1;
constexpr auto begunKey = "begun"_L1;
constexpr auto sourceKey = "source"_L1;

constexpr QLatin1StringView unfinishedState = "unfinished"_L1;

QLatin1StringView stateOf(JournalEnd end) {
    switch (end) {
    case JournalEnd::done:
        return "done"_L1;
    case JournalEnd::refused:
        return "refused"_L1;
    case JournalEnd::discarded:
        break;
    }
    return "discarded"_L1;
}

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
    content[begunKey] = entry.begun;
    return content;
}

QStringList textsOf(const QJsonValue& value) {
    QStringList texts;
    const auto array = value.toArray();
    for (const auto& text : array)
        texts << text.toString();
    return texts;
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
    entry.begun = content[begunKey].toBool(true);
    return entry;
}

/// What the lines of one entry say together: a later line's keys hold over those of an earlier one.
struct EntryLines {
    QJsonObject content;
    /// A line has all its content: an end whose entry is gone has not.
    bool isWhole = false;
    bool hasEnded = false;
    qint64 size = 0;
};

/// The lines of a journal, by entry, in the order of their beginnings.
class Entries {
  public:
    explicit Entries(const QList<QByteArray>& lines) {
        for (const auto& line : lines)
            take(line);
    }

    /// The entry of a line; empty for a line that is none, as a torn one.
    static QString idOf(const QByteArray& line) {
        return QJsonDocument::fromJson(line).object()[idKey].toString();
    }
    /// Whether a line with this content ends its entry.
    static bool isEnd(const QJsonObject& content) {
        const auto state = content[stateKey].toString();
        return !state.isEmpty() && state != unfinishedState;
    }
    const QStringList& ids() const { return order_; }
    const EntryLines& linesOf(const QString& id) const { return entries_.at(id); }

  private:
    void take(const QByteArray& line) {
        const auto content = QJsonDocument::fromJson(line).object();
        const auto id = content[idKey].toString();
        if (id.isEmpty())
            return;
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

    QStringList order_;
    std::map<QString, EntryLines> entries_;
};

/// The lines without the oldest entries that have ended, until they take half of `size`. A line of no entry
/// stays: its contents may still be needed.
QList<QByteArray> dropOldEnded(const QList<QByteArray>& lines, qint64 size) {
    const Entries entries(lines);
    qint64 ended = 0;
    for (const auto& id : entries.ids())
        ended += entries.linesOf(id).hasEnded ? entries.linesOf(id).size : 0;
    QStringList dropped;
    for (const auto& id : entries.ids()) {
        if (ended <= size / 2)
            break;
        if (!entries.linesOf(id).hasEnded)
            continue;
        ended -= entries.linesOf(id).size;
        dropped << id;
    }
    QList<QByteArray> kept;
    for (const auto& line : lines) {
        if (!dropped.contains(Entries::idOf(line)))
            kept << line;
    }
    return kept;
}

/// The value of "id" in a line as it is written; another text where a line has been written otherwise.
QByteArrayView writtenId(const QByteArray& line) {
    constexpr QByteArrayView key = "\"id\":\"";
    const auto start = line.indexOf(key);
    const auto value = QByteArrayView(line).sliced(start < 0 ? line.size() : start + key.size());
    return value.first(std::max(value.indexOf('"'), qsizetype{0}));
}

/// The lines without those of entries that have ended. An upload asks after each record, and most entries
/// have ended: their lines need not be taken apart.
QList<QByteArray> dropEnded(const QList<QByteArray>& lines) {
    QSet<QByteArray> ended;
    for (const auto& line : lines) {
        if (!line.contains(R"("ended":")"))
            continue;
        const auto content = QJsonDocument::fromJson(line).object();
        if (Entries::isEnd(content))
            ended << content[idKey].toString().toUtf8();
    }
    ended.remove({});
    QList<QByteArray> kept;
    for (const auto& line : lines) {
        if (!ended.contains(writtenId(line).toByteArray()))
            kept << line;
    }
    return kept;
}

QString stamp(const Session& session) {
    return formatMoment(session.clock.moment(), u"YYYY-MM-DD HH:NN:SS");
}

} // namespace

Journal::Journal(const Session& session) : session_(session), file_(fileName(session.SessionDataSource)) {}

QString Journal::fileName(const QString& dataSource) {
    constexpr qsizetype readableLength = 32;
    QString readable = dataSource.left(readableLength);
    for (auto& character : readable) {
        const bool isPlain = character.unicode() < 128 && character.isLetterOrNumber();
        if (!isPlain)
            character = u'_';
    }
    const auto digest = QCryptographicHash::hash(dataSource.toUtf8(), QCryptographicHash::Sha256);
    return u"results-"_s + readable + u'-' + QString::fromLatin1(digest.toHex().left(32)) + u".journal"_s;
}

QString Journal::add(const JournalEntry& entry) {
    auto added = entry;
    added.id = QUuid::createUuid().toString(QUuid::WithoutBraces);
    added.moment = stamp(session_);
    added.user = session_.SessionUser;
    added.owner = session_.SessionOwner;
    replace(added);
    return added.id;
}

void Journal::replace(const JournalEntry& entry) {
    auto content = contentOf(entry);
    content[sourceKey] = session_.SessionDataSource;
    content[stateKey] = unfinishedState;
    write(entry.id, content);
}

void Journal::explain(const QString& id, const QString& why) {
    write(id, {{"why"_L1, why}});
}

void Journal::setDate(const QString& id, const QString& date, const QString& time) {
    write(id, {{"date"_L1, date}, {"time"_L1, time}});
}

void Journal::setBegun(const QString& id, const QString& date, const QString& time,
                       const QStringList& others) {
    write(id, {{"date"_L1, date},
               {"time"_L1, time},
               {begunKey, true},
               {"others"_L1, QJsonArray::fromStringList(others)}});
}

void Journal::end(const QString& id, JournalEnd end, const QString& why) {
    write(id, {{stateKey, stateOf(end)},
               {"endReason"_L1, why},
               {"ended"_L1, stamp(session_)},
               {"endedBy"_L1, session_.SessionUser}});
    file_.rewriteAbove(rotationSize,
                       [this](const QList<QByteArray>& lines) { return dropOldEnded(lines, rotationSize); });
}

QList<JournalEntry> Journal::unfinished() const {
    const Entries entries(dropEnded(file_.lines()));
    QList<JournalEntry> unfinished;
    for (const auto& id : entries.ids()) {
        const auto& entry = entries.linesOf(id);
        if (entry.isWhole && !entry.hasEnded)
            unfinished << entryOf(id, entry.content);
    }
    return unfinished;
}

std::optional<JournalEntry> Journal::find(const QString& id) const {
    for (auto& entry : unfinished()) {
        if (entry.id == id)
            return entry;
    }
    return {};
}

void Journal::write(const QString& id, QJsonObject content) {
    content[idKey] = id;
    file_.append(QJsonDocument(content).toJson(QJsonDocument::Compact));
}

} // namespace kelvane
