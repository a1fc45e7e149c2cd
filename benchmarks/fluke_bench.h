#pragma once

#include "benchmarks/site.h"

#include <functional>
#include <memory>

namespace kelvane::bench {

/// A driver on a calibrator that takes no time itself.
class FlukeUnderBench {
  public:
    virtual ~FlukeUnderBench() = default;
    /// Empty, or the failure.
    virtual QString download(const QString& package) = 0;
    virtual QString upload() = 0;
};

/// A benchmark's program: a download and an upload of 1, 50 and 500 instruments of 21 points, what an
/// instrument costs at 500 against what it costs at 50, and the whole against plain ODBC firing the same
/// statements. `calibrator` stands before each figure. Arguments of the program: [TURNS]. Gives its exit
/// code.
int benchFluke(int argc, char** argv, const char* calibrator,
               const std::function<std::unique_ptr<FlukeUnderBench>(Session&)>& onSite);

} // namespace kelvane::bench
