#pragma once

#include "endurance/act_log.h"

#include <QHash>

#include <limits>
#include <optional>

namespace kelvane::endure {

/// An edit of what all stations share, as its station has noted it.
struct Edit {
    int number = 0;
    bool removes = false;
    /// The program has said that it is done. Otherwise it may be done, or not.
    bool isSaved = false;
    /// Milliseconds since the epoch: before and after it reached the database.
    qint64 begin = 0;
    qint64 end = std::numeric_limits<qint64>::max();
};

/// The edits of all stations by what they edit, such as "strategy ENDURE 1".
class Edits {
  public:
    explicit Edits(const QStringList& folders);

    /// The edit behind which nothing else was saved must be what is stored: gives the last saved one that
    /// `stored` does not show, though it began when that had ended; nothing when none is lost. Edits that
    /// overlap may end in either order. Without a number nothing is stored. A number of no edit was there
    /// before all of them.
    std::optional<int> lostEdit(const QString& subject, std::optional<int> stored) const;
    /// The same for what was made and has no content yet.
    std::optional<int> lostEditOfEmpty(const QString& subject) const;

    /// The numbers of the edits of this subject that were saved.
    QList<int> saved(const QString& subject) const;

    /// The texts of a station's lines "edit" and "edited".
    static QString lineOf(int number, bool removes, const QString& subject);

  private:
    void read(const QString& folder);
    template <class Matches>
    std::optional<int> lostBehind(const QString& subject, Matches matches) const;

    QHash<QString, QList<Edit>> edits_;
};

} // namespace kelvane::endure
