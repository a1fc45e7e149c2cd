#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fluke74x_fixture.h"
#include "testkit/fluke_fixture.h"
#include "testkit/recorded_link3.h"
#include "testkit/torque_fixture.h"
#include "workflow/calibrators.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class Drivers : public TorqueFixture {
  protected:
    RecordedLink link;
    RecordedLink3 link3;
    Calibrators calibrators{session, {port, link, link3}};
};

TEST_F(Drivers, AreChosenByTheCalibratorsName) {
    addWrenches(u"TAG"_s, 1);
    auto indicated = wrench();
    indicated.input_indicated = true;
    addInstrument(u"W-2"_s, u"KW-2"_s, indicated);
    const auto torqueStar = u"Crane TorqueStar IVc"_s;
    EXPECT_EQ(calibratorNamed(torqueStar).acceptable(calibrators, u"W-1"_s), QString());
    EXPECT_EQ(calibratorNamed(torqueStar).acceptable(calibrators, u"W-2"_s),
              text(TextId::indicatedInputUnsupported));
    EXPECT_TRUE(calibratorNamed(torqueStar).requiresStandard(calibrators, u"W-1"_s));
    EXPECT_EQ(calibratorNamed(torqueStar).download(calibrators, u"TAG"_s), QString());
    EXPECT_EQ(conversation().last(), u"T1A W-1"_s);
    EXPECT_EQ(calibratorNamed(torqueStar).upload(calibrators), QString());
    EXPECT_EQ(conversation().last(), u"T2E KVTASK"_s);
}

class FlukeDriver : public FlukeFixture {
  protected:
    FlukeDriver() {
        addCalibrator();
        addInstrument(u"PT-1"_s, transmitter());
        addPoints(u"PT-1"_s, {u"50"_s}, 1);
        addPackage(u"TAG"_s, {u"PT-1"_s});
    }

    const QString name = u"Fluke 702"_s;
    ScriptedSerialPort port;
    RecordedLink3 link3;
    Calibrators calibrators{session, {port, link, link3}};
};

TEST_F(FlukeDriver, IsChosenByTheCalibratorsName) {
    auto indicated = transmitter();
    indicated.input_indicated = true;
    addInstrument(u"PT-2"_s, indicated);
    addInstrument(u"PT-3"_s, instrument(u"psi"_s, 0, 100, u"lumen"_s, 0, 1));
    EXPECT_EQ(calibratorNamed(name).acceptable(calibrators, u"PT-1"_s), QString());
    EXPECT_EQ(calibratorNamed(name).acceptable(calibrators, u"PT-2"_s),
              text(TextId::indicatedInputUnsupported));
    EXPECT_FALSE(calibratorNamed(name).requiresStandard(calibrators, u"PT-1"_s));
    EXPECT_TRUE(calibratorNamed(name).requiresStandard(calibrators, u"PT-3"_s));
    EXPECT_EQ(link.calls, QStringList()) << "the calibrator is not needed yet";
    EXPECT_EQ(calibratorNamed(name).download(calibrators, u"TAG"_s), QString());
    EXPECT_EQ(link.callsOf(u"MEMstartTask"_s), QStringList{u"MEMstartTask(\"PT-1\")"_s});
    EXPECT_EQ(link.callsOf(u"DPCdnlStart"_s).size(), 1);
    EXPECT_EQ(calibratorNamed(name).upload(calibrators), QString());
    EXPECT_EQ(link.callsOf(u"DPCuplStart"_s).size(), 1);
    EXPECT_EQ(link.calls.last(), u"MEMstats()"_s);
    EXPECT_EQ(calibrators.fluke702.Calibrator702Asset, u"F-702"_s);
    EXPECT_EQ(port.log, QStringList());
}

TEST_F(FlukeDriver, WithoutItsLibraryReportsItAndChangesNothing) {
    link.reasonMissing = u"no library"_s;
    EXPECT_EQ(calibratorNamed(name).download(calibrators, u"TAG"_s), u"no library"_s);
    EXPECT_EQ(calibratorNamed(name).upload(calibrators), u"no library"_s);
    EXPECT_EQ(link.calls, QStringList());
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_EQ(calibratorNamed(name).acceptable(calibrators, u"PT-1"_s), QString())
        << "a list may be made all the same";
}

class Fluke74xDriver : public Fluke74xFixture {
  protected:
    const QString name = u"Fluke 743/744"_s;
    ScriptedSerialPort port;
    RecordedLink link702;
    Calibrators calibrators{session, {port, link702, link}};
};

