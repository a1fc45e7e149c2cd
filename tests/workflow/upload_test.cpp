#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/recorded_link.h"
#include "testkit/recorded_link3.h"
#include "testkit/torque_fixture.h"
#include "workflow/upload.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class UploadCommand : public TorqueFixture {
  protected:
    UploadCommand() { addCalibrator(); }

    void choose(const QString& answer, const QString& proposed = QString()) {
        ui.expectDialog(title, u"Select Calibrator To Use:"_s, answer,
                        [proposed](const DialogQuestion& q) { EXPECT_EQ(q.defaultText, proposed); });
    }
    void upload() { ModuleGlobals::UploadFromCalibrator(calibrators); }

    const QString title = u"Upload Test Results From Calibrator"_s;
    const QString stored = u"Defaults/LastUploadCalibrator=Crane TorqueStar IVc"_s;
    RecordedLink link;
    RecordedLink3 link3;
    Calibrators calibrators{session, {port, link, link3}};
};

TEST_F(UploadCommand, ASuccessIsReportedAndTheChoiceStored) {
    choose(u"Crane TorqueStar IVc"_s);
    ui.expectBox(u"Upload Successful"_s, title, box::information);
    upload();
    EXPECT_EQ(settings.writes, QStringList{stored});
    EXPECT_EQ(ui.events.last(), u"normal"_s);
    EXPECT_EQ(conversation().last(), u"T2E KVTASK"_s);
    choose(u"*CANCEL*"_s, u"Crane TorqueStar IVc"_s);
    upload();
}

TEST_F(UploadCommand, AFailureIsReportedAndTheChoiceStored) {
    choose(u"Crane TorqueStar IVc"_s);
    port.refuseOpening = true;
    ui.expectBox(
        u"Unable to open communications channel to calibrator! Please check communications settings and try again."_s,
        title, box::warning);
    upload();
    EXPECT_EQ(settings.writes, QStringList{stored});
}

TEST_F(UploadCommand, ACancelledChoiceCallsNoDriverAndStoresNothing) {
    for (const auto& answer : {u"*CANCEL*"_s, QString()}) {
        choose(answer);
        upload();
    }
    EXPECT_EQ(settings.writes, QStringList());
    EXPECT_EQ(port.log, QStringList());
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(UploadCommand, WithoutItsLinkLibraryIsReportedAndTheChoiceStored) {
    link3.reasonMissing = u"no library"_s;
    choose(u"Fluke 743/744"_s);
    ui.expectBox(u"no library"_s, title, box::warning);
    upload();
    EXPECT_EQ(settings.writes, QStringList{u"Defaults/LastUploadCalibrator=Fluke 743/744"_s});
}

TEST_F(UploadCommand, OfAFluke702ReadsItOverItsLink) {
    addEquipment(u"F-702"_s, u"901"_s, link.serial);
    choose(u"Fluke 702"_s);
    ui.expectBox(u"Upload Successful"_s, title, box::information);
    link.onCall = [this](const QString& operation) {
        EXPECT_TRUE(calibrators.communicating) << operation.toStdString();
    };
    upload();
    EXPECT_FALSE(calibrators.communicating);
    EXPECT_EQ(link.callsOf(u"DPCuplStart"_s).size(), 1);
    EXPECT_EQ(port.log, QStringList());
    EXPECT_FALSE(ui.busy);
}

TEST_F(UploadCommand, OfAFluke702ThatTheDatabaseDoesNotKnowIsRefused) {
    choose(u"Fluke 702"_s);
    ui.expectBox(text(TextId::calibratorAssetNotFound), title, box::warning);
    upload();
    EXPECT_FALSE(ui.busy);
}

TEST_F(UploadCommand, WithoutALinkLibraryReportsIt) {
    link.reasonMissing = u"no library"_s;
    choose(u"Fluke 702"_s);
    ui.expectBox(u"no library"_s, title, box::warning);
    upload();
    EXPECT_EQ(link.calls, QStringList());
}

TEST_F(UploadCommand, ANameThatIsNoCalibratorEndsInSuccessHavingDoneNothing) {
    ui.expectDialog(title, u"Select Calibrator To Use:"_s, u"nameless"_s,
                    [this](const DialogQuestion&) { ui.setBusyPointer(); });
    ui.expectBox(u"Upload Successful"_s, title, box::information);
    upload();
    EXPECT_FALSE(ui.busy) << "the command itself sets the normal pointer";
    EXPECT_EQ(port.log, QStringList());
    EXPECT_EQ(settings.writes, QStringList{u"Defaults/LastUploadCalibrator=nameless"_s});
}

TEST_F(UploadCommand, AListOfInstrumentsWithoutDataIsShownAsAFailure) {
    addInUse({u"W-1"_s});
    choose(u"Crane TorqueStar IVc"_s);
    ui.expectBox(u"The Following Assets Contained NO DATA:\r\n, W-1"_s, title, box::warning);
    upload();
}

} // namespace kelvane::testing
