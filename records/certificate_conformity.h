#pragma once

#include "data/history/calibrations.h"
#include "data/history/stored_lines.h"
#include "records/certificate_settings.h"

namespace kelvane {

/// Whether a point conforms by the rule. Simple acceptance takes the verdict that is stored in the line. With
/// a guard band the point needs that, too, and a reading that is away from the nominal value by at most what
/// the guard band leaves of the tolerance on its side, by the figures of the line. Nothing without a rule,
/// and for a line that does not tell.
std::optional<bool> isConforming(const StoredLine& line, const CertificateSettings& settings);

/// Whether all points of a record conform: each line has to tell, and there has to be one. Simple acceptance
/// needs the result that is stored in the record to say the same; with a guard band a record that has failed
/// does not conform, whatever its lines say.
std::optional<bool> isConforming(const CalibrationRecord& record, const QList<StoredLine>& lines,
                                 const CertificateSettings& settings);

} // namespace kelvane
