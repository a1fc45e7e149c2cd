#include "data/journal/kept_results.h"

#include "data/guard.h"
#include "data/journal/journal_entries.h"

#include <QDir>
#include <QFileInfo>

#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

KeptResults readResults(const QString& path) {
    KeptResults kept{.path = path, .exists = true};
    const JournalEntries entries(JournalFile(path).lines());
    kept.unreadable = entries.strangeLines();
    for (const auto& id : entries.ids()) {
        const auto& entry = entries.linesOf(id);
        if (entry.hasEnded)
            continue;
        if (entry.isWhole)
            kept.unfinished << entryOf(id, entry.content);
        else
            ++kept.unreadable;
    }
    return kept;
}

KeptResults readFirst(const QString& name, const QStringList& folders) {
    KeptResults none;
    for (const auto& folder : folders) {
        none.path = QDir(folder).absoluteFilePath(name);
        if (QFileInfo::exists(none.path))
            return readResults(none.path);
    }
    return none;
}

} // namespace

std::optional<KeptResults> keptResults(Session& session, const QStringList& folders) {
    try {
        auto kept = readFirst(Journal::fileName(session.SessionDataSource), folders);
        session.hasReportedJournal = false;
        return kept;
    } catch (const Error& error) {
        if (!std::exchange(session.hasReportedJournal, true))
            Guard(session, u"Journal,keptResults"_s).run([&error] { throw error; });
        return {};
    }
}

} // namespace kelvane
