#pragma once

#include "plots/plot_painter.h"
#include "plots/plot_values.h"

#include <QWidget>

namespace kelvane {

/// Shows a plot in the colours of its palette. The point at the pointer is marked, its values stand in a tool
/// tip; with the keyboard the arrows, Home and End go from point to point. The accessible name is the plot's
/// title, the description the values of the point, or the notes while there is none.
class PlotView final : public QWidget {
    Q_OBJECT

  public:
    explicit PlotView(QWidget* parent = nullptr);

    void setPlot(const Plot& plot);
    const Plot& plot() const { return plot_; }

    /// The point that is marked, the pointer's before that of the keyboard.
    std::optional<PlotPlace> markedPoint() const { return hovered_ ? hovered_ : chosen_; }
    /// Where a point stands in the widget; its middle while it is too small to show points.
    QPointF positionOf(const PlotPlace& place) const;

    /// The colours of the series, in turn.
    QList<QColor> seriesColors() const { return looks().series; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;

  private:
    PlotLooks looks() const;
    PlotPlaces places() const;
    std::optional<PlotPlace> pointNear(const QPointF& position) const;
    void hover(std::optional<PlotPlace> place);
    void choose(std::optional<PlotPlace> place);
    void showValue();
    void drawMarkedPoint(QPainter& painter) const;
    void drawFocus(QPainter& painter) const;

    Plot plot_;
    std::optional<PlotPlace> hovered_;
    std::optional<PlotPlace> chosen_;
    /// Worked out when it is asked for; empty after whatever changes it.
    mutable std::optional<PlotPlaces> places_;
};

} // namespace kelvane
