#pragma once

#include "data/journal/journal.h"

namespace kelvane {

/// The journal of a workstation, as another program sees it.
struct KeptResults {
    QString path = {};
    /// False when there is no journal.
    bool exists = false;
    /// The entries that have not ended, the oldest first.
    QList<JournalEntry> unfinished = {};
    /// Lines and entries that say less than an entry has to: a process was killed while it wrote them, or
    /// the file has been damaged.
    qsizetype unreadable = 0;
};

/// Reads the journal of the session's data source in the first of these folders that has one; without one
/// the path is that of the last folder. Nothing is changed, made or locked: a workstation that writes to the
/// journal meanwhile does not notice. Nothing after an error, which is reported as "Journal,keptResults",
/// once until the journal can be read again.
std::optional<KeptResults> keptResults(Session& session, const QStringList& folders);

} // namespace kelvane
