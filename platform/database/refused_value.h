#pragma once

#include <QString>

namespace kelvane {

/// The column of an insert whose value `description` quotes ("invalid input syntax for type integer: "x""),
/// the first one where several have that value; empty for any other statement, or when no value is quoted.
QString columnOfRefusedValue(const QString& statement, const QString& description);

} // namespace kelvane
