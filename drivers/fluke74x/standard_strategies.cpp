#include "drivers/fluke74x/standard_strategies.h"

#include "platform/values/texts.h"

namespace kelvane::Module74xInterface {

namespace {

struct Row {
    const char* arrows;
    int points;
};

constexpr auto rising = "\x8C";
constexpr auto falling = "\x8D";
constexpr auto both = "\x8C\x8D";

constexpr Row rows[] = {
    {rising, 2},  {falling, 2}, {rising, 3},  {falling, 3},  {both, 3},  {rising, 5},
    {falling, 5}, {both, 5},    {rising, 11}, {falling, 11}, {both, 11},
};

QList<float> pointsOf(const Row& row) {
    QList<float> up;
    for (int point = 0; point < row.points; ++point)
        up << static_cast<float>(point) / static_cast<float>(row.points - 1);
    if (row.arrows == rising)
        return up;
    QList<float> points(up.crbegin(), up.crend());
    if (row.arrows == both)
        points = up + points.sliced(1);
    return points;
}

} // namespace

QList<StandardStrategy> standardStrategies() {
    QList<StandardStrategy> strategies;
    for (const auto& row : rows)
        strategies << StandardStrategy{fromCalibratorBytes(row.arrows) + QString::number(row.points),
                                       pointsOf(row)};
    return strategies;
}

} // namespace kelvane::Module74xInterface
