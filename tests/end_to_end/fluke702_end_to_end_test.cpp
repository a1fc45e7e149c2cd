#include "tests/end_to_end/fluke702_end_to_end.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using demo::manualRuns;
using demo::measuredRuns;

class WholeFluke702EndToEnd : public Fluke702EndToEnd {
  protected:
    void bringBack(const QList<demo::FieldRun>& runs) {
        list(demo::assetsOf(runs));
        download();
        carryOut(runs);
    }
    QString packages() { return rows(u"select count(*) from mt.hvm_kv_task_packages"_s).value(0); }
};

TEST_F(WholeFluke702EndToEnd, TheListRefusesWhatTheCalibratorCantTakeAndAsksForAStandardWhereItCantRead) {
    ui.expectBox(u"AC-604: Fluke 702 cannot source AC Volts!"_s, downloadTitle, box::warning);
    addToDownloadList(calibrators, screen, u"AC-604"_s);
    listManualRuns();
    EXPECT_EQ(screen.list, (QStringList{u"LI-402"_s, u"TCS-802"_s}));
    EXPECT_EQ(standardsInUse(u"TCS-802"_s), QStringList{u"DMM-87V"_s});
    EXPECT_EQ(standardsInUse(u"LI-402"_s), QStringList());
    EXPECT_EQ(takeHeard(), QStringList()) << "nothing is said to the calibrator yet";
}

TEST_F(WholeFluke702EndToEnd, TheDownloadLoadsTheCalibratorAndRegistersItInPlaceOfTheOneBefore) {
    EXPECT_EQ(registered(), (QStringList{u"PT-103"_s, u"PT-104"_s}));
    const auto before = packages();
    const auto assets = demo::assetsOf(measuredRuns());
    list(assets);
    download();
    auto sorted = assets;
    sorted.sort();
    EXPECT_EQ(registered(), sorted);
    auto tags = storedTags();
    tags.sort();
    EXPECT_EQ(tags, sorted);
    for (const auto& asset : assets)
        EXPECT_EQ(standardsInUse(asset), QStringList{u"F702-01"_s}) << asset.toStdString();
    for (const auto& task : held().contents.tasks)
        EXPECT_FALSE(task.byHand) << task.tag.toStdString();
    EXPECT_EQ(rows(u"select distinct tech from mt.hvm_kv_task_inuse where serial_number = '6841207'"_s),
              QStringList{u"jdoe"_s});
    EXPECT_EQ(packages(), before) << "the temporary package is gone";
    EXPECT_EQ(screen.events.last(), u"close"_s);
    EXPECT_EQ(workplace.settings.values.value(u"Defaults/LastDownloadCalibrator"_s), u"Fluke 702"_s);
}

TEST_F(WholeFluke702EndToEnd, TheUploadWritesEveryRecordAndLeavesCalibratorAndRegistry) {
    bringBack(measuredRuns());
    const auto before = held();
    upload(measuredRuns());
    expectRecordsAfter(demo::recordsAfterRuns(measuredRuns()));
    EXPECT_EQ(held(), before);
    EXPECT_EQ(workplace.settings.values.value(u"Defaults/LastUploadCalibrator"_s), u"Fluke 702"_s);
}

TEST_F(WholeFluke702EndToEnd, ASecondUploadFindsEverythingAgainAndDoublesNothing) {
    bringBack(measuredRuns());
    upload(measuredRuns());
    expectChoice();
    expectRefusedRuns(measuredRuns());
    pressUpload();
    expectRecordsAfter(demo::recordsAfterRuns(measuredRuns()));
}

TEST_F(WholeFluke702EndToEnd, ManuallyReadInstrumentsGoIntoADownloadOfTheirOwn) {
    listManualRuns();
    download();
    for (const auto& task : held().contents.tasks)
        EXPECT_TRUE(task.byHand) << task.tag.toStdString();
    carryOut(manualRuns());
    upload(manualRuns());
    expectRecordsAfter(demo::recordsAfterRuns(manualRuns()));
}

TEST_F(WholeFluke702EndToEnd, AnInstrumentAfterAManuallyReadOneCountsAsManuallyReadAndFailsWhenItWasNot) {
    list({u"LI-402"_s, u"FT-501"_s});
    download();
    ASSERT_EQ(storedTags(), (QStringList{u"LI-402"_s, u"FT-501"_s}));
    EXPECT_TRUE(held().contents.tasks[1].byHand);
    // The manual reading is in mA and is taken for one in A.
    carryOutPlan(u"FT-501; as-found; 0; ; ; %1 11:10\n"_s.arg(workDay()));
    expectChoice();
    expectRecord(u"FT-501"_s);
    ui.expectBox(
        u"Instrument: FT-501\r\n\r\nThe above listed instrument failed calibration, but the calibrator reported that the instrument was not out of tolerance. This condition is caused by the inability of the calibrator to handle complex error calculations."_s,
        u"Instrument Failed Calibration!"_s, box::warning);
    pressUpload();
    EXPECT_EQ(records(u"FT-501"_s), QStringList{u"N|1|3"_s});
}

