#include "tests/end_to_end/database_trouble.h"
#include "tests/end_to_end/torque_end_to_end.h"
#include "tests/platform/errors.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class EndToEndWithADatabaseFault : public TorqueEndToEnd {
  protected:
    void bringBack() {
        for (const auto& asset : both)
            list(asset);
        download();
        carryOut(both);
    }

    const QStringList both{u"TW-101"_s, u"TW-102"_s};
    DatabaseOutage outage{database};
};

TEST_F(EndToEndWithADatabaseFault, AConnectionLostBeforeTheDownloadIsReportedAndTheCalibratorLeftAlone) {
    for (const auto& asset : both)
        list(asset);
    outage.begin();
    ui.expectReport(outage.number(), u"FormDockingDown,Download"_s);
    downloadList(calibrators, screen);
    EXPECT_TRUE(ui.hasMetAll());
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_EQ(receivedMessages(), QStringList());
    EXPECT_EQ(screen.list, both);
    // Every further command reports the lost connection.
    ui.expectReport(connectionClosed, u"FormDockingDown,Download"_s);
    downloadList(calibrators, screen);
    EXPECT_TRUE(ui.hasMetAll());

    logInAgain(outage);
    download();
    EXPECT_EQ(registered(), both);
}

TEST_F(EndToEndWithADatabaseFault, AConnectionLostWhileAToolIsListedIsReportedAndTheToolNotListed) {
    ui.expectDialog(u"TW-101: "_s + text(TextId::externalStandardRequired), text(TextId::standardToUse),
                    u"TT-0300F"_s, [&](const DialogQuestion&) { outage.begin(); });
    ui.expectReport(outage.number(), u"ModuleGlobals,HasConfigData"_s);
    ui.expectBox(u"TW-101: "_s + text(TextId::configurationDataIncomplete), downloadTitle(), box::warning);
    ui.expectDialog(u"TW-101: "_s + text(TextId::externalStandardRequired), text(TextId::standardToUse),
                    cancelled);
    addToDownloadList(calibrators, screen, u"TW-101"_s);
    EXPECT_TRUE(ui.hasMetAll());
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_EQ(screen.list, QStringList());
    logInAgain(outage);
    list(u"TW-101"_s);
}

TEST_F(EndToEndWithADatabaseFault, AConnectionLostDuringAnUploadEndsItBeforeTheNextToolIsTakenOff) {
    bringBack();
    expectChoice();
    expectRecord(u"TW-101"_s, [&] { outage.begin(); });
    ui.expectReport(outage.number(), u"ModuleGlobals,CreateCalRecord"_s);
    pressUpload(messages::connectionLost());
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_EQ(storedNames(), both);
    EXPECT_EQ(withoutRecord(), QStringList{u"TW-101"_s});
    // The next command reports it, and changes nothing.
    expectChoice();
    ui.expectReport(connectionClosed, u"ModuleGlobals,AssetfromSerial"_s);
    pressUpload(messages::connectionLost());

    logInAgain(outage);
    EXPECT_EQ(registered(), both) << "the registry stays whole";
    EXPECT_EQ(records(u"TW-101"_s) + records(u"TW-102"_s), QStringList());
    makeRecords();
    expectWhole({u"TW-101"_s});
    expectChoice();
    expectRecord(u"TW-101"_s);
    expectRefusal();
    expectRecord(u"TW-102"_s);
    pressUpload();
    expectWhole(both);
    EXPECT_EQ(held(), simulators::Memory());
}

TEST_F(EndToEndWithADatabaseFault, WithoutALogTheLostConnectionEndsTheUploadAsError75AndNothingIsTakenOff) {
    bringBack();
    ASSERT_TRUE(QDir().mkdir(u"errors.log"_s));
    expectChoice();
    expectRecord(u"TW-101"_s, [&] { outage.begin(); });
    EXPECT_EQ(errorOf([&] { ModuleGlobals::UploadFromCalibrator(calibrators); }), 75);
    EXPECT_TRUE(ui.hasMetAll()) << "no box";
    EXPECT_FALSE(ui.busy);
    EXPECT_FALSE(ui.progressShown);
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_EQ(storedNames(), both);

    ASSERT_TRUE(QDir().rmdir(u"errors.log"_s));
    logInAgain(outage);
    EXPECT_EQ(registered(), both);
    upload(both);
    expectWhole(both);
}

TEST_F(EndToEndWithADatabaseFault, WithoutALogAFailingDownloadIsError75) {
    for (const auto& asset : both)
        list(asset);
    ASSERT_TRUE(QDir().mkdir(u"errors.log"_s));
    outage.begin();
    EXPECT_EQ(errorOf([&] { downloadList(calibrators, screen); }), 75);
    EXPECT_EQ(errorOf([&] { addToDownloadList(calibrators, screen, u"TW-103"_s); }), 75);
    EXPECT_EQ(errorOf([&] { removeFromDownloadList(calibrators, screen, 0); }), 75);
    EXPECT_FALSE(ui.busy);
    EXPECT_EQ(screen.list, both);
    ASSERT_TRUE(QDir().rmdir(u"errors.log"_s));
    logInAgain(outage);
    download();
    EXPECT_EQ(registered(), both);
}

/// Another workstation holds the write lock.
class EndToEndWithALockedDatabase : public EndToEndWithADatabaseFault {
  protected:
    OtherWriter other{database};
};

