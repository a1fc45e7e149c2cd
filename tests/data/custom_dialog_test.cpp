#include "data/custom_dialog.h"

#include "data/guard.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleGlobals;

namespace {

class OneFieldDialog : public RecordedSession {
  protected:
    /// Asks for a strategy's name and gives the question as it reached the operator.
    DialogQuestion question(qint16 mode, const QStringList& choices = {}) {
        DialogQuestion asked;
        ui.expectDialog(u"Strategies"_s, u"Name:"_s, u"S5"_s,
                        [&](const DialogQuestion& question) { asked = question; });
        EXPECT_EQ(CustomDialog(session, u"Strategies"_s, u"Name:"_s, true, mode, 30, 2, u"S"_s, choices),
                  u"S5"_s);
        return asked;
    }
};

} // namespace

TEST_F(OneFieldDialog, WhatIsReportedWhileItIsOpenIsNotTheReportOfWhoAsks) {
    const ReportWatch asking(session);
    const auto ask = [this](int reports) {
        ui.expectDialog(u"Strategies"_s, u"Name:"_s, u"S5"_s,
                        [this, reports](const DialogQuestion&) { session.reportCount += reports; });
        CustomDialog(session, u"Strategies"_s, u"Name:"_s, true, 0, 30, 2, {});
    };
    ask(2);
    EXPECT_FALSE(asking.sawReport());
    // A question inside of the question of another screen, which has a report of its own.
    ui.expectDialog(u"Outer"_s, u"Name:"_s, u"S5"_s, [&](const DialogQuestion&) {
        const ReportWatch other(session);
        ++session.reportCount;
        ask(1);
        EXPECT_TRUE(other.sawReport());
    });
    CustomDialog(session, u"Outer"_s, u"Name:"_s, true, 0, 30, 2, {});
    EXPECT_FALSE(asking.sawReport());
    ++session.reportCount;
    EXPECT_TRUE(asking.sawReport());
}

TEST_F(OneFieldDialog, CarriesItsArguments) {
    const auto asked = question(0);
    EXPECT_TRUE(asked.required);
    EXPECT_FALSE(asked.fromList);
    EXPECT_EQ(asked.maxLength, 30);
    EXPECT_EQ(asked.fieldType, 2);
    EXPECT_EQ(asked.defaultText, u"S"_s);
    EXPECT_EQ(asked.choices, QStringList());
}

TEST_F(OneFieldDialog, OffersTheChoicesUpToTheFirstEmptyOneInModeOne) {
    const auto asked = question(1, {u"S3"_s, u"S5"_s, QString(), u"behind the end"_s});
    EXPECT_TRUE(asked.fromList);
    EXPECT_EQ(asked.choices, (QStringList{u"S3"_s, u"S5"_s}));
    EXPECT_EQ(question(1, {u"S3"_s, u"S5"_s}).choices, (QStringList{u"S3"_s, u"S5"_s}));
    EXPECT_EQ(question(1, {u""_s, u"S5"_s}).choices, QStringList());
    EXPECT_EQ(question(1).choices, QStringList());
}

TEST_F(OneFieldDialog, OffersAsManyAs2500ChoicesAndReportsMore) {
    QStringList choices;
    for (int i = 1; i <= 2500; ++i)
        choices << QString::number(i);
    EXPECT_EQ(question(1, choices).choices, choices);
    choices << u"2501"_s;
    ui.expectReport(9, u"ModuleGlobals,CustomDialog"_s);
    EXPECT_EQ(CustomDialog(session, u"Strategies"_s, u"Name:"_s, true, 1, 30, 2, {}, choices), cancelled);
    EXPECT_FALSE(ui.busy);
}

TEST_F(OneFieldDialog, ShowsATextBoxInEveryOtherMode) {
    for (const qint16 mode : {qint16{0}, qint16{2}, qint16{-1}}) {
        const auto asked = question(mode, {u"S3"_s});
        EXPECT_FALSE(asked.fromList) << mode;
        EXPECT_EQ(asked.choices, QStringList()) << mode;
    }
}

TEST_F(OneFieldDialog, AnOptionalFieldIsAskedAsSuch) {
    ui.expectDialog(u"Strategies"_s, u"Name:"_s, QString(),
                    [](const DialogQuestion& asked) { EXPECT_FALSE(asked.required); });
    EXPECT_EQ(CustomDialog(session, u"Strategies"_s, u"Name:"_s, false, 0, 0, 0, {}), QString());
}

TEST_F(OneFieldDialog, ReturnsACancellation) {
    ui.expectDialog(u"Strategies"_s, u"Name:"_s, cancelled);
    EXPECT_EQ(CustomDialog(session, u"Strategies"_s, u"Name:"_s, true, 0, 30, 0, {}), u"*CANCEL*"_s);
}

TEST_F(OneFieldDialog, ARequiredAnswerOfBlanksIsACancellation) {
    for (const auto& blanks : {u""_s, u" "_s, u"    "_s}) {
        ui.expectDialog(u"Strategies"_s, u"Name:"_s, blanks);
        EXPECT_EQ(CustomDialog(session, u"Strategies"_s, u"Name:"_s, true, 0, 30, 0, {}), u"*CANCEL*"_s);
        ui.expectDialog(u"Strategies"_s, u"Name:"_s, blanks);
        EXPECT_EQ(CustomDialog(session, u"Strategies"_s, u"Name:"_s, false, 0, 30, 0, {}), blanks);
    }
}

TEST_F(OneFieldDialog, WaitsForTheEntryWithTheNormalPointer) {
    ui.expectDialog(u"Strategies"_s, u"Name:"_s, u"S5"_s,
                    [&](const DialogQuestion&) { EXPECT_FALSE(ui.busy); });
    CustomDialog(session, u"Strategies"_s, u"Name:"_s, true, 0, 30, 0, {});
    EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"normal"_s}));
}

} // namespace kelvane::testing
