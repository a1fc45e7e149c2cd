#pragma once

#include "simulators/fluke74x/memory.h"

namespace kelvane::simulators::fluke74x {

/// The buckets of a state: one for each item.
std::vector<Bucket> bucketsOf(const State& state);
/// And of the state that a step of a run was stored with: what was sourced and measured besides.
std::vector<Bucket> bucketsOf(const State& state, const Run& run, const Entry& step);

/// The scales on which the instrument is tested, in the units of what is stored.
Scale sourceScale(const State& state, const ByHand& byHand);
Scale measureScale(const State& state, const ByHand& byHand);
/// Where a value lies on a scale, as a fraction of it; 0 on a scale without a span.
double fractionOn(const Scale& scale, double value);

} // namespace kelvane::simulators::fluke74x
