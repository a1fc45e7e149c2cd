#include "tests/end_to_end/fluke_end_to_end.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// What only this calibrator does.
class Fluke702EndToEnd : public FlukeEndToEnd {};

TEST_F(Fluke702EndToEnd, AnInstrumentAfterAManuallyReadOneCountsAsManuallyReadAndFailsWhenItWasNot) {
    list({u"LI-402"_s, u"FT-501"_s});
    download();
    ASSERT_EQ(storedTags(), (QStringList{u"LI-402"_s, u"FT-501"_s}));
    EXPECT_EQ(held().byHand, storedTags());
    // The manual reading is in mA and is taken for one in A.
    carryOutPlan(u"FT-501; as-found; 0; ; ; %1 11:10\n"_s.arg(workDay()));
    expectChoice();
    expectRecord(u"FT-501"_s);
    ui.expectBox(text(TextId::judgedInstrument) + u" FT-501\r\n\r\n"_s + text(TextId::calibratorReportedPass),
                 text(TextId::instrumentFailed), box::warning);
    pressUpload();
    EXPECT_EQ(records(u"FT-501"_s), QStringList{u"N|1|3"_s});
}

TEST_F(Fluke702EndToEnd, ACalibratorThatTheDatabaseDoesNotKnowTakesWorkAndGivesNone) {
    execute(u"update mt.inventory set i4206 = '1' where i4201 = 'F702-01'"_s);
    list(singleInstrument());
    ui.expectBox(messages::unknownCalibrator(), text(TextId::fluke702DownloadTitle), box::warning);
    download();
    EXPECT_EQ(registered(), singleInstrument());
    EXPECT_EQ(standardsInUse(u"PT-101"_s), QStringList());
    carryOut(singleRun());
    upload({}, messages::unknownCalibrator());
    EXPECT_EQ(records(u"PT-101"_s), QStringList());
    execute(u"update mt.inventory set i4206 = '6841207' where i4201 = 'F702-01'"_s);
    upload(singleRun());
    expectRecords(singleRun());
}

TEST_F(Fluke702EndToEnd, APressureModuleThatTheDatabaseDoesNotKnowEndsTheStandards) {
    listRuns(calibrator.runs.manual.first());
    download();
    carryOutPlan(u"TCS-802; as-found; 0; ; 99999; %1 13:40\n"_s.arg(workDay()));
    expectChoice();
    expectRecord(u"TCS-802"_s);
    pressUpload();
    EXPECT_EQ(records(u"TCS-802"_s), QStringList{u"Y|1|5"_s}) << "DMM-87V stands behind the empty row";
}

} // namespace kelvane::testing
