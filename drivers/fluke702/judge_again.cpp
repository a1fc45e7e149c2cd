#include "drivers/fluke702/driver.h"
#include "drivers/fluke702/stored_run.h"

using namespace Qt::StringLiterals;

namespace kelvane::Module702Interface {

QString Fluke702_judge_again(Session& session, JournalEntry& entry, CalRecord& record) {
    return judgeRunAgain(session, entry, record, runRules, u"Module702Interface,Fluke702_judge_again"_s);
}

} // namespace kelvane::Module702Interface
