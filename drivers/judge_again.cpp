#include "drivers/judge_again.h"

#include "data/records/field_dictionary.h"
#include "resources/strings.h"
#include "resources/text_id.h"

namespace kelvane {

JudgingAgain beginJudgingAgain(Session& session, const QString& asset) {
    ModuleGlobals::SetCalDataFields(session, asset);
    session.RecordResults.erase();
    session.RecordStandards.erase();
    JudgingAgain judging;
    judging.instrument = ModuleGlobals::GetCalParams(session, asset);
    judging.points = ModuleGlobals::GetTestPointList(session, asset);
    return judging;
}

QString countMismatch(const QString& asset, qsizetype readings, int points) {
    if (readings == points)
        return {};
    return text(TextId::readingCountMismatch).arg(asset, QString::number(readings), QString::number(points));
}

void takeStandardsOf(Session& session, const JournalEntry& entry) {
    auto standards = entry.standards;
    if (!entry.prepared)
        standards += entriesOf(session.RecordStandards);
    session.RecordStandards.erase();
    for (int row = 0; row < standards.size(); ++row)
        session.RecordStandards[row] = standards[row];
}

} // namespace kelvane
