#include "data/custom_dialog.h"

#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleGlobals;

namespace {

class OneFieldDialog : public RecordedSession {
  protected:
    /// Asks for a strategy's name and gives the question as it reached the operator.
    DialogQuestion question(qint16 mode) {
        DialogQuestion asked;
        ui.expectDialog(u"Strategies"_s, u"Name:"_s, u"S5"_s,
                        [&](const DialogQuestion& question) { asked = question; });
        EXPECT_EQ(CustomDialog(session, u"Strategies"_s, u"Name:"_s, true, mode, 30, 2, u"S"_s), u"S5"_s);
        return asked;
    }
};

} // namespace

TEST_F(OneFieldDialog, CarriesItsArguments) {
    const auto asked = question(0);
    EXPECT_TRUE(asked.required);
    EXPECT_FALSE(asked.fromList);
    EXPECT_EQ(asked.maxLength, 30);
    EXPECT_EQ(asked.fieldType, 2);
    EXPECT_EQ(asked.defaultText, u"S"_s);
    EXPECT_EQ(asked.choices, QStringList());
}

TEST_F(OneFieldDialog, OffersTheSharedValuesUpToTheFirstEmptyOneInModeOne) {
    session.SharedValueList[1] = u"S3"_s;
    session.SharedValueList[2] = u"S5"_s;
    session.SharedValueList[4] = u"behind the end"_s;
    const auto asked = question(1);
    EXPECT_TRUE(asked.fromList);
    EXPECT_EQ(asked.choices, (QStringList{u"S3"_s, u"S5"_s}));
}

TEST_F(OneFieldDialog, OffersAsManyAs2500Values) {
    for (int i = 1; i <= 2500; ++i)
        session.SharedValueList[i] = QString::number(i);
    EXPECT_EQ(question(1).choices.size(), 2500);
    EXPECT_EQ(question(1).choices.last(), u"2500"_s);
}

TEST_F(OneFieldDialog, ShowsATextBoxInEveryOtherMode) {
    session.SharedValueList[1] = u"S3"_s;
    for (const qint16 mode : {qint16{0}, qint16{2}, qint16{-1}}) {
        const auto asked = question(mode);
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
