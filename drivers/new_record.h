#pragma once

#include "data/records/cal_record.h"

#include <optional>
#include <span>

namespace kelvane {

/// What an upload has found for a column of the new record; nothing leaves the column as it is.
struct FieldValue {
    QStringView column;
    std::optional<QString> value;
};

/// Puts the values into the rows of `CalFieldTable` that the site's dictionary has for their columns.
void fillFields(CalRecord& record, std::span<const FieldValue> values);

/// Reads the standards in use with the instrument into `StandardsInUse`; gives their number. More than the
/// list takes are reported and count as none, and that one report spoils no preparation.
int standardsInUse(Session& session, const QString& asset);

/// Puts the standards in use with the instrument into the record, from `row` on; gives their
/// number.
int takeStandardsInUse(Session& session, CalRecord& record, const QString& asset, int row);

} // namespace kelvane
