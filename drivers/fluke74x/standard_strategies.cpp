#include "drivers/fluke74x/standard_strategies.h"

#include "platform/values/texts.h"

namespace kelvane::Module74xInterface {

namespace {

struct Direction {
    /// In the calibrator's alphabet.
    const char* arrows;
    bool rises;
    bool falls;
};

struct Row {
    Direction direction;
    int points;
};

constexpr Direction rising{"\x8C", true, false};
constexpr Direction falling{"\x8D", false, true};
constexpr Direction both{"\x8C\x8D", true, true};

constexpr Row rows[] = {
    {rising, 2},  {falling, 2}, {rising, 3},  {falling, 3},  {both, 3},  {rising, 5},
    {falling, 5}, {both, 5},    {rising, 11}, {falling, 11}, {both, 11},
};

QList<float> pointsOf(const Row& row) {
    QList<float> up;
    for (int point = 0; point < row.points; ++point)
        up << static_cast<float>(point) / static_cast<float>(row.points - 1);
    const QList<float> down(up.crbegin(), up.crend());
    if (!row.direction.falls)
        return up;
    return row.direction.rises ? up + down.sliced(1) : down;
}

} // namespace

QList<StandardStrategy> standardStrategies() {
    QList<StandardStrategy> strategies;
    for (const auto& row : rows)
        strategies << StandardStrategy{
            fromCalibratorBytes(row.direction.arrows) + QString::number(row.points), pointsOf(row)};
    return strategies;
}

} // namespace kelvane::Module74xInterface
