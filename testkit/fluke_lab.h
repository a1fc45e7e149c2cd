#pragma once

#include "testkit/lab.h"

namespace kelvane::testing {

/// A lab with process instruments for a documenting calibrator.
class FlukeLab : public Lab {
  protected:
    /// An instrument of these two sides, one point at 100 %, 0.5 % of span, resolution 0.01.
    static CalParamRecord instrument(const QString& inputType, float inputLow, float inputHigh,
                                     const QString& outputType, float outputLow, float outputHigh);
    /// A pressure transmitter: 0 to 100 psi give 4 to 20 mA, loop power 24 V.
    static CalParamRecord transmitter();
};

} // namespace kelvane::testing
