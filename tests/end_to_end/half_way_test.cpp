#include "tests/end_to_end/torque_end_to_end.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// Three tools, loaded and carried out.
class HalfWay : public TorqueEndToEnd {
  protected:
    HalfWay() {
        for (const auto& asset : tools)
            list(asset);
    }

    void bringBack() {
        download();
        carryOut(tools);
    }

    const QStringList tools{u"TW-101"_s, u"TW-102"_s, u"TW-103"_s};
};

TEST_F(HalfWay, ACalibratorThatVanishesInTheThirdToolLeavesTwoRecordsAndTheRestUntouched) {
    bringBack();
    const auto before = held();
    switchOn({u"vanish-after:5@T1D+9*1"_s}); // three results each for the first two, three of the third
    expectChoice();
    expectRecord(u"TW-101"_s);
    expectRecord(u"TW-102"_s);
    pressUpload(messages::timeOut());
    expectWhole({u"TW-101"_s, u"TW-102"_s});
    EXPECT_EQ(records(u"TW-103"_s), QStringList());
    EXPECT_EQ(storedNames(), QStringList{u"TW-103"_s});
    EXPECT_EQ(held().characteristics[0], before.characteristics[2]);
    EXPECT_EQ(held().rounds.size(), 1U);
    EXPECT_EQ(registered(), tools);
    for (const auto& asset : tools)
        EXPECT_EQ(standardsInUse(asset), (QStringList{u"TS-0001"_s, tool(asset).standard}));

    // The line is gone with it: there is no port until it is on again.
    upload({}, messages::noPort());
    EXPECT_EQ(registered(), tools);

    switchOn();
    upload({u"TW-103"_s}, messages::noData({u"TW-101"_s, u"TW-102"_s}));
    expectWhole(tools);
    EXPECT_EQ(held(), simulators::Memory());
    EXPECT_EQ(registered(), QStringList());
}

TEST_F(HalfWay, AVanishingAtTheDownloadOfTheLastToolLeavesTheTwoBeforeItRegistered) {
    switchOn({u"vanish-after:0@T1A+2*1"_s});
    download(messages::timeOut());
    EXPECT_EQ(registered(), (QStringList{u"TW-101"_s, u"TW-102"_s}));
    EXPECT_EQ(held().rounds.size(), 0U) << "the round is not stored";
    switchOn();
    download();
    EXPECT_EQ(registered(), tools);
    carryOut(tools);
    upload(tools);
    expectWhole(tools);
}

TEST_F(HalfWay, WhatWasLoadedBeforeAFailureCanBeCarriedOutAndUploaded) {
    switchOn({u"no-frame-ack@T1A+2*1"_s});
    download(messages::timeOut());
    const QStringList two{u"TW-101"_s, u"TW-102"_s};
    EXPECT_EQ(storedNames(), two);
    carryOut(two);
    upload(two);
    expectWhole(two);
    EXPECT_EQ(registered(), QStringList());
}

TEST_F(HalfWay, AnOperatorWhoTriesAgainGoesOnWhereTheLinkFailed) {
    bringBack();
    switchOn({u"silent+14*12"_s}); // three times four link starts
    expectChoice();
    expectRecord(u"TW-101"_s);
    expectNoLink(BoxAnswer::retry);
    expectNoLink(BoxAnswer::retry);
    expectNoLink(BoxAnswer::retry);
    expectRecord(u"TW-102"_s);
    expectRecord(u"TW-103"_s);
    pressUpload();
    expectWhole(tools);
    EXPECT_EQ(registered(), QStringList());
}

TEST_F(HalfWay, IgnoringASilentLinkEndsTheUploadToo) {
    bringBack();
    switchOn({u"silent*4"_s});
    expectChoice();
    expectNoLink(BoxAnswer::ignore);
    pressUpload(messages::noLink());
    EXPECT_EQ(registered(), tools);
    upload(tools);
    expectWhole(tools);
}

TEST_F(HalfWay, AFailureInTheCommentLeavesTheToolOpen) {
    bringBack();
    switchOn({u"bad-checksum@T1F+1*1"_s});
    upload({u"TW-101"_s}, messages::noResponse());
    EXPECT_EQ(records(u"TW-102"_s), QStringList());
    EXPECT_EQ(storedNames(), (QStringList{u"TW-102"_s, u"TW-103"_s}));
    upload({u"TW-102"_s, u"TW-103"_s}, messages::noData({u"TW-101"_s}));
    expectWhole(tools);
}