TEST_F(EndToEndWithALockedDatabase, AToolWhoseStandardCantBeWrittenIsNotListedAndCanBeListedLater) {
    ui.expectDialog(u"TW-101: "_s + text(TextId::externalStandardRequired), text(TextId::standardToUse),
                    u"TT-0300F"_s, [&](const DialogQuestion&) { other.lock(); });
    ui.expectReport(other.number(), u"FormDockingDown,CommandAdd"_s);
    addToDownloadList(calibrators, screen, u"TW-101"_s);
    EXPECT_TRUE(ui.hasMetAll());
    EXPECT_TRUE(session.SessionConnected) << "a lock is no lost connection";
    EXPECT_EQ(screen.list, QStringList());
    EXPECT_EQ(standardsInUse(u"TW-101"_s), QStringList());
    other.unlock();
    list(u"TW-101"_s);
}

TEST_F(EndToEndWithALockedDatabase, ADownloadThatCantMakeItsPackageSaysNothingToTheCalibrator) {
    list(u"TW-101"_s);
    other.lock();
    ui.expectReport(other.number(), u"FormDockingDown,Download"_s);
    downloadList(calibrators, screen);
    EXPECT_TRUE(ui.hasMetAll());
    EXPECT_EQ(receivedMessages(), QStringList());
    other.unlock();
    EXPECT_EQ(rows(u"select count(*) from mt.hvm_kv_task_packages where tptype = 'WSHT'"_s),
              QStringList{u"1"_s});
    download();
}

// Its results are still removed from the calibrator; the journal has them.
TEST_F(EndToEndWithALockedDatabase, ARecordThatCantBeWrittenIsMadeOutOfTheJournal) {
    bringBack();
    expectChoice();
    expectRecord(u"TW-101"_s, [&] { other.lock(); });
    ui.expectReport(other.number(), u"ModuleGlobals,CreateCalRecord"_s);
    expectRecord(u"TW-102"_s, [&] { other.unlock(); });
    pressUpload();
    EXPECT_TRUE(session.SessionConnected);
    EXPECT_EQ(records(u"TW-101"_s), QStringList());
    expectWhole({u"TW-102"_s});
    EXPECT_EQ(held(), simulators::Memory());
    EXPECT_EQ(registered(), QStringList());
    EXPECT_EQ(withoutRecord(), QStringList{u"TW-101"_s});
    makeRecords();
    expectWhole(both);
}

TEST_F(EndToEndWithALockedDatabase, WithoutALogARecordThatCantBeWrittenEndsTheUploadAndKeepsItsResults) {
    bringBack();
    ASSERT_TRUE(QDir().mkdir(u"errors.log"_s));
    expectChoice();
    expectRecord(u"TW-101"_s, [&] { other.lock(); });
    EXPECT_EQ(errorOf([&] { ModuleGlobals::UploadFromCalibrator(calibrators); }), 75);
    EXPECT_TRUE(ui.hasMetAll());
    EXPECT_EQ(storedNames(), both);
    other.unlock();
    EXPECT_EQ(registered(), both);
    ASSERT_TRUE(QDir().rmdir(u"errors.log"_s));
    upload(both);
    expectWhole(both);
}

/// A disk that has become full for one owner's database.
class EndToEndWithAFullDisk : public EndToEndWithADatabaseFault {
  protected:
    /// Lets no page be added to the database, and fills what is free for rows such as those of a result line.
    void fillUp() {
        rows(u"pragma mt.max_page_count = 1"_s);
        const auto filler =
            u"insert into mt.calresults (c2501,c2502,mtag,ctag) values ('%1','0','1301',1000001);commit"_s
                .arg(QString(120, u'-'));
        int number = 0;
        while ((number = static_cast<int>(errorOf([&] { execute(filler); }))) == 0) {
        }
        EXPECT_EQ(number, full);
    }
    void makeRoom() { rows(u"pragma mt.max_page_count = 100000"_s); }
};

TEST_F(EndToEndWithAFullDisk, InTheMiddleOfARecordWhatWasWrittenStaysAndIsCompletedOutOfTheJournal) {
    bringBack();
    expectChoice();
    expectRecord(u"TW-101"_s, [&] { fillUp(); });
    ui.expectReport(full, u"ModuleGlobals,CreateCalRecord"_s);
    expectRecord(u"TW-102"_s, [&] { makeRoom(); });
    pressUpload();
    EXPECT_TRUE(folder.read(u"errors.log"_s).contains(u"insert into mt.calresults "_s));
    EXPECT_TRUE(session.SessionConnected);
    EXPECT_EQ(records(u"TW-101"_s), QStringList{u"Y|2|0"_s}) << "record and standards, no result line";
    EXPECT_EQ(rows(u"select i4224 from mt.inventory where i4201 = 'TW-101'"_s),
              QStringList{u"RECALLED FOR CALIBRATION"_s})
        << "the steps after the error are not carried out";
    expectWhole({u"TW-102"_s});
    EXPECT_EQ(held(), simulators::Memory());
    EXPECT_EQ(registered(), QStringList());
    makeRecords();
    expectWhole(both);
    EXPECT_EQ(rows(u"select count(*) from mt.inventory where i4201 = 'TW-101' and i4224 is null"_s),
              QStringList{u"1"_s});
}

} // namespace kelvane::testing
