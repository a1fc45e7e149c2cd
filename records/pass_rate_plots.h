#pragma once

#include "data/history/pass_rate.h"
#include "plots/plot.h"

namespace kelvane {

enum class PassRateKind { month, model, group };

/// What the instruments of a rate have in common, and their rate.
struct NamedPassRate {
    QString name = {};
    PassRate rate = {};
};

/// The rates of a kind in the order of their names; an empty name is told in words.
QList<NamedPassRate> passRatesBy(const PassRates& rates, PassRateKind kind);

/// "12 of 14 passed"
QString passRateText(const PassRate& rate);

/// The pass rates as bars; nothing stands where nothing was counted. Of models and groups that are too many
/// to be told apart, the ones with the fewest records are one bar.
Plot passRatePlot(const PassRates& rates, PassRateKind kind);

} // namespace kelvane
