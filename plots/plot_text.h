#pragma once

#include <QRectF>
#include <QString>

namespace kelvane {

/// A text of a plot, as it is painted: cut to its place.
struct PlotText {
    QString text = {};
    QRectF place = {};
    Qt::Alignment alignment = Qt::AlignCenter;
    /// Read from below, its place as it is painted.
    bool isUpright = false;
};

} // namespace kelvane
