#include "tests/plots/painted.h"

#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// Every primitive comes here as the painter got it.
class PaintedDevice::Engine final : public QPaintEngine {
  public:
    Engine() : QPaintEngine(AllFeatures) {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawPath(const QPainterPath& path) override { add(PaintedShape::lines, path.toFillPolygon()); }
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override {
        add(mode == PolylineMode ? PaintedShape::lines : PaintedShape::polygon,
            QPolygonF(QList<QPointF>(points, points + count)));
    }
    void drawRects(const QRectF* rects, int count) override {
        for (int index = 0; index < count; ++index)
            add(PaintedShape::polygon, QPolygonF(rects[index]));
    }
    void drawLines(const QLineF* lines, int count) override {
        for (int index = 0; index < count; ++index)
            add(PaintedShape::lines, QPolygonF({lines[index].p1(), lines[index].p2()}));
    }
    void drawEllipse(const QRectF& rect) override { add(PaintedShape::ellipse, QPolygonF(rect)); }
    void drawTextItem(const QPointF& base, const QTextItem& item) override {
        add(PaintedShape::text,
            QPolygonF(
                QRectF(base.x(), base.y() - item.ascent(), item.width(), item.ascent() + item.descent())),
            item.text());
    }

    QList<Painted> all;

  private:
    void add(PaintedShape shape, const QPolygonF& points, const QString& text = {}) {
        const auto* now = painter();
        all << Painted{shape, now->transform().map(points),
                       shape == PaintedShape::text ? QPen(Qt::NoPen) : now->pen(), now->brush(), text};
    }
};

QRectF Painted::bounds() const {
    const auto half = pen.style() == Qt::NoPen ? 0 : pen.widthF() / 2;
    return points.boundingRect().adjusted(-half, -half, half, half);
}

PaintedDevice::PaintedDevice(int dotsPerInch)
    : dotsPerInch_(dotsPerInch), engine_(std::make_unique<Engine>()) {}

PaintedDevice::~PaintedDevice() = default;

QPaintEngine* PaintedDevice::paintEngine() const {
    return engine_.get();
}

const QList<Painted>& PaintedDevice::painted() const {
    return engine_->all;
}

int PaintedDevice::metric(PaintDeviceMetric metric) const {
    constexpr int inches = 100;
    switch (metric) {
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return dotsPerInch_;
    case PdmWidth:
    case PdmHeight:
        return inches * dotsPerInch_;
    case PdmWidthMM:
    case PdmHeightMM:
        return qRound(inches * 25.4);
    case PdmDepth:
        return 24;
    case PdmNumColors:
        return 1 << 24;
    case PdmDevicePixelRatioScaled:
        return qRound(devicePixelRatioFScale());
    default:
        return 1;
    }
}

PlotLooks testLooks() {
    return {.font = QFont(u"DejaVu Sans"_s, 9)};
}

QList<Painted> paintedBy(const Plot& plot, const QRectF& place, int dotsPerInch) {
    PaintedDevice device(dotsPerInch);
    QPainter painter(&device);
    paintPlot(painter, place, plot, testLooks());
    painter.end();
    return device.painted();
}

QStringList textsOf(const QList<Painted>& all) {
    QStringList texts;
    for (const auto& painted : shapesOf(all, PaintedShape::text))
        texts << painted.text;
    return texts;
}

QList<Painted> shapesOf(const QList<Painted>& all, PaintedShape shape) {
    QList<Painted> shapes;
    for (const auto& painted : all) {
        if (painted.shape == shape)
            shapes << painted;
    }
    return shapes;
}

} // namespace kelvane::testing
