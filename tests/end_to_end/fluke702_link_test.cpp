#include "drivers/fluke702/dpclnk_library.h"
#include "simulators/fluke702/field_work.h"
#include "testkit/fixtures.h"

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
            memory, simulated::jobsOf(u"TÜ-205; as-left; 0.5; J. Öz; 71204; 2026-11-20 09:15:30"_s), {});
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

} // namespace kelvane::testing
