#pragma once

#include <QString>

namespace kelvane {

/// The driver that a connection string leads to, as far as the driver manager's files tell it: the name that
/// the string or its data source gives, and behind it the driver's file when it is entered under that name.
/// Empty when unknown.
QString driverOf(const QString& connectionString);

} // namespace kelvane
