#include "tests/end_to_end/fluke_end_to_end.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// What only this calibrator does.
class Fluke74xEndToEnd : public FlukeEndToEnd {
  protected:
    /// The image is not written to its end.
    void breakOffImage() {
        fault(u"MEM3endTask*1=2005"_s);
        screen.list = singleInstrument();
        download(text(TextId::statusAtomInvalid) + u" (DPC3ERR_ATOM_INVALID)"_s);
        fault({});
    }
    /// What the library has received on the link, but for the steps.
    QStringList takeContacts() {
        auto contacts = takeHeard().filter(u"DPC3"_s);
        contacts.removeIf([](const QString& operation) { return operation.endsWith(u"Step"_s); });
        return contacts;
    }

    const QStringList wholeRecords{u"N|2|5"_s, u"Y|2|5"_s};
};

TEST_F(Fluke74xEndToEnd, TheLinkStaysOpenWhenTheImageBreaksOffAndTheNextDownloadClosesIt) {
    list({u"FT-501"_s});
    download();
    takeHeard();
    const auto before = held();
    breakOffImage();
    EXPECT_EQ(takeContacts(),
              (QStringList{u"DPC3close"_s, u"DPC3open"_s, u"DPC3get74X"_s, u"DPC3mapStart"_s}));
    EXPECT_EQ(held(), before);
    EXPECT_EQ(registered(), QStringList{u"FT-501"_s});

    download();
    EXPECT_EQ(takeContacts(), (QStringList{u"DPC3close"_s, u"DPC3open"_s, u"DPC3get74X"_s, u"DPC3mapStart"_s,
                                           u"DPC3dnlStart"_s, u"DPC3close"_s}));
    EXPECT_EQ(storedTags(), singleInstrument());
    EXPECT_EQ(registered(), singleInstrument());
    carryOut(twoRuns());
    upload(twoRuns());
    EXPECT_EQ(records(u"PT-101"_s), wholeRecords);
}

TEST_F(Fluke74xEndToEnd, AnUploadClosesALinkThatADownloadHasLeftOpenAndLosesNothing) {
    list(singleInstrument());
    download();
    carryOut(twoRuns());
    takeHeard();
    breakOffImage();
    takeHeard();
    upload(twoRuns());
    EXPECT_EQ(takeContacts(), (QStringList{u"DPC3close"_s, u"DPC3open"_s, u"DPC3get74X"_s, u"DPC3mapStart"_s,
                                           u"DPC3uplStart"_s, u"DPC3uplStart"_s, u"DPC3close"_s}));
    EXPECT_EQ(records(u"PT-101"_s), wholeRecords);
}

TEST_F(Fluke74xEndToEnd, EachRunAfterTheFirstIsRecordedAsManyMinutesLaterAsItHasSteps) {
    list(singleInstrument());
    download();
    carryOut(twoRuns());
    carryOutPlan(u"PT-101; as-left; 0; ; ; %1 08:55:30\n"_s.arg(workDay()));
    carryOutPlan(u"PT-101; as-left; 0; ; ; %1 23:58:00\n"_s.arg(workDay()));
    expectChoice();
    expectRuns(twoRuns());
    // Stored at the same moment as the second one: its record is refused.
    expectRecord(u"PT-101"_s);
    expectRefusal();
    expectRecord(u"PT-101"_s);
    pressUpload();
    EXPECT_EQ(
        rows(u"select c2301, c2333, c2308 from mt.calibration where cdsrc = 'KVN' and c2301 >= '%1' and "
             "c2301 <= '2021-06-17' order by ctag"_s.arg(workDay()),
             3),
        (QStringList{u"2021-06-16|08:10:00|AS-FOUND"_s, u"2021-06-16|09:00:30|AS-LEFT"_s,
                     u"2021-06-17|00:03:00|AS-LEFT"_s}));
}

TEST_F(Fluke74xEndToEnd, AReadingInMilliamperesAfterAManuallyReadInstrumentIsTakenForAmperes) {
    list({u"LI-402"_s, u"FT-501"_s});
    download();
    ASSERT_EQ(storedTags(), (QStringList{u"LI-402"_s, u"FT-501"_s}));
    EXPECT_EQ(held().byHand, storedTags()) << "what was set for one instrument stays for the next";
    carryOutPlan(u"FT-501; as-found; 10/4, 505/12, 1000/20; ; ; %1 11:10\n"_s.arg(workDay()));
    expectChoice();
    expectRecord(u"FT-501"_s);
    pressUpload();
    EXPECT_EQ(records(u"FT-501"_s), QStringList{u"N|1|3"_s});
}

// The strategy of three points was there already when the thermometer's of three readings each came.
TEST_F(Fluke74xEndToEnd, AnInstrumentTakesThePointsOfAnEarlierOneWithAStrategyOfTheSameName) {
    list({u"PT-107"_s, u"TIT-203"_s});
    download();
    carryOutPlan(u"TIT-203; as-found; 0, 0, 0; ; ; %1 11:10\n"_s.arg(workDay()));
    expectChoice();
    expectRecord(u"TIT-203"_s);
    pressUpload();
    EXPECT_EQ(records(u"TIT-203"_s), QStringList{u"Y|1|1"_s}) << "three steps are one point";
}

TEST_F(Fluke74xEndToEnd, ACalibratorThatTheDatabaseDoesNotKnowTakesTheImageAndTheDownloadCountsAsFailed) {
    list({u"FT-501"_s});
    download();
    execute(u"update mt.inventory set i4206 = '1' where i4201 = 'F743-01'"_s);
    screen.list = singleInstrument();
    download(messages::unknownCalibrator());
    EXPECT_EQ(storedTags(), singleInstrument());
    EXPECT_EQ(registered(), QStringList{u"FT-501"_s});
    carryOut(singleRun());
    upload({}, messages::unknownCalibrator());
    EXPECT_EQ(records(u"PT-101"_s), QStringList());

    execute(u"update mt.inventory set i4206 = '7112044' where i4201 = 'F743-01'"_s);
    expectChoice();
    expectRuns(singleRun());
    pressUpload();
    EXPECT_EQ(records(u"PT-101"_s), QStringList{u"N|1|5"_s}) << "the calibrator is in use with FT-501 only";
}

TEST_F(Fluke74xEndToEnd, OnlyAPressureModuleThatTheDatabaseDoesNotKnowIsMissingFromTheStandards) {
    list(singleInstrument());
    download();
    carryOutPlan(u"PT-101; as-found; 0; ; 71391/99999; %1 13:40\n"_s.arg(workDay()));
    carryOutPlan(u"PT-101; as-left; 0; ; 71204/71391; %1 14:40\n"_s.arg(workDay()));
    expectChoice();
    expectRecord(u"PT-101"_s);
    expectRecord(u"PT-101"_s);
    pressUpload();
    EXPECT_EQ(records(u"PT-101"_s), (QStringList{u"Y|2|5"_s, u"Y|3|5"_s}));
}

} // namespace kelvane::testing
