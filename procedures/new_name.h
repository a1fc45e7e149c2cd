#pragma once

#include "data/session.h"
#include "platform/database/sql.h"
#include "resources/strings.h"

#include <optional>

namespace kelvane {

/// What the one-field dialog asks about the name of a new record.
struct NewName {
    /// The name under which the question reports.
    QStringView routine;
    TextId title;
    TextId prompt;
    /// The warning that the name is in use.
    TextId taken;
    /// Maximum length, 0 for no limit.
    qint16 maxLength;
    /// The query for a record of a name, whose quotes it doubles.
    Sql (*recordOf)(const QString& name);
};

/// Asks until the name is free: the name, `cancelled` when the user gives up, or nothing when the database
/// failed.
std::optional<QString> askNewName(Session& session, const NewName& wanted);

} // namespace kelvane
