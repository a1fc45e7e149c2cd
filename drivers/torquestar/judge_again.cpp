#include "drivers/judge_again.h"

#include "data/assets/in_use.h"
#include "data/routine.h"
#include "drivers/new_record.h"
#include "drivers/torquestar/driver.h"
#include "drivers/torquestar/tool_results.h"

using namespace Qt::StringLiterals;

namespace kelvane::ModuleTSInterface {

namespace {

QString judgeAgain(Session& session, JournalEntry& entry, CalRecord& record) {
    auto results = resultsOf(entry.raw);
    const auto [instrument, fractions] = beginRejudgement(session, record, entry.asset);
    if (auto reason = countMismatch(entry.asset, results.points.size(), fractions.size()); !reason.isEmpty())
        return reason;
    auto findings = findingsOf(session, record, instrument, fractions, results);
    findings.date = entry.date;
    findings.time = entry.time;
    if (!entry.prepared) {
        results.tech = ModuleGlobals::GetInUseData(session, entry.serial, instrument.mtag).tech;
        takeStandardsInUse(session, record, entry.asset, 0);
    }
    fillFields(session, record, instrument, findings, results.tech);
    takeStandardsOf(record, entry);
    return {};
}

} // namespace

QString TorqueStar_judge_again(Session& session, JournalEntry& entry, CalRecord& record) {
    QString reason;
    Routine routine(session, u"ModuleTSInterface,TorqueStar_judge_again"_s);
    routine.run([&] { reason = judgeAgain(session, entry, record); });
    return reason;
}

} // namespace kelvane::ModuleTSInterface
