#include "drivers/fluke74x/standard_strategies.h"

#include "platform/values/texts.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using Module74xInterface::standardStrategies;

TEST(StandardStrategies, AreNamedByArrowsAndTheNumberOfDistinctPoints) {
    const auto rising = fromCalibratorBytes("\x8C");
    const auto falling = fromCalibratorBytes("\x8D");
    QStringList names;
    for (const auto& strategy : standardStrategies())
        names << strategy.name;
    EXPECT_EQ(names,
              (QStringList{rising + u'2', falling + u'2', rising + u'3', falling + u'3',
                           rising + falling + u'3', rising + u'5', falling + u'5', rising + falling + u'5',
                           rising + u"11"_s, falling + u"11"_s, rising + falling + u"11"_s}));
}

TEST(StandardStrategies, RiseFallOrDoBothInEvenSteps) {
    const auto strategies = standardStrategies();
    using Points = QList<float>;
    EXPECT_EQ(strategies[0].points, (Points{0, 1}));
    EXPECT_EQ(strategies[1].points, (Points{1, 0}));
    EXPECT_EQ(strategies[4].points, (Points{0, 0.5F, 1, 0.5F, 0}));
    EXPECT_EQ(strategies[6].points, (Points{1, 0.75F, 0.5F, 0.25F, 0}));
    EXPECT_EQ(strategies[8].points, (Points{0, 0.1F, 0.2F, 0.3F, 0.4F, 0.5F, 0.6F, 0.7F, 0.8F, 0.9F, 1}));
    EXPECT_EQ(strategies[10].points, (Points{0,    0.1F, 0.2F, 0.3F, 0.4F, 0.5F, 0.6F, 0.7F, 0.8F, 0.9F, 1,
                                             0.9F, 0.8F, 0.7F, 0.6F, 0.5F, 0.4F, 0.3F, 0.2F, 0.1F, 0}));
}

} // namespace kelvane::testing
