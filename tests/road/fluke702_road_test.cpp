#include "drivers/fluke702/dpclnk_library.h"
#include "drivers/fluke702/fluke702.h"
#include "simulators/fluke702/field_work.h"
#include "tests/support/database_session.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace simulated = simulators::fluke702;

/// The program's way to a link library, and the simulated calibrator as that library.
class RealLinkToFluke702 : public ::testing::Test {
  protected:
    RealLinkToFluke702() {
        qputenv("KELVANE_FLUKE702_MEMORY", QFile::encodeName(folder.path() + u"/fluke702.json"_s));
        EXPECT_EQ(link.missing(), QString());
        link.MEMclear();
        link.DPCclose();
    }
    ~RealLinkToFluke702() override { qunsetenv("KELVANE_FLUKE702_MEMORY"); }

    OwnFolder folder;
    DpclnkLibrary link;
};

TEST_F(RealLinkToFluke702, AnImageGoesDownAndItsRunsComeUp) {
    qint32 strategy = 0;
    qint32 state = 0;
    const float points[] = {0, 0.5F, 1};
    EXPECT_EQ(link.MEMstrategyDefn(strategy, u"LINEARITY"_s, 3, points), 0);
    EXPECT_EQ(link.MEMpromptDefn(u"ABCDEFGHIJ"_s, u"Prüfen – 5 €"_s), 0);
    EXPECT_EQ(link.STAinit(), 0);
    EXPECT_EQ(link.STAsetTempUnits(u"celsius"_s), 0);
    EXPECT_EQ(link.STAsetTref(u"user"_s, 25), 0);
    EXPECT_EQ(link.STAsetTempStd(u"its90"_s), 0);
    EXPECT_EQ(link.STAsetPresUnits(u"psi"_s), 0);
    EXPECT_EQ(link.STAsetOutput(u"tc"_s, u"tc_k"_s, 0, 0), 0);
    EXPECT_EQ(link.STAsetInput(u"current"_s, {}), 0);
    EXPECT_EQ(link.STAsetInputRange(0, 0.022F), 0);
    EXPECT_EQ(link.STAsetLoopPower(u"24v"_s), 0);
    EXPECT_EQ(link.STAsetOutputScale(800, 0), 0);
    EXPECT_EQ(link.STAsetInputScale(0.02F, 0.004F), 0);
    EXPECT_EQ(link.STAsetTestTolerance(0.5F), 0);
    EXPECT_EQ(link.STAsave(state), 0);
    EXPECT_EQ(link.MEMstartTask(u"TÜ-205"_s), 0);
    EXPECT_EQ(link.MEMprompt(u"ABCDEFGHIJ"_s), 0);
    EXPECT_EQ(link.MEMtemplate(strategy, 0, u"TÜ-205"_s, u"None"_s, state), 0);
    EXPECT_EQ(link.MEMendTask(), 0);

    QString model(16, u' ');
    QString serial(10, u' ');
    QString text(40, u' ');
    qint32 wide[3]{};
    EXPECT_EQ(link.DPCget70x(model, serial, text, wide[0], wide[1], wide[2]), 2017);
    EXPECT_EQ(link.DPCopen(9600, u"COM1"_s, 1000, 5), 0);
    EXPECT_EQ(link.DPCget70x(model, serial, text, wide[0], wide[1], wide[2]), 0);
    EXPECT_EQ(model, u"702"_s + QChar(0) + QString(12, u' '));
    EXPECT_EQ(serial, u"6841207"_s + QChar(0) + QString(2, u' '));
    qint32 count = 0;
    EXPECT_EQ(link.DPCdnlStart(count), 0);
    EXPECT_EQ(count, 2);
    while (count > 0)
        ASSERT_EQ(link.DPCdnlStep(count), 0);
    EXPECT_EQ(link.DPCclose(), 0);

    simulated::MemoryFile(folder.path() + u"/fluke702.json"_s).use([](simulated::Memory& memory) {
        EXPECT_EQ(memory.contents.prompts.at(0).text, u"Prüfen – 5 €"_s);
        simulated::carryOut(
            memory, simulated::errandsOf(u"TÜ-205; as-left; 0.5; J. Öz; 71204; 2026-11-20 09:15:30"_s), {});
        return true;
    });

    EXPECT_EQ(link.MEMclear(), 0);
    EXPECT_EQ(link.DPCopen(9600, u"COM1"_s, 1000, 5), 0);
    EXPECT_EQ(link.DPCuplStart(count), 0);
    EXPECT_EQ(count, 3);
    while (count > 0)
        ASSERT_EQ(link.DPCuplStep(count), 0);
    EXPECT_EQ(link.DPCclose(), 0);
    EXPECT_EQ(link.MEMstats(wide[0], wide[1]), 0);
    EXPECT_EQ(wide[1], 1);
    qint16 of[7]{};
    EXPECT_EQ(link.MEMrDir(0, of[0], of[1], of[2], of[3], of[4], of[5], of[6]), 0);
    EXPECT_EQ((std::vector<int>(of, of + 7)), (std::vector<int>{2, 11, 20, 2026, 9, 15, 30}));
    EXPECT_EQ(link.MEMasflInfo(0, wide[0], wide[1], wide[2]), 0);
    EXPECT_EQ(link.MEMbaseState(0), 0);
    QString tag(33, u' ');
    QString instrument(33, u' ');
    QString technician(33, u' ');
    EXPECT_EQ(link.MEMtagidInfo(0, tag, instrument, technician), 0);
    EXPECT_EQ(tag, u"TÜ-205"_s + QChar(0) + QString(26, u' '));
    EXPECT_EQ(instrument.section(QChar(0), 0, 0), u"None"_s);
    EXPECT_EQ(technician.section(QChar(0), 0, 0), u"J. Öz"_s);
    EXPECT_EQ(link.MEMcalResult(0, of[0]), 0);
    EXPECT_EQ(of[0], 3);
    float real[5]{};
    EXPECT_EQ(link.MEMcalResultEntry(0, 1, real[0], of[0], real[1], real[2], of[1], real[3], real[4]), 0);
    EXPECT_FLOAT_EQ(real[0], 0.01208F);
    EXPECT_EQ(real[2], 400);
    EXPECT_EQ(real[4], 0.005F);
    EXPECT_EQ(link.MEMcalResultEntry(0, 3, real[0], of[0], real[1], real[2], of[1], real[3], real[4]), 2014);
    EXPECT_EQ(link.STAgetPressure(model, serial, wide[0]), 0);
    EXPECT_EQ(serial.section(QChar(0), 0, 0), u"71204"_s);
}