TEST_F(HalfWay, AFailureInTheFirstSelectionOfAToolLeavesItOpen) {
    bringBack();
    switchOn({u"no-reply@T1C+5*1"_s}); // five selections of the first tool
    upload({u"TW-101"_s}, messages::timeOut());
    EXPECT_EQ(storedNames(), (QStringList{u"TW-102"_s, u"TW-103"_s}));
    upload({u"TW-102"_s, u"TW-103"_s}, messages::noData({u"TW-101"_s}));
    expectWhole(tools);
}

TEST_F(HalfWay, AFailedSelectionBeforeAResultIsIgnored) {
    bringBack();
    switchOn({u"no-frame-ack@T1C+2*1"_s, u"no-reply@T1C+7*1"_s});
    upload(tools);
    expectWhole(tools);
}

// The record is there, its characteristic stays: with the registry cleared, no upload asks for it any more.
TEST_F(HalfWay, ADeletionThatFailsIsPassedOverAndTheToolStaysOnTheCalibratorUntilItIsLoadedAgain) {
    bringBack();
    switchOn({u"no-frame-ack@T1J+1*1"_s});
    upload(tools);
    expectWhole(tools);
    EXPECT_EQ(storedNames(), QStringList{u"TW-102"_s});
    EXPECT_EQ(registered(), QStringList());
    upload({});
    expectWhole(tools);
    download();
    EXPECT_EQ(storedNames(), tools);
    upload({}, messages::noData(tools));
}

// The reply to the last message of an upload is ignored: the round of tools that are gone stays.
TEST_F(HalfWay, ARoundThatCantBeErasedStaysAndTheNextDownloadErasesIt) {
    bringBack();
    switchOn({u"bad-checksum@T2E*1"_s, u"no-frame-ack@T2E*1"_s});
    upload(tools);
    expectWhole(tools);
    EXPECT_EQ(held().rounds.size(), 1U);
    download();
    EXPECT_EQ(held().rounds.size(), 1U);
    EXPECT_EQ(storedNames(), tools);
}

TEST_F(HalfWay, NoOrAnotherAnswerToTheLinkTestEndsEverythingBeforeItBegins) {
    switchOn({u"reply:743042@T0A*2"_s, u"no-reply@T0A+2*2"_s});
    const auto failed = text(TextId::lineCommunicationFailed);
    download(failed);
    upload({}, failed);
    download(messages::timeOut());
    upload({}, messages::timeOut());
    EXPECT_EQ(receivedMessages(), QStringList(4, u"T0A"_s));
    download();
    EXPECT_EQ(registered(), tools);
}

TEST_F(HalfWay, AnUploadFromACalibratorWithoutASerialNumberEndsThere) {
    bringBack();
    switchOn({u"no-reply@T0D*1"_s});
    upload({}, messages::timeOut());
    EXPECT_EQ(registered(), tools);
    upload(tools);
    expectWhole(tools);
}

TEST_F(HalfWay, AnUploadFromAnUnknownCalibratorChangesNothing) {
    bringBack();
    execute(u"update mt.inventory set i4206 = '1' where i4201 = 'TS-0001'"_s);
    upload({}, messages::unknownCalibrator() + u"\r\n"_s);
    EXPECT_EQ(registered(), tools);
    EXPECT_EQ(storedNames(), tools);
    execute(u"update mt.inventory set i4206 = '48213' where i4201 = 'TS-0001'"_s);
    upload(tools);
    expectWhole(tools);
}

// The download ignores the result of that message: it loads the tools for a calibrator of number 0, which no
// program knows, and an upload finds nothing in use.
TEST_F(HalfWay, ADownloadToACalibratorWithoutASerialNumberIsRegisteredUnderZero) {
    switchOn({u"no-reply@T0D*1"_s});
    ui.expectBox(messages::unknownCalibrator(), downloadTitle(), box::warning);
    download();
    EXPECT_EQ(storedNames(), tools);
    EXPECT_EQ(registered(), QStringList());
    EXPECT_EQ(rows(u"select mtag from mt.hvm_kv_task_inuse where serial_number = '0' order by mtag"_s),
              (QStringList{u"1301"_s, u"1302"_s, u"1303"_s}));
    EXPECT_EQ(standardsInUse(u"TW-101"_s), QStringList{u"TT-0300F"_s});
    EXPECT_EQ(rows(u"select count(*) from mt.hvm_kv_task_standards_inuse where standard_mtag = ''"_s),
              QStringList{u"3"_s});
    carryOut(tools);
    upload({});
    EXPECT_EQ(storedNames(), tools) << "the readings stay on the calibrator";
}

