#pragma once

#include "data/journal/journal.h"

#include <map>

namespace kelvane {

/// Keys of a journal's lines, and the value of the state that is no end.
namespace journal_key {
inline constexpr QLatin1StringView id("id");
inline constexpr QLatin1StringView state("state");
inline constexpr QLatin1StringView unfinished("unfinished");
inline constexpr QLatin1StringView begun("begun");
} // namespace journal_key

/// The content of the line that begins an entry.
QJsonObject contentOf(const JournalEntry& entry);
/// The entry that the contents of its lines make.
JournalEntry entryOf(const QString& id, const QJsonObject& content);

/// What the lines of one entry say together: a later line's keys hold over those of an earlier one.
struct EntryLines {
    QJsonObject content = {};
    /// A line has all its content: an end whose entry is gone has not.
    bool isWhole = false;
    bool hasEnded = false;
    qint64 size = 0;
};

/// The lines of a journal, by entry, in the order of their beginnings.
class JournalEntries {
  public:
    explicit JournalEntries(const QList<QByteArray>& lines);

    /// The entry of a line; empty for a line that is none, as a torn one.
    static QString idOf(const QByteArray& line);
    /// Whether a line with this content ends its entry.
    static bool isEnd(const QJsonObject& content);
    const QStringList& ids() const { return order_; }
    const EntryLines& linesOf(const QString& id) const { return entries_.at(id); }
    /// The lines of no entry, blank ones left aside.
    qsizetype strangeLines() const { return strangeLines_; }

  private:
    void take(const QByteArray& line);

    QStringList order_;
    std::map<QString, EntryLines> entries_;
    qsizetype strangeLines_ = 0;
};

} // namespace kelvane