/// The demonstration laboratory, its site asking for no fields by hand, with the calibrator on the real link.
class Fluke702Road : public DatabaseSession {
  protected:
    Fluke702Road() {
        qputenv("KELVANE_FLUKE702_MEMORY", QFile::encodeName(memory()));
        session.BCalP = true;
        session.ResultTemplateLine = u"TN$ FVA$           FRE$           TR$   CO$"_s;
        execute(u"delete from mt.hvm_kv_worksheetfields"_s);
    }
    ~Fluke702Road() override {
        for (const char* const name : {"KELVANE_FLUKE702_MEMORY", "KELVANE_FLUKE702_FAULTS"})
            qunsetenv(name);
    }

    QString memory() const { return folder.path() + u"/fluke702.json"_s; }
    simulated::Memory held() const {
        simulated::Memory held;
        simulated::MemoryFile(memory()).use([&](const simulated::Memory& kept) {
            held = kept;
            return false;
        });
        return held;
    }
    QString download(const QStringList& assets) {
        execute(u"delete from mt.hvm_kv_task_assets where tptag = 'OUT'"_s);
        for (const auto& asset : assets)
            execute(u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('OUT',(select mtag from "
                    "MT.inventory where i4201 = '%1'))"_s.arg(asset));
        execute(u"delete from mt.hvm_kv_task_packages where tptag = 'OUT'"_s);
        execute(u"insert into mt.hvm_kv_task_packages (taskname,tptype,mtuser,created_on,tptag) values "
                "('OUT','WSHT','jdoe',now(*),'OUT');commit"_s);
        const auto result = Module702Interface::Fluke702_download(driver, u"OUT"_s);
        EXPECT_TRUE(ui.allCame());
        return result;
    }
    void carryOut(const QString& plan) const {
        simulated::MemoryFile(memory()).use([&](simulated::Memory& kept) {
            simulated::carryOut(kept, simulated::errandsOf(plan), {});
            return true;
        });
    }
    QString upload() {
        const auto result = Module702Interface::Fluke702_upload(driver);
        EXPECT_TRUE(ui.allCame());
        return result;
    }
    /// Instrument, round, pass mark, failures, technician and first standard of each record of 2027, sorted.
    QStringList records() {
        return values(u"select i4201 || ' ' || c2308 || ' ' || c2323 || ' ' || c2352 || ' ' || c2307 from "
                      "mt.calibration, mt.inventory where mt.calibration.mtag = mt.inventory.mtag and "
                      "c2301 like '2027%'"_s);
    }
    QStringList inUse() {
        return values(
            u"select i4201 from mt.hvm_kv_task_inuse, mt.inventory where mt.hvm_kv_task_inuse.mtag = "
            "mt.inventory.mtag and serial_number = '6841207'"_s);
    }
    void expectDisagreement(const QString& asset, const QString& words, const QString& title) {
        ui.expectBox(
            u"Instrument: "_s + asset + u"\r\n\r\n"_s + words +
                u" This condition is caused by the inability of the calibrator to handle complex error "
                "calculations."_s,
            title, box::warning);
    }

    DpclnkLibrary link;
    Fluke702 driver{session, link};
};

TEST_F(Fluke702Road, TheCalibratorTakesEachInstrumentOfThePlantThatTheProgramAccepts) {
    QStringList accepted;
    for (const auto& asset :
         {u"PT-101"_s,  u"PT-102"_s,  u"PT-103"_s,  u"PT-104"_s,  u"PT-105"_s,  u"PT-106"_s,  u"PT-107"_s,
          u"PT-108"_s,  u"IP-301"_s,  u"IP-302"_s,  u"IP-303"_s,  u"PI-304"_s,  u"VT-601"_s,  u"SC-603"_s,
          u"RI-803"_s,  u"TIT-201"_s, u"TIT-202"_s, u"TIT-203"_s, u"TIT-204"_s, u"TIT-205"_s, u"TIT-206"_s,
          u"TIT-207"_s, u"LI-401"_s,  u"LI-402"_s,  u"LI-403"_s,  u"LI-404"_s,  u"VI-602"_s,  u"PG-801"_s,
          u"FT-501"_s,  u"FI-502"_s,  u"VF-503"_s,  u"TCS-802"_s, u"HW-701"_s}) {
        EXPECT_EQ(download({asset}), QString()) << asset.toStdString();
        EXPECT_EQ(held().contents.tasks.size(), 1U) << asset.toStdString();
        EXPECT_EQ(inUse(), QStringList{asset});
        accepted << asset;
    }
    EXPECT_EQ(download(accepted), QString()) << "and all of them, the later ones as if read by hand";
    EXPECT_EQ(held().contents.tasks.size(), accepted.size());
}

TEST_F(Fluke702Road, WhatWasReadInThePlantBecomesRecords) {
    const QStringList assets{u"FT-501"_s, u"IP-301"_s,  u"PT-101"_s,  u"PT-103"_s,  u"PT-108"_s, u"RI-803"_s,
                             u"SC-603"_s, u"TIT-201"_s, u"TIT-204"_s, u"TIT-206"_s, u"VT-601"_s};
    ASSERT_EQ(download(assets), QString());
    QString plan;
    int hour = 0;
    for (const auto& asset : assets)
        plan += u"%1; as-found; 0.02; J. Doe; ; 2027-03-01 %2:00\n"_s.arg(asset).arg(hour++);
    carryOut(plan);
    EXPECT_EQ(upload(), QString());
    QStringList expected;
    for (const auto& asset : assets)
        expected << asset + u" FOUND-LEFT Y 0 J. Doe"_s;
    EXPECT_EQ(records(), expected);
}

TEST_F(Fluke702Road, WhatIsReadByHandBecomesARecordToo) {
    ASSERT_EQ(download({u"LI-402"_s}), QString());
    EXPECT_TRUE(held().contents.tasks.at(0).byHand);
    carryOut(u"LI-402; as-found; 0.1; J. Doe; ; 2027-03-01 08:00\n"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(), QStringList{u"LI-402 FOUND-LEFT Y 0 J. Doe"_s});
}

TEST_F(Fluke702Road, AFailureAsFoundAndAPassAsLeftAreTwoRecords) {
    ASSERT_EQ(download({u"PT-101"_s, u"PT-103"_s}), QString());
    carryOut(u"PT-103; as-found; 0.8; ; 71204; 2027-03-01 08:00\n"
             "PT-103; as-left; 0.01; ; 71204; 2027-03-01 08:30\n"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(), (QStringList{u"PT-103 AS-FOUND N 9 jdoe"_s, u"PT-103 AS-LEFT Y 0 jdoe"_s}))
        << "nobody's name is the one who downloaded; PT-101 was skipped";
    EXPECT_EQ(
        values(u"select i4201 from mt.standards, mt.calibration, mt.inventory where mt.standards.ctag = "
               "mt.calibration.ctag and c2430 = mt.inventory.mtag and c2301 like '2027%' and c2308 = "
               "'AS-LEFT'"_s)
            .mid(0, 2),
        (QStringList{u"F702-01"_s, u"PM-100"_s}));
}

TEST_F(Fluke702Road, CalibratorAndProgramDisagreeEitherWayRound) {
    ASSERT_EQ(download({u"PT-101"_s, u"PT-103"_s}), QString());
    carryOut(u"PT-101; as-found; 0.8; J. Doe; ; 2027-03-01 08:00; 0.1\n"
             "PT-103; as-found; 0; J. Doe; ; 2027-03-01 09:00; 0.8\n"_s);
    expectDisagreement(
        u"PT-101"_s,
        u"The above listed instrument failed calibration, but the calibrator reported that the "
        "instrument was not out of tolerance."_s,
        u"Instrument Failed Calibration!"_s);
    expectDisagreement(
        u"PT-103"_s,
        u"the above listed instrument passed calibration, but the calibrator reported that the "
        "instrument was out of tolerance."_s,
        u"Instrument Passed Calibration!"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(), (QStringList{u"PT-101 AS-FOUND N 5 J. Doe"_s, u"PT-103 FOUND-LEFT Y 0 J. Doe"_s}));
}

TEST_F(Fluke702Road, ADownloadThatBreaksOffLeavesAnEmptyCalibratorAndTheRegistry) {
    ASSERT_EQ(download({u"PT-101"_s}), QString());
    qputenv("KELVANE_FLUKE702_FAULTS", "DPCdnlStep+1*1=2020");
    EXPECT_EQ(download({u"PT-103"_s}), u"Communication Write Error (DPCERR_SEND_FAILED)"_s);
    EXPECT_TRUE(held().contents.tasks.empty());
    EXPECT_EQ(inUse(), QStringList{u"PT-101"_s});
    qunsetenv("KELVANE_FLUKE702_FAULTS");
    EXPECT_EQ(download({u"PT-103"_s}), QString());
}

TEST_F(Fluke702Road, ADamagedMemoryIsACalibratorThatDoesNotAnswer) {
    folder.write(u"fluke702.json"_s, "{");
    const auto words = u"Communications with calibrator failed! (DPCERR_COMM_NOT_CONNECTED)"_s;
    EXPECT_EQ(download({u"PT-101"_s}), words);
    EXPECT_EQ(upload(), words);
}

} // namespace kelvane::testing
