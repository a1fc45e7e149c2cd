#include "plots/plot_places.h"

#include "plots/plot_ranges.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace kelvane {

namespace {

/// What a plot shows, from all of it to less and less.
struct Parts {
    bool title = true;
    bool notes = true;
    bool legend = true;
    bool axisTitles = true;
    bool labels = true;
};

constexpr Parts steps[] = {
    {},
    {.axisTitles = false},
    {.legend = false, .axisTitles = false},
    {.notes = false, .legend = false, .axisTitles = false},
    {.title = false, .notes = false, .legend = false, .axisTitles = false},
    {.title = false, .notes = false, .legend = false, .axisTitles = false, .labels = false},
};

/// The least picture, in heights of a line: in a smaller one nothing could be read.
constexpr QSizeF leastArea{6, 4};
/// The least one without any letters.
constexpr QSizeF leastBareArea{1.5, 1};

/// Of the whole place, the most that labels may take of its width, and those that stand upright of its
/// height.
constexpr double mostOfLabels = 0.3;
constexpr double mostOfLevels = 0.2;
constexpr double mostOfNotes = 0.4;
/// Of the room of the bars at one place, what they take.
constexpr double shareOfBars = 0.8;

constexpr int leastTicks = 3;
constexpr int mostTicks = 12;

/// Works out the places of one plot for one choice of its parts. What is used up is cut from `rest_`.
class Arranger {
  public:
    Arranger(const Plot& plot, const QRectF& place, const PlotLetters& letters,
             const PlotLetters& titleLetters, const Parts& parts)
        : plot_(plot),
          letters_(letters),
          titleLetters_(titleLetters),
          parts_(parts),
          line_(letters.line()),
          gap_(letters.gap()),
          hasPoints_(hasPlottedPoint(plot)),
          whole_(place.adjusted(gap_, gap_, -gap_, -gap_)),
          rest_(whole_) {}

    PlotPlaces arrange() {
        placeTitle();
        placeNotes();
        if (!hasPoints_)
            return places_;
        places_.x = rangeOfX(plot_);
        places_.y = rangeOfY(plot_);
        placeLegend();
        placeArea();
        if (!isAreaLargeEnough()) {
            places_.area = {};
            return places_;
        }
        placeBars();
        return places_;
    }

  private:
    bool isAreaLargeEnough() const {
        const auto least = (parts_.labels ? leastArea : leastBareArea) * line_;
        return places_.area.width() >= least.width() && places_.area.height() >= least.height();
    }

    QRectF takeTop(double height) {
        const QRectF taken(rest_.topLeft(), QSizeF(rest_.width(), height));
        rest_.setTop(rest_.top() + height);
        return taken;
    }
    QRectF takeBottom(double height) {
        rest_.setBottom(rest_.bottom() - height);
        return {rest_.left(), rest_.bottom(), rest_.width(), height};
    }
    QRectF takeLeft(double width) {
        const QRectF taken(rest_.topLeft(), QSizeF(width, rest_.height()));
        rest_.setLeft(rest_.left() + width);
        return taken;
    }
    QRectF takeRight(double width) {
        rest_.setRight(rest_.right() - width);
        return {rest_.right(), rest_.top(), width, rest_.height()};
    }

    void placeTitle() {
        if (!parts_.title || plot_.title.isEmpty() || titleLetters_.line() > rest_.height())
            return;
        const auto place = takeTop(titleLetters_.line());
        places_.title = {titleLetters_.shortened(plot_.title, place.width()), place};
        takeTop(gap_);
    }

    /// Notes stand at the bottom; the last lines of very many are left out.
    void placeNotes() {
        if (!parts_.notes)
            return;
        const auto share = hasPoints_ ? mostOfNotes : 1;
        const auto most = static_cast<qsizetype>(rest_.height() * share / line_);
        const auto lines = letters_.linesOf(plot_.notes, rest_.width(), most);
        if (lines.isEmpty())
            return;
        auto place = takeBottom(line_ * static_cast<double>(lines.size()));
        place.setHeight(line_);
        for (const auto& line : lines) {
            places_.texts << PlotText{line, place, Qt::AlignLeft | Qt::AlignVCenter};
            place.translate(0, line_);
        }
        takeBottom(gap_);
    }

    void placeLegend() {
        if (!parts_.legend)
            return;
        const auto legend = legendOf(plot_, letters_, rest_.width());
        if (legend.entries.isEmpty())
            return;
        const auto place = takeTop(legend.height + gap_);
        places_.legend = legend.entries;
        for (auto& entry : places_.legend) {
            entry.sample.translate(place.topLeft());
            entry.name.place.translate(place.topLeft());
        }
    }

