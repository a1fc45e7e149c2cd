#pragma once

#include "data/history/point_drift.h"
#include "plots/plot.h"

namespace kelvane {

/// The name of a point: its nominal value, and its number among those with the same one.
QString pointName(const InstrumentPoint& point);

/// The error of each point in some records of an instrument, a series for each record.
Plot errorPlot(Session& session, const QString& asset, const QList<CalibrationRecord>& records);

/// All errors of a point over the years with the fitted lines; its notes say what they tell, and what is left
/// out. `points` is the history of these records, `point` a number in it.
Plot driftPlot(const QString& asset, const QList<CalibrationRecord>& records, const PointHistory& points,
               qsizetype point, const QDate& today);

} // namespace kelvane
