#include "drivers/link_status.h"

#include "resources/text_id.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

constexpr LinkStatus statuses[] = {{0, TextId::downloadProcedures, u"FIRST"},
                                   {2001, TextId::calibratorFluke702, u"SECOND"}};

} // namespace

TEST(LinkStatuses, AreAMessageAndANameInParentheses) {
    EXPECT_EQ(linkStatusText(statuses, 0), u"Download Procedures To Calibrator (FIRST)"_s);
    EXPECT_EQ(linkStatusText(statuses, 2001), u"Fluke 702 (SECOND)"_s);
    for (const auto code : std::initializer_list<qint16>{-1, 1, 2000, 2002, 32767})
        EXPECT_EQ(linkStatusText(statuses, code), std::nullopt) << code;
    EXPECT_EQ(linkStatusText({}, 0), std::nullopt);
}

} // namespace kelvane::testing