TEST_F(HalfWay, ARefusalOfTheCalibratorIsShownInItsOwnWords) {
    const struct {
        QString fault;
        QString words;
        QStringList registered;
    } refusals[] = {
        {u"error-code:1@T2B*1"_s, text(TextId::roundAlreadyExists), {}},
        {u"error-code:4@T2B*1"_s, text(TextId::characteristicCountInvalid), {}},
        {u"error-code:27@T1A*1"_s, u"TW-101 - "_s + text(TextId::torqueDatabaseFull), {}},
        {u"error-code:28@T1A+1*1"_s, u"TW-102 - "_s + text(TextId::transducerSpanOutOfRange), {u"TW-101"_s}},
        // A code that it does not define leaves the text of the failure before: there was none.
        {u"error-code:99@T1A+1*1"_s, u"TW-102 - "_s, {u"TW-101"_s}},
        {u"reply:74314101@T1A+1*1"_s,
         u"TW-102 - "_s + text(TextId::characteristicAlreadyExists),
         {u"TW-101"_s}},
        {u"reply:74324300@T2C*1"_s, text(TextId::roundNotStored), tools},
        {u"no-reply@T2C*1"_s, messages::timeOut(), tools},
    };
    for (const auto& refusal : refusals) {
        SCOPED_TRACE(refusal.fault.toStdString());
        switchOn({refusal.fault});
        download(refusal.words);
        EXPECT_EQ(registered(), refusal.registered);
    }
    switchOn();
    download();
    EXPECT_EQ(registered(), tools);
}

// The answer of four characters ends the download with the words of the code, and there are none for this
// one.
TEST_F(HalfWay, ARoundRefusedWithAnUnknownCodeIsTakenForASuccess) {
    switchOn({u"error-code:9@T2B*1"_s});
    download();
    EXPECT_EQ(storedNames(), QStringList());
    EXPECT_EQ(registered(), QStringList());
    upload({});
}

// Neither the search for a round nor the selection and deletion of a tool that is there is checked.
TEST_F(HalfWay, MessagesThatPrepareADownloadMayFail) {
    switchOn({u"no-reply@T2F*1"_s, u"no-frame-ack@T1C*1"_s, u"bad-checksum@T1C*1"_s});
    download();
    EXPECT_EQ(registered(), tools);
    EXPECT_EQ(storedNames(), tools);
}

// Without the search for it, a round of the download before blocks the new one.
TEST_F(HalfWay, ARoundThatWasNotFoundBlocksTheNextOne) {
    download();
    switchOn({u"no-reply@T2F*1"_s});
    download(text(TextId::roundAlreadyExists));
    EXPECT_EQ(registered(), QStringList()) << "the earlier registry is gone";
    EXPECT_EQ(storedNames(), tools);
    download();
    EXPECT_EQ(registered(), tools);
}

TEST_F(HalfWay, AToolThatWasNotDeletedBlocksItself) {
    download();
    switchOn({u"no-frame-ack@T1J*1"_s});
    download(u"TW-101 - "_s + text(TextId::characteristicAlreadyExists));
    EXPECT_EQ(registered(), QStringList());
    download();
    EXPECT_EQ(registered(), tools);
}

TEST_F(HalfWay, AMissingPortIsReported) {
    switchOff();
    download(messages::noPort());
    upload({}, messages::noPort());
    EXPECT_EQ(registered(), QStringList());
    switchOn();
    download();
    EXPECT_EQ(registered(), tools);
}

TEST_F(HalfWay, APortThatAnotherProgramHoldsIsReported) {
    QtSerialPort other(workplace.settings);
    other.setPortOpen(true);
    download(messages::noPort());
    other.setPortOpen(false);
    download();
    EXPECT_EQ(registered(), tools);
}

TEST_F(HalfWay, AResultWithoutMomentAndReadingsIsReportedAndItsToolStaysForTheNextUpload) {
    bringBack();
    switchOn({u"reply:743144@T1D*1"_s});
    expectChoice();
    ui.expectReport(5, u"ModuleTSInterface,Conv2Date"_s);
    ui.expectReport(5, u"ModuleTSInterface,Conv2Time"_s);
    for (const auto& asset : tools.sliced(1))
        expectRecord(asset);
    pressUpload();
    EXPECT_EQ(records(u"TW-101"_s), QStringList());
    expectWhole(tools.sliced(1));
    EXPECT_EQ(storedNames(), tools.first(1));
    EXPECT_EQ(held().rounds.size(), 1U);
    EXPECT_EQ(registered(), tools);
    EXPECT_EQ(withoutRecord(), tools.first(1));
    upload(tools.first(1), messages::noData(tools.sliced(1)));
    expectWhole(tools);
    // The calibrator gave other replies that time: nothing says that these are the same results.
    EXPECT_EQ(withoutRecord(), tools.first(1));
    EXPECT_EQ(held(), simulators::Memory());
}

} // namespace kelvane::testing
