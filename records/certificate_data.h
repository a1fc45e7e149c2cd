#pragma once

#include "data/session.h"
#include "records/certificate_settings.h"
#include "records/certified_calibration.h"

#include <QJsonObject>

namespace kelvane {

/// The words that stand on every certificate, by their names in the layout.
QJsonObject certificateLabels();

/// What stands on the certificate of a calibration, all of it as texts (`docs/report-layouts.md` has the
/// names). What neither database nor settings know is said to be not stated. A line that can't be read stands
/// as it is stored. Nothing is asked of the database.
QJsonObject certificateValues(Session& session, const CertifiedCalibration& calibration,
                              const CertificateSettings& settings);

} // namespace kelvane
