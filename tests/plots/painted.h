#pragma once

#include "plots/plot_painter.h"

#include <QPaintDevice>
#include <QPen>
#include <QPolygonF>

#include <memory>

namespace kelvane::testing {

enum class PaintedShape { lines, polygon, ellipse, text };

/// Something that was painted, in the coordinates of the device.
struct Painted {
    PaintedShape shape = PaintedShape::lines;
    /// The corners; those around an ellipse or a text.
    QPolygonF points = {};
    QPen pen = {};
    QBrush brush = {};
    QString text = {};

    /// With the half of the pen's width.
    QRectF bounds() const;
};

/// A device that keeps what is painted on it.
class PaintedDevice final : public QPaintDevice {
  public:
    explicit PaintedDevice(int dotsPerInch = 96);
    ~PaintedDevice() override;

    QPaintEngine* paintEngine() const override;
    const QList<Painted>& painted() const;

  protected:
    int metric(PaintDeviceMetric metric) const override;

  private:
    class Engine;
    int dotsPerInch_;
    std::unique_ptr<Engine> engine_;
};

/// The letters of the tests, the same on every machine.
PlotLooks testLooks();

/// What `paintPlot` paints into a place.
QList<Painted> paintedBy(const Plot& plot, const QRectF& place, int dotsPerInch = 96);
/// The texts among it.
QStringList textsOf(const QList<Painted>& all);
/// Those of a shape.
QList<Painted> shapesOf(const QList<Painted>& all, PaintedShape shape);

} // namespace kelvane::testing
