#pragma once

#include "platform/error.h"

#include <cmath>

namespace kelvane {

/// `value`, when it is a number that its width can hold; error 6 for anything else.
template <class Float>
Float finite(Float value) {
    if (!std::isfinite(value))
        throw makeError(ErrorNumber::overflow);
    return value;
}

/// The quotient in the operands' own width. A divisor of 0 is error 11, under a dividend of 0 too.
template <class Float>
Float divide(Float dividend, Float divisor) {
    if (divisor == 0)
        throw makeError(ErrorNumber::divisionByZero);
    return finite(dividend / divisor);
}

} // namespace kelvane
