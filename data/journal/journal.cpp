#include "data/journal/journal.h"

#include "data/journal/journal_entries.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>
#include <QUuid>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr auto sourceKey = "source"_L1;

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

/// The lines without the oldest entries that have ended, until they take half of `size`. A line of no entry
/// stays: its contents may still be needed.
QList<QByteArray> dropOldEnded(const QList<QByteArray>& lines, qint64 size) {
    const JournalEntries entries(lines);
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
        if (!dropped.contains(JournalEntries::idOf(line)))
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
        if (JournalEntries::isEnd(content))
            ended << content[journal_key::id].toString().toUtf8();
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
    content[journal_key::state] = journal_key::unfinished;
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
               {journal_key::begun, true},
               {"others"_L1, QJsonArray::fromStringList(others)}});
}

void Journal::end(const QString& id, JournalEnd end, const QString& why) {
    write(id, {{journal_key::state, stateOf(end)},
               {"endReason"_L1, why},
               {"ended"_L1, stamp(session_)},
               {"endedBy"_L1, session_.SessionUser}});
    file_.rewriteAbove(rotationSize,
                       [this](const QList<QByteArray>& lines) { return dropOldEnded(lines, rotationSize); });
}

QList<JournalEntry> Journal::unfinished() const {
    const JournalEntries entries(dropEnded(file_.lines()));
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
    content[journal_key::id] = id;
    file_.append(QJsonDocument(content).toJson(QJsonDocument::Compact));
}

} // namespace kelvane
