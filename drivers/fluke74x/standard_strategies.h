#pragma once

#include <QList>
#include <QString>

namespace kelvane::Module74xInterface {

/// A test strategy that the calibrator has for every instrument.
struct StandardStrategy {
    /// Arrows (characters 140 rising, 141 falling) and the number of distinct points.
    QString name;
    /// As fractions of the range.
    QList<float> points;
};

/// All of them, in the order in which they are defined.
QList<StandardStrategy> standardStrategies();

} // namespace kelvane::Module74xInterface
