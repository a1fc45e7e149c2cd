#include "data/journal/kept_results.h"

#include "data/guard.h"
#include "data/journal/journal_entries.h"

#include <QDir>
#include <QFileInfo>

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

} // namespace

std::optional<KeptResults> keptResults(Session& session, const QStringList& folders) {
    Guard guard(session, u"Journal,keptResults"_s);
    return guard.resultOf([&] {
        const auto name = Journal::fileName(session.SessionDataSource);
        KeptResults none;
        for (const auto& folder : folders) {
            none.path = QDir(folder).absoluteFilePath(name);
            if (QFileInfo::exists(none.path))
                return readResults(none.path);
        }
        return none;
    });
}

} // namespace kelvane
