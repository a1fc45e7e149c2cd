#pragma once

#include "plots/plot.h"

#include <QStringList>

namespace kelvane {

/// Saves a plot in black on white, 160 by 100 millimetres: as a scalable picture (".svg"), a picture of dots
/// (".png", 300 dots per inch) or a document (".pdf"), by the end of the path; any other end gives a scalable
/// picture. A file of that name is replaced when all is written, and stays as it is when that fails. Why the
/// plot could not be saved, or an empty text.
QString savePlot(const Plot& plot, const QString& path);

/// What a dialog offers, the scalable picture first.
QStringList plotFileFilters();
/// The end of file names of one of these, without a point.
QString plotFileSuffix(const QString& filter);

} // namespace kelvane
