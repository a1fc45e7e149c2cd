#pragma once

#include "testkit/acceptance_fixture.h"
#include "testkit/fluke74x_fixture.h"

namespace kelvane::testing {

class Fluke74xAcceptance : public AcceptanceOf<Fluke74xFixture> {
  protected:
    // Where the calibrators differ in limits that they share.
    static constexpr float maxMeasuredHertz = 50000;
    static constexpr float maxSourcedVolts = 15;
    static constexpr float maxSourcedMegohms = 0.05F;
    static constexpr float lowestTypeKCelsius = -270;
    static constexpr float lowestTypeRAndSCelsius = -20;
    static constexpr float lowestTypeRAndSFahrenheit = -4;

    static constexpr auto acceptableFor = &Module74xInterface::Fluke74x_acceptable;
    const QString acceptableName = QStringLiteral("Module74xInterface,Fluke74x_acceptable");

    /// The answer for an input that the calibrator can't source, behind an output that it takes; a box comes
    /// with it.
    QString answerToUnknownInput(const QString& asset = QStringLiteral("A-1")) {
        expectSourcedByHand(asset);
        return {};
    }
};

} // namespace kelvane::testing
