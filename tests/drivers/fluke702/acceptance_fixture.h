#pragma once

#include "testkit/acceptance_fixture.h"
#include "testkit/fluke_fixture.h"

namespace kelvane::testing {

class FlukeAcceptance : public AcceptanceOf<FlukeFixture> {
  protected:
    // Where the calibrators differ in limits that they share.
    static constexpr float maxMeasuredHertz = 20000;
    static constexpr float maxSourcedVolts = 11;
    static constexpr float maxSourcedMegohms = 0.011F;
    static constexpr float lowestTypeKCelsius = -200;
    static constexpr float lowestTypeRAndSCelsius = 0;
    static constexpr float lowestTypeRAndSFahrenheit = 32;

    static constexpr auto acceptableFor = &Module702Interface::Fluke702_acceptable;
    const QString acceptableName = QStringLiteral("Module702Interface,Fluke702_acceptable");

    /// The answer for an input that the calibrator can't source, behind an output that it takes.
    QString answerToUnknownInput(const QString& = QStringLiteral("A-1")) {
        return QStringLiteral("Calibrator cannot output (input to UUT) selected units requested!");
    }
};

} // namespace kelvane::testing