TEST_F(WholeFluke702EndToEnd, AnUploadBeforeTheWorkFindsNothingAndForgetsNothing) {
    list(singleInstrument());
    download();
    upload({});
    EXPECT_EQ(registered(), singleInstrument());
    carryOut(singleRun());
    upload(singleRun());
    expectRecords(singleRun());
}

TEST_F(WholeFluke702EndToEnd, TheAdjustmentMayComeWithALaterUpload) {
    list(singleInstrument());
    download();
    carryOut(singleRun());
    upload(singleRun());
    carryOut(twoRuns().last(1));
    expectChoice();
    expectRefusedRuns(singleRun());
    expectRuns(twoRuns().last(1));
    pressUpload();
    expectRecords(twoRuns());
}

TEST_F(WholeFluke702EndToEnd, ASecondDownloadReplacesTasksResultsAndRegistryWithoutAQuestion) {
    bringBack(twoRuns());
    screen.list.clear();
    list({u"FT-501"_s});
    download();
    EXPECT_EQ(storedTags(), QStringList{u"FT-501"_s});
    EXPECT_EQ(held().contents.runs.size(), 0U);
    EXPECT_EQ(registered(), QStringList{u"FT-501"_s});
    upload({});
    EXPECT_EQ(records(u"PT-101"_s), QStringList());
}

TEST_F(WholeFluke702EndToEnd, ACalibratorThatTheDatabaseDoesNotKnowTakesWorkAndGivesNone) {
    execute(u"update mt.inventory set i4206 = '1' where i4201 = 'F702-01'"_s);
    list(singleInstrument());
    ui.expectBox(messages::unknownCalibrator, u"Download Task Package to Fluke 702"_s, box::warning);
    download();
    EXPECT_EQ(registered(), singleInstrument());
    EXPECT_EQ(standardsInUse(u"PT-101"_s), QStringList());
    carryOut(singleRun());
    upload({}, messages::unknownCalibrator);
    EXPECT_EQ(records(u"PT-101"_s), QStringList());
    execute(u"update mt.inventory set i4206 = '6841207' where i4201 = 'F702-01'"_s);
    upload(singleRun());
    expectRecords(singleRun());
}

TEST_F(WholeFluke702EndToEnd, APressureModuleThatTheDatabaseDoesNotKnowEndsTheStandards) {
    listManualRuns();
    download();
    carryOutPlan(u"TCS-802; as-found; 0; ; 99999; %1 13:40\n"_s.arg(workDay()));
    expectChoice();
    expectRecord(u"TCS-802"_s);
    pressUpload();
    EXPECT_EQ(records(u"TCS-802"_s), QStringList{u"Y|1|5"_s}) << "DMM-87V stands behind the empty row";
}

TEST_F(WholeFluke702EndToEnd, ADamagedMemoryIsACalibratorThatDoesNotAnswer) {
    simulatorFolder.put(u"memory.json"_s, "{");
    list(singleInstrument());
    const auto words = u"Communications with calibrator failed! (DPCERR_COMM_NOT_CONNECTED)"_s;
    download(words);
    upload({}, words);
    EXPECT_EQ(registered(), (QStringList{u"PT-103"_s, u"PT-104"_s}));
}

TEST_F(WholeFluke702EndToEnd, TheCalibratorTakesEachInstrumentOfThePlantThatTheProgramAccepts) {
    const QStringList accepted{u"PT-101"_s,  u"PT-102"_s,  u"PT-103"_s,  u"PT-104"_s,  u"PT-105"_s,
                               u"PT-106"_s,  u"PT-107"_s,  u"PT-108"_s,  u"PI-304"_s,  u"VT-601"_s,
                               u"SC-603"_s,  u"RI-803"_s,  u"TIT-201"_s, u"TIT-202"_s, u"TIT-203"_s,
                               u"TIT-204"_s, u"TIT-205"_s, u"TIT-206"_s, u"TIT-207"_s, u"LI-401"_s,
                               u"LI-402"_s,  u"LI-403"_s,  u"LI-404"_s,  u"VI-602"_s,  u"FT-501"_s,
                               u"FI-502"_s,  u"VF-503"_s,  u"IP-301"_s,  u"IP-302"_s,  u"IP-303"_s};
    for (const auto& asset : accepted) {
        screen.list = {asset};
        download();
        EXPECT_EQ(storedTags(), QStringList{asset});
        EXPECT_EQ(registered(), QStringList{asset});
    }
    screen.list = accepted;
    download();
    EXPECT_EQ(storedTags().size(), accepted.size()) << "and all of them, the later ones as if read by hand";
}

} // namespace kelvane::testing
