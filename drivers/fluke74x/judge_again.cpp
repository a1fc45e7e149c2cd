#include "drivers/fluke74x/driver.h"
#include "drivers/fluke74x/stored_run.h"

using namespace Qt::StringLiterals;

namespace kelvane::Module74xInterface {

QString Fluke74x_judge_again(Session& session, JournalEntry& entry, CalRecord& record) {
    return judgeRunAgain(session, entry, record, runRules, u"Module74xInterface,Fluke74x_judge_again"_s);
}

} // namespace kelvane::Module74xInterface
