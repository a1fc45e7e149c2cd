#pragma once

#include "records/certified_calibration.h"

#include <QJsonArray>

namespace kelvane {

/// The standards of a calibration as rows of a certificate, each once, with what its own records say of it at
/// that day; one that only one of two records names says so. A single row when there is none.
QJsonArray standardRows(const CertifiedCalibration& calibration);

} // namespace kelvane
