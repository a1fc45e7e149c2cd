#pragma once

#include "data/session.h"
#include "procedures/refusal.h"

#include <QStringList>

#include <optional>

namespace kelvane {

/// The configuration of calibration records. A field is a row such as "C2301 : Certificate", by its number
/// and its title in the dictionary.
struct RecordConfig {
    /// The fields that the operator is not asked for.
    QStringList available = {};
    /// The fields that the operator is asked for, in order.
    QStringList requested = {};
    bool allowsOverdueStandards = false;
    bool allowsPoorTrace = false;
};

/// Reads the configuration; while none is stored, the required fields of the dictionary are proposed. Nothing
/// when the database failed, which is reported as "FormWorkConfig,LoadLists".
std::optional<RecordConfig> loadRecordConfig(Session& session);

/// Replaces what is stored by the requested fields and the two permissions. Gives the failure with the field
/// at which it came, nothing when all is stored. Reported as "FormWorkConfig,CommandSave".
std::optional<SaveFailure> saveRecordConfig(Session& session, const RecordConfig& config);

/// The number that a row begins with, as it is stored.
QString fieldNumber(const QString& row);

} // namespace kelvane
