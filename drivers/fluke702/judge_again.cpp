#include "data/routine.h"
#include "drivers/fluke702/driver.h"
#include "drivers/fluke702/stored_run.h"

using namespace Qt::StringLiterals;

namespace kelvane::Module702Interface {

QString Fluke702_judge_again(Session& session, JournalEntry& entry, CalRecord& record) {
    QString reason;
    Routine routine(session, u"Module702Interface,Fluke702_judge_again"_s);
    routine.run([&] {
        const auto run = runOf(entry.raw);
        if (entry.asset == run.tag.tag)
            entry.asset = assetOf(session, run.tag);
        reason = judgeRunAgain(session, record, entry, run, runRules);
    });
    return reason;
}

} // namespace kelvane::Module702Interface
