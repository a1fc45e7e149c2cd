#include "plots/plot_view.h"

#include "plots/plot_ranges.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// From how far the pointer takes a point, in heights of a line.
constexpr double reach = 1.5;

/// Colours of series that can be read on a light and on a dark ground; marks and dashes tell series apart
/// without them.
constexpr std::array<QRgb, 4> onLight = {0xff0b57a4, 0xffb34700, 0xff00664b, 0xff7a2f8f};
constexpr std::array<QRgb, 4> onDark = {0xff8ab8f0, 0xffffb066, 0xff6fd6b0, 0xffd9a6ee};

/// On a ground of neither kind the ink alone can be read for certain.
QList<QColor> colorsOn(const QColor& ground, const QColor& ink) {
    constexpr int leastOfLight = 200;
    constexpr int mostOfDark = 80;
    if (ground.lightness() < leastOfLight && ground.lightness() > mostOfDark)
        return {ink};
    QList<QColor> colors;
    for (const auto color : ground.lightness() > mostOfDark ? onLight : onDark)
        colors << QColor::fromRgb(color);
    return colors;
}

/// A quarter of the ink on the ground.
QColor gridColor(const QColor& ground, const QColor& ink) {
    const auto part = [](int first, int second) { return first + (second - first) / 4; };
    return {part(ground.red(), ink.red()), part(ground.green(), ink.green()),
            part(ground.blue(), ink.blue())};
}

std::optional<PlotStep> stepOf(int key) {
    constexpr std::pair<int, PlotStep> steps[] = {
        {Qt::Key_Right, PlotStep::next},      {Qt::Key_Left, PlotStep::previous},
        {Qt::Key_Home, PlotStep::first},      {Qt::Key_End, PlotStep::last},
        {Qt::Key_Down, PlotStep::nextSeries}, {Qt::Key_Up, PlotStep::previousSeries},
    };
    const auto* found = std::ranges::find(steps, key, &std::pair<int, PlotStep>::first);
    return found == std::end(steps) ? std::nullopt : std::optional(found->second);
}

} // namespace

PlotView::PlotView(QWidget* parent) : QWidget(parent) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void PlotView::setPlot(const Plot& plot) {
    plot_ = plot;
    hovered_.reset();
    chosen_.reset();
    places_.reset();
    setAccessibleName(plot.title);
    showValue();
}

PlotLooks PlotView::looks() const {
    const auto ground = palette().color(QPalette::Base);
    const auto ink = palette().color(QPalette::Text);
    return {.font = font(),
            .background = ground,
            .ink = ink,
            .grid = gridColor(ground, ink),
            .series = colorsOn(ground, ink)};
}

PlotPlaces PlotView::places() const {
    if (!places_)
        places_ = paintedPlaces(*this, rect(), plot_, looks());
    return *places_;
}

QPointF PlotView::positionOf(const PlotPlace& place) const {
    const auto all = places();
    if (all.area.isEmpty())
        return rect().center();
    return all.positionOf(place.series, plot_.series[place.series].points[place.point]);
}

std::optional<PlotPlace> PlotView::pointNear(const QPointF& position) const {
    const auto all = places();
    if (all.area.isEmpty())
        return std::nullopt;
    std::optional<PlotPlace> nearest;
    auto least = PlotLetters(QFontMetricsF(font(), this)).line() * reach;
    for (qsizetype series = 0; series < plot_.series.size(); ++series) {
        const auto& points = plot_.series[series].points;
        for (qsizetype index = 0; index < points.size(); ++index) {
            if (!isPlotted(plot_, points[index]))
                continue;
            const bool isOnBar =
                plot_.series[series].isBars && all.barOf(series, points[index]).contains(position);
            const auto distance =
                isOnBar ? 0 : QLineF(all.positionOf(series, points[index]), position).length();
            if (distance > least)
                continue;
            nearest = PlotPlace{series, index};
            least = distance;
        }
    }
    return nearest;
}

/// Shows the values of the marked point, or takes those of an earlier one away. Without a mark that says so,
/// a tip is taken for plain text.
void PlotView::showValue() {
    const auto marked = markedPoint();
    const auto value = marked ? plotValue(plot_, *marked) : QString();
    setAccessibleDescription(marked ? value : plot_.notes.join(u'\n'));
    if (marked)
        QToolTip::showText(mapToGlobal(positionOf(*marked).toPoint()),
                           u"<qt>"_s + value.toHtmlEscaped().replace(u'\n', u"<br>"_s) + u"</qt>"_s, this);
    else
        QToolTip::hideText();
    update();
}

void PlotView::hover(std::optional<PlotPlace> place) {
    if (place == hovered_)
        return;
    hovered_ = place;
    showValue();
}

void PlotView::choose(std::optional<PlotPlace> place) {
    hovered_.reset();
    chosen_ = place;
    showValue();
}

void PlotView::mouseMoveEvent(QMouseEvent* event) {
    hover(pointNear(event->position()));
}

void PlotView::leaveEvent(QEvent* event) {
    hover(std::nullopt);
    QWidget::leaveEvent(event);
}

/// Escape takes the mark away; where there is none it goes on to the window.
void PlotView::keyPressEvent(QKeyEvent* event) {
    const auto step = stepOf(event->key());
    if (event->key() == Qt::Key_Escape && markedPoint()) {
        choose(std::nullopt);
    } else if (step && !event->modifiers().testAnyFlags(~Qt::KeyboardModifiers(Qt::KeypadModifier))) {
        choose(chosen_ ? steppedFrom(plot_, *chosen_, *step) : firstPoint(plot_));
    } else {
        QWidget::keyPressEvent(event);
    }
}

void PlotView::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void PlotView::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    choose(std::nullopt);
}

void PlotView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    places_.reset();
}

void PlotView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange &&
        event->type() != QEvent::PaletteChange)
        return;
    places_.reset();
    updateGeometry();
    update();
}

/// The tool tip is shown while the pointer moves; the usual one, a while later, would hide it.
bool PlotView::event(QEvent* event) {
    return event->type() == QEvent::ToolTip || QWidget::event(event);
}

void PlotView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintPlot(painter, rect(), plot_, looks());
    drawMarkedPoint(painter);
    if (hasFocus())
        drawFocus(painter);
}

void PlotView::drawMarkedPoint(QPainter& painter) const {
    const auto marked = markedPoint();
    if (!marked || places().area.isEmpty())
        return;
    const auto radius = PlotLetters(QFontMetricsF(font(), this)).mark();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Text), radius / 3));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(positionOf(*marked), radius, radius);
}

void PlotView::drawFocus(QPainter& painter) const {
    constexpr int width = 2;
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(palette().color(QPalette::Highlight), width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(width / 2, width / 2, -width / 2, -width / 2));
}

QSize PlotView::sizeHint() const {
    return minimumSizeHint() * 3;
}

QSize PlotView::minimumSizeHint() const {
    const auto line = fontMetrics().height();
    return {16 * line, 10 * line};
}

} // namespace kelvane
