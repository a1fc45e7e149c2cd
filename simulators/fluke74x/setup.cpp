#include "simulators/fluke74x/setup.h"

namespace kelvane::simulators::fluke74x {

Code Setup::begin() {
    if (begun_)
        return OutOfStep;
    begun_ = true;
    return Done;
}

Code Setup::setDefaults() {
    if (!begun_)
        return OutOfStep;
    state_.emplace();
    evaluated_ = false;
    return Done;
}

Code Setup::set(const QString& item, const Value& value) {
    if (!state_)
        return OutOfStep;
    evaluated_ = false;
    return state_->set(item, value);
}

Code Setup::evaluate() {
    if (!state_)
        return OutOfStep;
    evaluated_ = true;
    return Done;
}

Code Setup::end() {
    if (!begun_)
        return OutOfStep;
    *this = {};
    return Done;
}

const State* Setup::evaluated() const {
    return evaluated_ ? &*state_ : nullptr;
}

} // namespace kelvane::simulators::fluke74x
