#include "data/routine.h"
#include "drivers/fluke74x/driver.h"
#include "drivers/fluke74x/stored_run.h"

using namespace Qt::StringLiterals;

namespace kelvane::Module74xInterface {

QString Fluke74x_judge_again(Session& session, JournalEntry& entry, CalRecord& record) {
    QString reason;
    Routine routine(session, u"Module74xInterface,Fluke74x_judge_again"_s);
    routine.run([&] {
        const auto run = runOf(entry.raw);
        if (entry.asset == run.tag.tag)
            entry.asset = assetOf(session, run.tag);
        reason = judgeRunAgain(session, record, entry, run, runRules);
    });
    return reason;
}

} // namespace kelvane::Module74xInterface
