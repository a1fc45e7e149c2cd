#include "drivers/new_record.h"

#include "data/assets/in_use.h"
#include "data/records/field_dictionary.h"
#include "platform/values/numbers.h"

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

StandardsInUse standardsInUse(Session& session, const QString& asset) {
    const int reports = session.reportCount;
    StandardsInUse standards;
    standards.assets = ModuleGlobals::GetStandardsInUse(session, asset);
    standards.areComplete = session.reportCount == reports;
    const bool isFull = !standards.assets.value(ModuleGlobals::maxStandardsInUse - 1).isEmpty();
    if (isFull && session.SessionConnected)
        session.reportCount = reports;
    return standards;
}

int takeStandardsInUse(Session& session, CalRecord& record, const QString& asset, int row) {
    const auto standards = standardsInUse(session, asset);
    if (!standards.areComplete)
        return 0;
    for (const auto& standard : standards.assets)
        record.RecordStandards[row++] = standard;
    return static_cast<int>(standards.assets.size());
}

} // namespace kelvane
