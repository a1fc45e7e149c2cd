#pragma once

#include <QBrush>
#include <QBuffer>
#include <QFont>
#include <QList>
#include <QPainterPath>
#include <QPdfWriter>
#include <QPen>
#include <QTransform>

#include <memory>

class QPainter;

namespace kelvane::bench {

/// A text or an outline as it was painted.
struct NotedItem {
    qsizetype page = 0;
    QTransform transform;
    QPen pen;
    /// Of an outline.
    QBrush brush = {};
    QPainterPath path = {};
    /// Of a text, which begins at this point of its baseline.
    QFont font = {};
    QPointF place = {};
    QString text = {};
};

/// What a writer is made over that never writes.
struct NoOutput {
    QBuffer nothing;
};

/// Pages like those of a PDF on which nothing is painted, only noted.
class NotedPages final : private NoOutput, public QPdfWriter {
  public:
    NotedPages();
    ~NotedPages() override;

    QPaintEngine* paintEngine() const override;
    bool newPage() override;
    const QList<NotedItem>& items() const;

  private:
    class Engine;
    std::unique_ptr<Engine> engine_;
};

/// Paints what was noted on a device, each item by one call; the first of its pages has begun.
void paintNoted(const QList<NotedItem>& items, QPagedPaintDevice& device, QPainter& painter);

} // namespace kelvane::bench