TEST_F(Fluke74xDriver, IsChosenByTheCalibratorsName) {
    addCalibrator();
    addInstrument(u"PT-1"_s, transmitter());
    addInstrument(u"PT-2"_s, instrument(u"lumen"_s, 0, 1, u"mA"_s, 4, 20));
    addPoints(u"PT-1"_s, {u"50"_s}, 1);
    addPackage(u"TAG"_s, {u"PT-1"_s});
    const auto& calibrator = calibratorNamed(name);
    EXPECT_EQ(calibrator.acceptable(calibrators, u"PT-1"_s), QString());
    EXPECT_FALSE(calibrator.requiresStandard(calibrators, u"PT-1"_s));
    EXPECT_TRUE(calibrator.requiresStandard(calibrators, u"PT-2"_s));
    EXPECT_EQ(link.calls, QStringList()) << "the calibrator is not needed yet";
    EXPECT_EQ(calibrator.download(calibrators, u"TAG"_s), QString());
    EXPECT_EQ(link.callsOf(u"MEM3startTask"_s).size(), 1);
    EXPECT_EQ(link.callsOf(u"DPC3dnlStart"_s).size(), 1);
    EXPECT_EQ(calibrator.upload(calibrators), QString());
    EXPECT_EQ(link.callsOf(u"DPC3uplStart"_s).size(), 2);
    EXPECT_EQ(calibrators.fluke74x.Calibrator74xAsset, u"F743-01"_s);
    EXPECT_EQ(link702.calls + port.log, QStringList());
}

TEST_F(Drivers, ANameThatMatchesNoneLeavesTheResultEmptyOrFalse) {
    for (const auto& name :
         {QString(), u"crane torquestar ivc"_s, u"Crane TorqueStar IVc "_s, u"Fluke 743"_s}) {
        EXPECT_EQ(calibratorNamed(name).acceptable(calibrators, u"W-1"_s), QString());
        EXPECT_FALSE(calibratorNamed(name).requiresStandard(calibrators, u"W-1"_s));
        EXPECT_EQ(calibratorNamed(name).download(calibrators, u"TAG"_s), QString());
        EXPECT_EQ(calibratorNamed(name).upload(calibrators), QString());
    }
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_EQ(port.log, QStringList());
    EXPECT_EQ(link.calls, QStringList());
}

TEST_F(Drivers, AreOfferedInTheirOrderWithTheRememberedOneProposed) {
    settings.setValue(u"Defaults"_s, u"Remembered"_s, u"Fluke 702"_s);
    ui.expectDialog(
        u"A title"_s, u"Select Calibrator To Use:"_s, u"Fluke 743/744"_s, [](const DialogQuestion& q) {
            EXPECT_TRUE(q.required);
            EXPECT_TRUE(q.fromList);
            EXPECT_EQ(q.choices,
                      (QStringList{u"Crane TorqueStar IVc"_s, u"Fluke 702"_s, u"Fluke 743/744"_s}));
            EXPECT_EQ(q.maxLength, 30);
            EXPECT_EQ(q.fieldType, 0);
            EXPECT_EQ(q.defaultText, u"Fluke 702"_s);
        });
    EXPECT_EQ(chooseCalibrator(session, u"A title"_s, u"Remembered"_s), u"Fluke 743/744"_s);
    for (const auto& answer : {u"*CANCEL*"_s, QString()}) {
        ui.expectDialog(u"A title"_s, u"Select Calibrator To Use:"_s, answer);
        EXPECT_EQ(chooseCalibrator(session, u"A title"_s, u"Remembered"_s), QString());
    }
    EXPECT_EQ(settings.writes.size(), 1);
}

TEST_F(Drivers, AreChosenByCaptionsAndRememberedByTheirNames) {
    folder.write(u"texts.txt"_s, "351\tDer Drehmomentprüfer\n");
    ASSERT_TRUE(overlayStrings(folder.path() + u"/texts.txt"_s));
    settings.values.insert(u"Defaults/Last"_s, u"Crane TorqueStar IVc"_s);
    ui.expectDialog(u"Download"_s, text(TextId::selectCalibratorToUse), u"Der Drehmomentprüfer"_s,
                    [](const DialogQuestion& question) {
                        EXPECT_EQ(question.defaultText, u"Der Drehmomentprüfer"_s);
                        EXPECT_EQ(question.choices, (QStringList{u"Der Drehmomentprüfer"_s, u"Fluke 702"_s,
                                                                 u"Fluke 743/744"_s}));
                    });
    EXPECT_EQ(chooseCalibrator(session, u"Download"_s, u"Last"_s), u"Crane TorqueStar IVc"_s);
    EXPECT_EQ(calibratorCaption(u"Crane TorqueStar IVc"_s), u"Der Drehmomentprüfer"_s);
    EXPECT_EQ(calibratorCaption(u"Other"_s), u"Other"_s);
    folder.write(u"texts.txt"_s, "351\tCrane TorqueStar IVc\n");
    EXPECT_TRUE(overlayStrings(folder.path() + u"/texts.txt"_s));
}

TEST(CalibratorList, NamesEachCalibratorOnceInEveryWay) {
    QSet<QString> names;
    QSet<QString> captions;
    QSet<QString> journalWords;
    for (const auto& calibrator : allCalibrators()) {
        const auto name = calibrator.identity.name.toString();
        names << name;
        captions << calibratorCaption(name);
        journalWords << calibrator.identity.journalWord.toString();
        EXPECT_EQ(&calibratorNamed(name), &calibrator) << name.toStdString();
    }
    const auto count = static_cast<qsizetype>(allCalibrators().size());
    EXPECT_EQ(names.size(), count);
    EXPECT_EQ(captions.size(), count);
    EXPECT_EQ(journalWords.size(), count);
}

} // namespace kelvane::testing
