#include "drivers/new_record.h"

#include "data/assets/in_use.h"
#include "data/records/field_dictionary.h"
#include "platform/values/numbers.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane {

void fillFields(CalRecord& record, std::span<const FieldValue> values) {
    const int rows = ModuleGlobals::calFieldCount(record);
    for (int row = 0; row < rows; ++row) {
        auto& field = record.CalFieldTable[row];
        for (const auto& found : values) {
            if (found.value && field.column.compare(found.column, Qt::CaseInsensitive) == 0)
                field.value = *found.value;
        }
    }
}

void fillFields(CalRecord& record, const CalParamRecord& instrument, const PointCounts& counts,
                const CalibrationValues& values) {
    const FieldValue found[] = {
        {u"C2301", values.date},
        {u"C2333", values.time},
        {u"C2323", counts.hasPassed() ? u"Y"_s : u"N"_s},
        {u"C2352", plainText(counts.failures)},
        {u"C2350", plainText(counts.marginals)},
        {u"C2320", instrument.tp_name},
        {u"C2308", values.round},
        {u"C2307", values.technician},
    };
    fillFields(record, found);
}

int standardsInUse(Session& session, const QString& asset) {
    const int reports = session.reportCount;
    const int count = ModuleGlobals::GetStandardsInUse(session, asset);
    const auto& standards = std::as_const(session.StandardsInUse);
    if (count == 0 && !standards[standards.last].isEmpty() && session.SessionConnected)
        session.reportCount = reports;
    return count;
}

int takeStandardsInUse(Session& session, CalRecord& record, const QString& asset, int row) {
    const int count = standardsInUse(session, asset);
    for (int i = 0; i < count; ++i)
        record.RecordStandards[row + i] = std::as_const(session.StandardsInUse)[i];
    return count;
}

} // namespace kelvane
