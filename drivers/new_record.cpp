#include "drivers/new_record.h"

#include "data/cal_record.h"
#include "data/field_dictionary.h"
#include "data/in_use.h"
#include "resources/strings.h"

#include <utility>

namespace kelvane {

namespace {

constexpr int textRecordCreation = 346;

} // namespace

void fillFields(Session& session, std::span<const FieldValue> values) {
    const int rows = ModuleGlobals::calFieldCount(session);
    for (int row = 0; row < rows; ++row) {
        auto& field = session.CalFieldTable[row];
        for (const auto& one : values) {
            if (one.value && field.column.compare(one.column, Qt::CaseInsensitive) == 0)
                field.value = *one.value;
        }
    }
}

int takeStandardsInUse(Session& session, const QString& asset, int row) {
    const int count = ModuleGlobals::GetStandardsInUse(session, asset);
    for (int i = 0; i < count; ++i)
        session.RecordStandards[row + i] = std::as_const(session.StandardsInUse)[i];
    return count;
}

QString makeRecord(Session& session, const QString& asset) {
    auto refusal = ModuleGlobals::CreateCalRecord(session, asset);
    if (!refusal.isEmpty())
        session.ui.messageBox(refusal, text(textRecordCreation), box::stop);
    return refusal;
}

} // namespace kelvane
