#include "drivers/new_record.h"

#include "data/assets/in_use.h"
#include "data/records/field_dictionary.h"

#include <utility>

namespace kelvane {

void fillFields(CalRecord& record, std::span<const FieldValue> values) {
    const int rows = ModuleGlobals::calFieldCount(record);
    for (int row = 0; row < rows; ++row) {
        auto& field = record.CalFieldTable[row];
        for (const auto& one : values) {
            if (one.value && field.column.compare(one.column, Qt::CaseInsensitive) == 0)
                field.value = *one.value;
        }
    }
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
