#include "drivers/fluke702/link.h"
#include "drivers/link_status.h"
#include "testkit/fixtures.h"
#include "tests/drivers/fluke702/status_words.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using Module702Interface::DPCStatusText;

class DpcStatus : public RecordedSession {
  protected:
    const QString title = u"Download Procedures To Calibrator"_s;
};

TEST_F(DpcStatus, From2001OnReturnsTheTextAndShowsNothing) {
    int count = 0;
    for (const auto& row : statusWords() + unknownStatuses()) {
        if (row.code >= 2001) {
            EXPECT_EQ(DPCStatusText(session, row.code, u"X"_s), row.words) << row.code;
            ++count;
        }
    }
    EXPECT_EQ(count, 28);
}

TEST_F(DpcStatus, Below2001ShowsABoxAndReturnsNothing) {
    int shown = 0;
    for (const auto& row : statusWords() + unknownStatuses()) {
        if (row.code < 2001) {
            ui.expectBox(u"PT-1: "_s + row.words, title, box::information);
            EXPECT_EQ(DPCStatusText(session, row.code, u"PT-1"_s), QString()) << row.code;
            EXPECT_TRUE(ui.hasMetAll()) << row.code;
            ++shown;
        }
    }
    EXPECT_EQ(shown, 16);
}

TEST_F(DpcStatus, Of2000IsShownAsAWarningAlthoughCallersTakeItForFatal) {
    ui.expectBox(u"X: Open Thermocouple (DPCERR_OPEN_TC)"_s, title, box::information);
    EXPECT_EQ(DPCStatusText(session, 2000, u"X"_s), QString());
    EXPECT_TRUE(isFatal(2000));
    EXPECT_FALSE(isFatal(1999));
}

TEST_F(DpcStatus, WithoutANameStillShowsTheColon) {
    ui.expectBox(u": Turning off loop power (DPCWARN_BAD_LOOP)"_s, title, box::information);
    EXPECT_EQ(DPCStatusText(session, 100, {}), QString());
}

TEST_F(DpcStatus, ShowsANameAsItIs) {
    const auto name = u"%1 <b>O'Neil</b> Ж"_s;
    ui.expectBox(name + u": Unknown Error"_s, title, box::information);
    EXPECT_EQ(DPCStatusText(session, 7, name), QString());
}

TEST_F(DpcStatus, SaysThe74xOfThe702Too) {
    EXPECT_EQ(DPCStatusText(session, 2018, {}), u"Invalid Response From 74x (DPCERR_COMPLIANCE_ERROR)"_s);
    EXPECT_EQ(DPCStatusText(session, 2022, {}), u"Unexpected Data From 74x (DPCERR_RECV_UNEXPECTED_DATA)"_s);
}

TEST_F(DpcStatus, TouchesNothingElse) {
    DPCStatusText(session, 2013, u"X"_s);
    EXPECT_EQ(ui.events, QStringList());
    EXPECT_EQ(script.statements, QStringList());
}

} // namespace kelvane::testing
