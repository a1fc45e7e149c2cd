#include "tests/end_to_end/fluke_end_to_end.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class WholeFlukeEndToEnd : public FlukeEndToEnd {
  protected:
    void bringBack(const QList<demo::FieldRun>& runs) {
        list(demo::assetsOf(runs));
        download();
        carryOut(runs);
    }
    const QList<demo::FieldRun>& measured = calibrator.runs.measured;
    QString packages() { return rows(u"select count(*) from mt.hvm_kv_task_packages"_s).value(0); }
};

TEST_F(WholeFlukeEndToEnd, TheListRefusesWhatTheCalibratorCantTakeAndAsksForAStandardWhereItCantRead) {
    ui.expectBox(u"AC-604: "_s + text(TextId::cannotSourceAcVoltage), downloadTitle(), box::warning);
    addToDownloadList(calibrators, screen, u"AC-604"_s);
    for (const auto& runs : calibrator.runs.manual) {
        screen.list.clear();
        listRuns(runs);
        EXPECT_EQ(screen.list, demo::assetsOf(runs));
        for (const auto& run : runs)
            EXPECT_EQ(standardsInUse(run.record.asset).join(u' '), run.standard);
    }
    EXPECT_EQ(takeHeard(), QStringList()) << "nothing is said to the calibrator yet";
}

TEST_F(WholeFlukeEndToEnd, TheDownloadLoadsTheCalibratorAndRegistersItInPlaceOfTheOneBefore) {
    screen.list = {u"PT-102"_s};
    download();
    EXPECT_EQ(registered(), QStringList{u"PT-102"_s});
    const auto before = packages();
    const auto assets = demo::assetsOf(measured);
    screen.list.clear();
    list(assets);
    download();
    auto sorted = assets;
    sorted.sort();
    EXPECT_EQ(registered(), sorted);
    auto tags = storedTags();
    tags.sort();
    EXPECT_EQ(tags, sorted);
    for (const auto& asset : assets)
        EXPECT_EQ(standardsInUse(asset), QStringList{calibrator.runs.asset}) << asset.toStdString();
    EXPECT_EQ(held().byHand, QStringList());
    EXPECT_EQ(rows(u"select distinct tech from mt.hvm_kv_task_inuse where serial_number = '%1'"_s.arg(
                  calibrator.runs.serial)),
              QStringList{u"jdoe"_s});
    EXPECT_EQ(packages(), before) << "the temporary package is gone";
    EXPECT_EQ(screen.events.last(), u"close"_s);
    EXPECT_EQ(workplace.settings.values.value(u"Defaults/LastDownloadCalibrator"_s), calibrator.name);
}

TEST_F(WholeFlukeEndToEnd, TheUploadWritesEveryRecordAndLeavesCalibratorAndRegistry) {
    bringBack(measured);
    const auto before = held();
    upload(measured);
    expectRecordsAfter(measured);
    EXPECT_EQ(held(), before);
    EXPECT_EQ(workplace.settings.values.value(u"Defaults/LastUploadCalibrator"_s), calibrator.name);
}

TEST_F(WholeFlukeEndToEnd, ASecondUploadFindsEverythingAgainAndDoublesNothing) {
    bringBack(measured);
    upload(measured);
    expectChoice();
    expectRefusedRuns(measured);
    pressUpload();
    expectRecordsAfter(measured);
}

TEST_F(WholeFlukeEndToEnd, ManuallyReadInstrumentsGoIntoADownloadOfTheirOwn) {
    QList<demo::FieldRun> all;
    for (const auto& runs : calibrator.runs.manual) {
        screen.list.clear();
        listRuns(runs);
        download();
        EXPECT_EQ(held().byHand, demo::assetsOf(runs));
        carryOut(runs);
        upload(runs);
        all += runs;
    }
    expectRecords(all);
}

TEST_F(WholeFlukeEndToEnd, AnUploadBeforeTheWorkFindsNothingAndForgetsNothing) {
    list(singleInstrument());
    download();
    upload({});
    EXPECT_EQ(registered(), singleInstrument());
    carryOut(singleRun());
    upload(singleRun());
    expectRecords(singleRun());
}

TEST_F(WholeFlukeEndToEnd, TheAdjustmentMayComeWithALaterUpload) {
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

TEST_F(WholeFlukeEndToEnd, ASecondDownloadReplacesTasksResultsAndRegistryWithoutAQuestion) {
    bringBack(twoRuns());
    screen.list.clear();
    list({u"FT-501"_s});
    download();
    EXPECT_EQ(storedTags(), QStringList{u"FT-501"_s});
    EXPECT_EQ(held().runs, 0U);
    EXPECT_EQ(registered(), QStringList{u"FT-501"_s});
    upload({});
    EXPECT_EQ(records(u"PT-101"_s), QStringList());
}

TEST_F(WholeFlukeEndToEnd, ADamagedMemoryIsACalibratorThatDoesNotAnswer) {
    const auto before = registered();
    simulatorFolder.put(u"memory.json"_s, "{");
    list(singleInstrument());
    download(calibrator.noAnswer.words());
    upload({}, calibrator.noAnswer.words());
    EXPECT_EQ(registered(), before);
}

TEST_F(WholeFlukeEndToEnd, TheCalibratorTakesEachInstrumentOfThePlantThatTheProgramAccepts) {
    for (const auto& asset : calibrator.accepted) {
        screen.list = {asset};
        download();
        EXPECT_EQ(storedTags(), QStringList{asset});
        EXPECT_EQ(registered(), QStringList{asset});
    }
    screen.list = calibrator.accepted;
    download();
    EXPECT_EQ(storedTags().size(), calibrator.accepted.size())
        << "and all of them, the later ones as if read by hand";
}

} // namespace kelvane::testing
