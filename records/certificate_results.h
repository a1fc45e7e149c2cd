#pragma once

#include "data/session.h"
#include "records/certificate_settings.h"
#include "records/certified_calibration.h"

#include <QJsonObject>

namespace kelvane {

/// Adds the results to the values of a certificate: lists "resultsFound" and "resultsLeft" with their titles,
/// and what there is to say of them. The lines are read by the session's template; one that can't be read
/// stands as it is stored. Gives the statement of conformity with its decision rule.
QString addResults(Session& session, const CertifiedCalibration& calibration,
                   const CertificateSettings& settings, QJsonObject& values);

} // namespace kelvane
