#include "drivers/judge_again.h"

#include "data/records/field_dictionary.h"
#include "resources/strings.h"
#include "resources/text_id.h"

namespace kelvane {

Rejudgement beginRejudgement(Session& session, CalRecord& record, const QString& asset) {
    ModuleGlobals::SetCalDataFields(session, record, asset);
    record.RecordResults.erase();
    record.RecordStandards.erase();
    Rejudgement judging;
    judging.instrument = ModuleGlobals::GetCalParams(session, asset);
    judging.points = ModuleGlobals::GetTestPointList(session, asset);
    return judging;
}

QString countMismatch(const QString& asset, qsizetype readings, qsizetype points) {
    if (readings == points)
        return {};
    return text(TextId::readingCountMismatch).arg(asset, QString::number(readings), QString::number(points));
}

void takeStandardsOf(CalRecord& record, const JournalEntry& entry) {
    auto standards = entry.standards;
    if (!entry.prepared)
        standards += entriesOf(record.RecordStandards);
    record.RecordStandards.erase();
    for (int row = 0; row < standards.size(); ++row)
        record.RecordStandards[row] = standards[row];
}

} // namespace kelvane
