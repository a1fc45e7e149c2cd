#include "benchmarks/noted_pages.h"

#include <QPaintEngine>
#include <QPainter>

namespace kelvane::bench {

class NotedPages::Engine final : public QPaintEngine {
  public:
    Engine() : QPaintEngine(AllFeatures) {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState& next) override {
        const auto changed = next.state();
        if (changed.testFlag(DirtyTransform))
            now_.transform = next.transform();
        if (changed.testFlag(DirtyPen))
            now_.pen = next.pen();
        if (changed.testFlag(DirtyBrush))
            now_.brush = next.brush();
    }
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawPath(const QPainterPath& path) override {
        auto item = now_;
        item.path = path;
        items << item;
    }
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override {
        auto item = now_;
        item.path.addPolygon(QPolygonF(QList<QPointF>(points, points + count)));
        if (mode == PolylineMode)
            item.brush = Qt::NoBrush;
        else
            item.path.closeSubpath();
        items << item;
    }
    void drawTextItem(const QPointF& place, const QTextItem& text) override {
        auto item = now_;
        item.font = text.font();
        item.place = place;
        item.text = text.text();
        items << item;
    }
    void beginPage() { ++now_.page; }

    QList<NotedItem> items;

  private:
    NotedItem now_;
};

NotedPages::NotedPages() : QPdfWriter(&nothing), engine_(std::make_unique<Engine>()) {}

NotedPages::~NotedPages() = default;

QPaintEngine* NotedPages::paintEngine() const {
    return engine_.get();
}

bool NotedPages::newPage() {
    engine_->beginPage();
    return true;
}

const QList<NotedItem>& NotedPages::items() const {
    return engine_->items;
}

void paintNoted(const QList<NotedItem>& items, QPagedPaintDevice& device, QPainter& painter) {
    qsizetype page = 0;
    for (const auto& item : items) {
        if (item.page != page)
            device.newPage();
        page = item.page;
        painter.setTransform(item.transform);
        painter.setPen(item.pen);
        if (item.text.isEmpty()) {
            painter.setBrush(item.brush);
            painter.drawPath(item.path);
        } else {
            painter.setFont(item.font);
            painter.drawText(item.place, item.text);
        }
    }
}

} // namespace kelvane::bench