    void placeArea() {
        const auto titleOfX = takeAxisTitle(plot_.x.title, false);
        const auto titleOfY = takeAxisTitle(plot_.y.title, true);
        takeTop(parts_.labels ? line_ / 2 : 0); // for the upper half of the topmost label
        takeRight(std::max(widthOfLevels(), line_ / 2));
        // The labels of an axis need what those of the other leave.
        auto labelsOfY = takeLeft(widthOfYLabels(rest_.height() - line_));
        auto labelsOfX = takeBottom(heightOfXLabels(rest_.width()));
        places_.area = rest_;
        if (!isAreaLargeEnough())
            return;
        labelsOfY.setBottom(rest_.bottom());
        labelsOfX.setLeft(rest_.left());
        placeYTicks(labelsOfY);
        placeXTicks(labelsOfX);
        placeLevels();
        placeAxisTitle(plot_.x.title, {rest_.left(), titleOfX.top(), rest_.width(), line_}, false);
        placeAxisTitle(plot_.y.title, {titleOfY.left(), rest_.top(), line_, rest_.height()}, true);
    }

    QRectF takeAxisTitle(const QString& title, bool isUpright) {
        if (!parts_.axisTitles || title.isEmpty())
            return {};
        if (isUpright) {
            const auto taken = takeLeft(line_);
            takeLeft(gap_);
            return taken;
        }
        return takeBottom(line_ + gap_ / 2).adjusted(0, gap_ / 2, 0, 0);
    }

    void placeAxisTitle(const QString& title, const QRectF& place, bool isUpright) {
        if (parts_.axisTitles && !title.isEmpty())
            places_.texts << PlotText{letters_.shortened(title, isUpright ? place.height() : place.width()),
                                      place, Qt::AlignCenter, isUpright};
    }

    QList<PlotTick> ticksOfY(double height) const {
        const auto most = std::clamp(static_cast<int>(height / (2 * line_)), leastTicks, mostTicks);
        return numberTicks(places_.y, most);
    }

    double widthOfYLabels(double height) const {
        if (!parts_.labels)
            return 0;
        double width = 0;
        for (const auto& tick : ticksOfY(height))
            width = std::max(width, letters_.widthOf(tick.label));
        return std::min(width + gap_, whole_.width() * mostOfLabels);
    }

    void placeYTicks(const QRectF& labels) {
        const auto width = labels.width() - gap_;
        for (const auto& tick : ticksOfY(rest_.height())) {
            const auto position = places_.positionOfY(tick.value);
            PlacedTick placed{position, {}};
            if (parts_.labels)
                placed.label = {letters_.shortened(tick.label, width),
                                {labels.left(), position - line_ / 2, width, line_},
                                Qt::AlignRight | Qt::AlignVCenter};
            places_.yTicks << placed;
        }
    }

    double roomOfName(double width) const { return width / places_.x.size(); }

    /// Names that do not fit beside each other stand upright.
    bool areNamesUpright(double width) const {
        return std::ranges::any_of(plot_.x.names, [&](const QString& name) {
            return letters_.widthOf(name) > roomOfName(width) - gap_;
        });
    }

    double heightOfXLabels(double width) const {
        if (!parts_.labels)
            return 0;
        if (plot_.x.scale != PlotScale::names || !areNamesUpright(width))
            return line_ + gap_;
        double longest = 0;
        for (const auto& name : plot_.x.names)
            longest = std::max(longest, letters_.widthOf(name));
        return std::min(longest, whole_.height() * mostOfLabels) + gap_;
    }

    void placeXTicks(const QRectF& labels) {
        const auto below = labels.adjusted(0, gap_, 0, 0);
        if (plot_.x.scale != PlotScale::names)
            placeValues(below);
        else if (areNamesUpright(rest_.width()))
            placeUprightNames(below);
        else
            placeNames(below);
    }

    QList<PlotTick> ticksOfX(int most) const {
        return plot_.x.scale == PlotScale::days ? dayTicks(places_.x, most) : numberTicks(places_.x, most);
    }

    /// As many ticks as have labels that do not touch.
    void placeValues(const QRectF& below) {
        for (int most = mostTicks; most > 0; --most) {
            places_.xTicks.clear();
            auto end = -std::numeric_limits<double>::infinity();
            bool isFree = true;
            for (const auto& tick : ticksOfX(most)) {
                const auto position = places_.positionOfX(tick.value);
                PlacedTick placed{position, {}};
                if (parts_.labels) {
                    placed.label = labelBelow(tick.label, position, below);
                    isFree = isFree && placed.label.place.left() >= end + 2 * gap_;
                    end = placed.label.place.right();
                }
                places_.xTicks << placed;
            }
            if (isFree)
                return;
        }
    }

