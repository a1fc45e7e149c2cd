#include "records/pass_rate_plots.h"

#include "platform/values/numbers.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

struct Kind {
    PassRateKind kind;
    TextId name;
    QMap<QString, PassRate> PassRates::*rates;
    /// Months stand in the order of time, none of them left out.
    bool isTime;
};

constexpr Kind kinds[] = {
    {PassRateKind::month, TextId::passRateMonth, &PassRates::byMonth, true},
    {PassRateKind::model, TextId::passRateModel, &PassRates::byModel, false},
    {PassRateKind::group, TextId::passRateGroup, &PassRates::byGroup, false},
};

const Kind& kindOf(PassRateKind kind) {
    return *std::ranges::find(kinds, kind, &Kind::kind);
}

/// As many bars as are told apart.
constexpr qsizetype mostBars = 24;

/// The bars with the fewest records as one behind the others.
QList<NamedPassRate> joinSmallest(QList<NamedPassRate> rates) {
    if (rates.size() <= mostBars)
        return rates;
    QList<qint64> counts;
    for (const auto& named : rates)
        counts << named.rate.counted();
    std::ranges::sort(counts, std::ranges::greater());
    const auto least = counts[mostBars - 2];
    auto atLeast = std::ranges::count(counts.first(mostBars - 1), least);
    QList<NamedPassRate> shown;
    NamedPassRate further{text(TextId::plotFurther), {}};
    for (const auto& named : rates) {
        const auto count = named.rate.counted();
        if (count > least || (count == least && atLeast-- > 0)) {
            shown << named;
            continue;
        }
        further.rate.passed += named.rate.passed;
        further.rate.failed += named.rate.failed;
    }
    return shown << further;
}

} // namespace

QList<NamedPassRate> passRatesBy(const PassRates& rates, PassRateKind kind) {
    const auto& counted = rates.*kindOf(kind).rates;
    QList<NamedPassRate> named;
    for (auto rate = counted.cbegin(); rate != counted.cend(); ++rate)
        named << NamedPassRate{rate.key().isEmpty() ? text(TextId::notStated) : rate.key(), rate.value()};
    return named;
}

QString passRateText(const PassRate& rate) {
    return text(TextId::passRateOf).arg(rate.passed).arg(rate.counted());
}

Plot passRatePlot(const PassRates& rates, PassRateKind kind) {
    const auto& shown = kindOf(kind);
    const auto named = shown.isTime ? passRatesBy(rates, kind) : joinSmallest(passRatesBy(rates, kind));
    Plot plot;
    plot.title = text(TextId::passRateTab);
    if (rates.since.isValid())
        plot.title +=
            u", %1 – %2"_s.arg(rates.since.toString(Qt::ISODate), rates.until.toString(Qt::ISODate));
    plot.x = {text(shown.name), PlotScale::names, {}, {}, {}};
    plot.y = {text(TextId::passRateAxis), PlotScale::numbers, {}, 0, 100};
    PlotSeries bars;
    bars.isBars = true;
    for (const auto& bar : named) {
        const auto x = static_cast<double>(plot.x.names.size());
        plot.x.names << bar.name;
        if (bar.rate.counted() > 0)
            bars.points << PlotPoint{x, bar.rate.percent(),
                                     u"%1: %2 %, %3"_s.arg(bar.name, fixedDecimals(bar.rate.percent(), 1),
                                                           passRateText(bar.rate))};
    }
    plot.series << bars;
    if (const auto leftOut = rates.undated + rates.inFuture + rates.otherState + rates.otherResult;
        leftOut > 0)
        plot.notes << text(TextId::passRateLeftOut)
                          .arg(rates.undated)
                          .arg(rates.inFuture)
                          .arg(rates.otherState)
                          .arg(rates.otherResult);
    return plot;
}

} // namespace kelvane
