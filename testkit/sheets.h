#pragma once

#include <QJsonObject>

namespace kelvane::testing {

/// The values of a worksheet report.
QJsonObject sheetReport();

/// The values of an instrument's worksheet, with that many test points, as they are printed.
QJsonObject sheetOf(const QString& asset, int points);

} // namespace kelvane::testing
