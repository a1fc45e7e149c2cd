#include "simulators/fluke74x/transfer.h"

namespace kelvane::simulators::fluke74x {

namespace {

// A step for each type of bucket.
constexpr auto mapSteps = static_cast<qint32>(std::variant_size_v<Value>);

} // namespace

References KeptNumbers::next() {
    expected_ = {expected_.first + 1, expected_.second + 512, expected_.third ^ (expected_.second + 7)};
    return expected_;
}

void MapFetch::openLinkTo(const Identity& identity) {
    if (identity.serial != serial_)
        fetched_ = false;
    serial_ = identity.serial;
    breakOff();
}

void MapFetch::start(qint32& count) {
    left_ = mapSteps;
    count = left_;
}

Code MapFetch::step(qint32& count) {
    if (left_ == 0 || count != left_)
        return OutOfStep;
    count = --left_;
    fetched_ = fetched_ || left_ == 0;
    return Done;
}

} // namespace kelvane::simulators::fluke74x
