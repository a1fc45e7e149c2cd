#include "drivers/link_status.h"

#include "resources/text_id.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// A library of which the operator sees the warnings alone, and that has no words for a code of its own.
QString report(Session& session, qint16 code, const QString& name) {
    constexpr LinkStatus table[] = {{100, TextId::statusLoopPowerOff, u"WARNING"},
                                    {2002, TextId::statusMemoryInsufficient, u"ERROR"}};
    return reportStatus(session, {.table = table, .unknown = {}, .firstShown = 100, .lastShown = 1999}, code,
                        name);
}

constexpr LinkStatus statuses[] = {{0, TextId::downloadProcedures, u"FIRST"},
                                   {2001, TextId::calibratorFluke702, u"SECOND"}};

} // namespace

TEST(LinkStatuses, AreAMessageAndANameInParentheses) {
    EXPECT_EQ(linkStatusText(statuses, 0), u"Download Procedures To Calibrator (FIRST)"_s);
    EXPECT_EQ(linkStatusText(statuses, 2001), u"Fluke 702 (SECOND)"_s);
    for (const auto code : std::initializer_list<qint16>{-1, 1, 2000, 2002, 32767})
        EXPECT_EQ(linkStatusText(statuses, code), std::nullopt) << code;
    EXPECT_EQ(linkStatusText({}, 0), std::nullopt);
    EXPECT_EQ(linkStatusName(statuses, 2001), u"SECOND"_s);
    EXPECT_EQ(linkStatusName(statuses, 2002), QString());
}

class ReportedStatus : public RecordedSession {
  protected:
    const QString title = u"Download Procedures To Calibrator"_s;
};

TEST_F(ReportedStatus, IsShownOrGivenBackByTheRangeOfItsCode) {
    EXPECT_EQ(report(session, 2002, u"X"_s), u"Insufficient Memory (ERROR)"_s);
    EXPECT_EQ(report(session, 2003, u"X"_s), QString());
    EXPECT_EQ(report(session, 99, u"X"_s), QString());
    EXPECT_EQ(report(session, -1, u"X"_s), QString());
    ui.expectBox(u"X: Turning off loop power (WARNING)"_s, title, box::information);
    EXPECT_EQ(report(session, 100, u"X"_s), QString());
    ui.expectBox(u"X: "_s, title, box::information);
    EXPECT_EQ(report(session, 1999, u"X"_s), QString());
}

TEST_F(ReportedStatus, EndsTheWorkFrom2000OnEvenWithoutWords) {
    StatusRule rule(session, report, u"X"_s);
    EXPECT_TRUE(rule.passes(0));
    ui.expectBox(u"X: Turning off loop power (WARNING)"_s, title, box::information);
    EXPECT_TRUE(rule.passes(100));
    EXPECT_EQ(rule.failure(), QString());
    EXPECT_FALSE(rule.passes(2002));
    EXPECT_EQ(rule.failure(), u"Insufficient Memory (ERROR)"_s);
    EXPECT_FALSE(rule.passes(2000));
    EXPECT_EQ(rule.failure(), QString());
}

} // namespace kelvane::testing
