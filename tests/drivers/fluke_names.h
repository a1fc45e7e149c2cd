#pragma once

#include <string>

namespace kelvane::testing {

/// The names of the tests that hold for the fixtures of both drivers, that of the Fluke 702 being the first.
struct FlukeNames {
    template <class Fixture>
    static std::string GetName(int index) {
        return index == 0 ? "Fluke702" : "Fluke74x";
    }
};

} // namespace kelvane::testing
