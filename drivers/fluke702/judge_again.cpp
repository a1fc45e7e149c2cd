#include "drivers/judge_again.h"

#include "data/assets/in_use.h"
#include "data/routine.h"
#include "drivers/fluke702/fluke702.h"
#include "drivers/fluke702/run_results.h"

using namespace Qt::StringLiterals;

namespace kelvane::Module702Interface {

namespace {

QString judgeAgain(Session& session, JournalEntry& entry, CalRecord& record) {
    auto run = runOf(entry.raw);
    run.date = entry.date;
    run.time = entry.time;
    if (entry.asset == run.tag.tag)
        entry.asset = assetOf(session, run.tag);
    const auto [instrument, points] = beginJudgingAgain(session, record, entry.asset);
    if (auto reason = countMismatch(entry.asset, run.entries.size(), points); !reason.isEmpty())
        return reason;
    RunJudgement judgement(session, record, instrument,
                           ModuleGlobals::TranslateSpanTestTolSingle(session, entry.asset));
    judge(judgement, instrument, run.entries);
    if (!entry.prepared) {
        run.inUseTech = ModuleGlobals::GetInUseData(session, entry.serial, instrument.mtag).tech;
        RunStandards(session, record, entry.serial).add(run.pressureModule, entry.asset);
    }
    fillFields(record, instrument, judgement.counts(), run, entry.serial);
    takeStandardsOf(record, entry);
    return {};
}

} // namespace

QString Fluke702_judge_again(Session& session, JournalEntry& entry, CalRecord& record) {
    QString reason;
    Routine routine(session, u"Module702Interface,Fluke702_judge_again"_s);
    routine.run([&] { reason = judgeAgain(session, entry, record); });
    return reason;
}

} // namespace kelvane::Module702Interface
