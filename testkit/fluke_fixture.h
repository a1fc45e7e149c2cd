#pragma once

#include "drivers/fluke702/driver.h"
#include "testkit/lab.h"
#include "testkit/recorded_link.h"

namespace kelvane::testing {

/// A lab with process instruments and a Fluke 702 on a recorded link.
class FlukeFixture : public Lab {
  protected:
    /// The calibrator's own row in the inventory: F-702, key 900, with the serial number that the link gives.
    void addCalibrator();

    /// An instrument of these two sides, one point at 100 %, 0.5 % of span, resolution 0.01.
    static CalParamRecord instrument(const QString& inputType, float inputLow, float inputHigh,
                                     const QString& outputType, float outputLow, float outputHigh);
    /// A pressure transmitter: 0 to 100 psi give 4 to 20 mA, loop power 24 V.
    static CalParamRecord transmitter();

    RecordedLink link;
    Fluke702 driver{session, link};
};

} // namespace kelvane::testing
