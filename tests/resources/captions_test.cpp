#include "resources/captions.h"
#include "resources/text_id.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(Captions, LoseTheirDotsAsTitles) {
    EXPECT_EQ(titleOf(TextId::printReport), u"Print"_s);
    EXPECT_EQ(titleOf(TextId::recordsSave), u"Save as CSV"_s);
    EXPECT_EQ(titleOf(TextId::paper), text(TextId::paper)) << "there are none to lose";
}

TEST(Captions, OfColumnsStandInTheirOrder) {
    constexpr TextId columns[] = {TextId::listState, TextId::listDate};
    EXPECT_EQ(captionsOf(columns), (QStringList{u"State"_s, u"Date"_s}));
}

} // namespace kelvane::testing
