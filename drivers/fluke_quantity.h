#pragma once

#include <QStringView>

#include <optional>

namespace kelvane {

/// What a Fluke calibrator can handle at all.
enum class FlukeQuantity { temperature, pressure, current, dcVoltage, acVoltage, frequency, resistance };

/// The quantity of a unit text, compared exactly; nothing for a unit that no Fluke knows.
std::optional<FlukeQuantity> flukeQuantity(QStringView unit);
/// True for a unit that Fluke calibrators know.
inline bool isFlukeUnit(QStringView unit) {
    return flukeQuantity(unit).has_value();
}

} // namespace kelvane
