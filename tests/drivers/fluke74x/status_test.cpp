#include "drivers/fluke74x/link.h"
#include "testkit/fixtures.h"
#include "tests/drivers/fluke74x/status_words.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using Module74xInterface::DPC3StatusText;

class Dpc3Status : public RecordedSession {
  protected:
    const QString title = u"Download Procedures To Calibrator"_s;
};

TEST_F(Dpc3Status, OfTheTableReturnsItsMessageWithItsName) {
    const auto rows = statusWords3();
    EXPECT_EQ(rows.size(), 17);
    for (const auto& row : rows)
        EXPECT_EQ(DPC3StatusText(session, row.code, u"X"_s), row.words) << row.code;
}

TEST_F(Dpc3Status, OutsideTheTableHasNoText) {
    for (const auto& row : unknownStatuses3()) {
        if (isShown3(row.code))
            continue;
        EXPECT_EQ(DPC3StatusText(session, row.code, u"X"_s), QString()) << row.code;
    }
}

TEST_F(Dpc3Status, From100To1999ShowsABoxWithoutWordsAndReturnsNothing) {
    for (qint16 code = 100; code <= 1999; ++code) {
        ui.expectBox(u"PT-1: "_s, title, box::information);
        EXPECT_EQ(DPC3StatusText(session, code, u"PT-1"_s), QString()) << code;
        ASSERT_TRUE(ui.hasMetAll()) << code;
    }
}

TEST_F(Dpc3Status, Of99And2000IsNotShown) {
    EXPECT_EQ(DPC3StatusText(session, 99, u"PT-1"_s), QString());
    EXPECT_EQ(DPC3StatusText(session, 2000, u"PT-1"_s), QString());
}

TEST_F(Dpc3Status, WithoutANameStillShowsTheColon) {
    ui.expectBox(u": "_s, title, box::information);
    EXPECT_EQ(DPC3StatusText(session, 100, {}), QString());
}

TEST_F(Dpc3Status, ShowsANameAsItIs) {
    const auto name = u"%1 <b>O'Neil</b> Ж"_s;
    ui.expectBox(name + u": "_s, title, box::information);
    EXPECT_EQ(DPC3StatusText(session, 1999, name), QString());
}

TEST_F(Dpc3Status, UsesNoWordsOfThe702) {
    // 100 turns off loop power there, and 2001 is a thermocouple's.
    ui.expectBox(u"X: "_s, title, box::information);
    EXPECT_EQ(DPC3StatusText(session, 100, u"X"_s), QString());
    EXPECT_EQ(DPC3StatusText(session, 2001, u"X"_s),
              u"Didn't find the requested object/item (DPC3ERR_NOT_FOUND)"_s);
    EXPECT_EQ(DPC3StatusText(session, 2017, u"X"_s), QString());
}

TEST_F(Dpc3Status, TouchesNothingElse) {
    DPC3StatusText(session, 2013, u"X"_s);
    EXPECT_EQ(ui.events, QStringList());
    EXPECT_EQ(script.statements, QStringList());
}

} // namespace kelvane::testing