    /// Below its tick, moved sideways where it would leave the place.
    PlotText labelBelow(const QString& label, double position, const QRectF& below) const {
        const auto text = letters_.shortened(label, whole_.width());
        const auto width = letters_.widthOf(text);
        const auto left =
            std::clamp(position - width / 2, whole_.left(), std::max(whole_.left(), whole_.right() - width));
        return {text, {left, below.top(), width, line_}};
    }

    void placeNames(const QRectF& below) {
        for (qsizetype index = 0; index < plot_.x.names.size(); ++index) {
            const auto position = places_.positionOfX(static_cast<double>(index));
            PlacedTick placed{position, {}};
            if (parts_.labels)
                placed.label = labelBelow(plot_.x.names[index], position, below);
            places_.xTicks << placed;
        }
    }

    /// Every name has its line, or every second, third ... one where there is less room.
    void placeUprightNames(const QRectF& below) {
        const auto every = static_cast<qsizetype>(std::ceil(line_ / roomOfName(rest_.width())));
        for (qsizetype index = 0; index < plot_.x.names.size(); ++index) {
            const auto position = places_.positionOfX(static_cast<double>(index));
            PlacedTick placed{position, {}};
            if (parts_.labels && index % every == 0)
                placed.label = {letters_.shortened(plot_.x.names[index], below.height()),
                                {position - line_ / 2, below.top(), line_, below.height()},
                                Qt::AlignRight | Qt::AlignVCenter,
                                true};
            places_.xTicks << placed;
        }
    }

    double widthOfLevels() const {
        double width = 0;
        for (const auto& level : plot_.levels) {
            if (parts_.labels && isPlotted(level) && !level.name.isEmpty())
                width = std::max(width, letters_.widthOf(level.name) + 2 * gap_);
        }
        return std::min(width, whole_.width() * mostOfLevels);
    }

    /// The name of a level stands at its end, unless another one is there.
    void placeLevels() {
        const auto left = rest_.right() + gap_;
        for (const auto& level : plot_.levels) {
            if (!isPlotted(level))
                continue;
            PlacedLevel placed{places_.positionOfY(level.y), {}};
            const QRectF place(left, placed.position - line_ / 2, std::max(0.0, whole_.right() - left),
                               line_);
            const bool isFree = std::ranges::none_of(places_.levels, [&](const PlacedLevel& other) {
                return !other.label.text.isEmpty() && other.label.place.intersects(place);
            });
            if (parts_.labels && isFree)
                placed.label = {letters_.shortened(level.name, place.width()), place,
                                Qt::AlignLeft | Qt::AlignVCenter};
            places_.levels << placed;
        }
    }

    /// Bars of several series stand side by side.
    void placeBars() {
        const auto count = std::ranges::count_if(plot_.series, &PlotSeries::isBars);
        places_.barOffsets.resize(plot_.series.size());
        if (count == 0)
            return;
        const auto all = roomOfBars(plot_) / places_.x.size() * rest_.width() * shareOfBars;
        places_.barWidth = all / static_cast<double>(count);
        auto offset = (places_.barWidth - all) / 2;
        for (qsizetype index = 0; index < plot_.series.size(); ++index) {
            if (!plot_.series[index].isBars)
                continue;
            places_.barOffsets[index] = offset;
            offset += places_.barWidth;
        }
    }

    const Plot& plot_;
    const PlotLetters& letters_;
    const PlotLetters& titleLetters_;
    const Parts& parts_;
    const double line_;
    const double gap_;
    const bool hasPoints_;
    const QRectF whole_;
    QRectF rest_;
    PlotPlaces places_;
};

} // namespace

double PlotPlaces::positionOfX(double value) const {
    return area.left() + (value - x.least) / x.size() * area.width();
}

double PlotPlaces::positionOfY(double value) const {
    return area.bottom() - (value - y.least) / y.size() * area.height();
}

QPointF PlotPlaces::positionOf(qsizetype series, const PlotPoint& point) const {
    return {positionOfX(point.x) + barOffsets.value(series).value_or(0), positionOfY(point.y)};
}

QRectF PlotPlaces::barOf(qsizetype series, const PlotPoint& point) const {
    const auto end = positionOf(series, point);
    const auto zero = positionOfY(std::clamp(0.0, y.least, y.most));
    return {end.x() - barWidth / 2, std::min(end.y(), zero), barWidth, std::abs(end.y() - zero)};
}

PlotPlaces placesOf(const Plot& plot, const QRectF& place, const PlotLetters& letters,
                    const PlotLetters& titleLetters) {
    PlotPlaces places;
    for (const auto& parts : steps) {
        places = Arranger(plot, place, letters, titleLetters, parts).arrange();
        if (!places.area.isEmpty() || !hasPlottedPoint(plot))
            break;
    }
    return places;
}

} // namespace kelvane
