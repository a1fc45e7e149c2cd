#pragma once

#include "admin/past_instruments.h"
#include "platform/values/moments.h"

#include <QList>

namespace kelvane::admin {

/// A calibration of the past: when, of what, and by whom.
struct PastCalibration {
    const PastInstrument* instrument = nullptr;
    /// When it begins.
    Moment moment;
    /// The seed of what is read, noted and entered in it.
    unsigned seed = 0;
};

/// A row of the tables, with the months between two of its calibrations.
struct PastInterval {
    const PastInstrument* instrument = nullptr;
    int months = 12;
};

/// All calibrations before `day` and the week ahead of it, in the order of their moments. Those of the
/// instruments begin five to six years before, spread over the year, those of the standards before them; each
/// comes some days before the one ahead of it has run out, on a working day.
QList<PastCalibration> calibrationsBefore(const QDate& day, const QList<PastInterval>& instruments,
                                          const QList<PastInterval>& standards);

} // namespace kelvane::admin
