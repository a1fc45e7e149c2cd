#include "drivers/judge_again.h"

#include "data/assets/in_use.h"
#include "data/routine.h"
#include "drivers/fluke702/driver.h"
#include "drivers/fluke702/run_results.h"

using namespace Qt::StringLiterals;

namespace kelvane::Module702Interface {

namespace {

QString judgeAgain(Session& session, JournalEntry& entry) {
    auto run = runOf(entry.raw);
    run.date = entry.date;
    run.time = entry.time;
    if (entry.asset == run.tag.tag)
        entry.asset = assetOf(session, run.tag);
    const auto [instrument, points] = beginJudgingAgain(session, entry.asset);
    if (auto reason = countMismatch(entry.asset, run.entries.size(), points); !reason.isEmpty())
        return reason;
    RunJudgement judgement(session, instrument,
                           ModuleGlobals::TranslateSpanTestTolSingle(session, entry.asset));
    judge(judgement, instrument, run.entries);
    if (!entry.prepared) {
        run.inUseTech = ModuleGlobals::GetInUseData(session, entry.serial, instrument.mtag).tech;
        RunStandards(session, entry.serial).add(run.pressureModule, entry.asset);
    }
    fillFields(session, instrument, judgement.counts(), run, entry.serial);
    takeStandardsOf(session, entry);
    return {};
}

} // namespace

QString Fluke702_judge_again(Session& session, JournalEntry& entry) {
    QString reason;
    Routine routine(session, u"Module702Interface,Fluke702_judge_again"_s);
    routine.run([&] { reason = judgeAgain(session, entry); });
    return reason;
}

} // namespace kelvane::Module702Interface
