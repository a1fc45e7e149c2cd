#pragma once

#include "resources/strings.h"
#include "testkit/fluke_fixture.h"

namespace kelvane::testing {

class FlukeAcceptance : public FlukeFixture {
  protected:
    /// The answer for the instrument "A-1" with these parameters.
    QString answer(const CalParamRecord& record) {
        addInstrument(QStringLiteral("A-1"), record);
        return Module702Interface::Fluke702_acceptable(driver, QStringLiteral("A-1"));
    }
    bool needsStandard(const CalParamRecord& record) {
        addInstrument(QStringLiteral("A-1"), record);
        return Module702Interface::Fluke702_requires_standard(driver, QStringLiteral("A-1"));
    }

    /// The answer for an output of this range, the input being a pressure, which has no limits.
    QString measured(const QString& unit, float low, float high, const QString& sensor = {}) {
        auto record = instrument(QStringLiteral("psi"), 0, 100, unit, low, high);
        record.temp_sens_type_out = sensor;
        return answer(record);
    }
    /// The answer for an input of this range, the output being a voltage well within its limits.
    QString sourced(const QString& unit, float low, float high, const QString& sensor = {}) {
        auto record = instrument(unit, low, high, QStringLiteral("V"), 0, 10);
        record.temp_sens_type_in = sensor;
        return answer(record);
    }

    /// The box that an output gives which the calibrator can't read.
    void expectReadByHand(const QString& asset = QStringLiteral("A-1")) {
        ui.expectBox(
            asset +
                QStringLiteral(
                    ": Output of device cannot be measured by the calibrator. The calibrator will prompt you "
                    "for a reading that may not be in the same units of measure as the device under test. "
                    "Please ignore the calibrator units of measure; the proper units and range will be used "
                    "during the upload process."),
            QStringLiteral("Download Procedures To Calibrator"), box::information);
    }
};

/// The 32-bit number next above and next below.
inline float above(float value) {
    return std::nextafter(value, std::numeric_limits<float>::infinity());
}
inline float below(float value) {
    return std::nextafter(value, -std::numeric_limits<float>::infinity());
}

} // namespace kelvane::testing
