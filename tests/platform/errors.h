#pragma once

#include "platform/error.h"

namespace kelvane::testing {

/// The number of the error that `call` throws; 0 when it throws none.
template <class Call>
double errorOf(Call&& call) {
    try {
        call();
    } catch (const Error& error) {
        return error.number;
    }
    return 0;
}

} // namespace kelvane::testing
