#include "drivers/fluke702/dpclnk_library.h"

#include "data/small_routines.h"
#include "testkit/loaded_library.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString whole = QStringLiteral(KELVANE_WHOLE_LIBRARY);

} // namespace

class RealLibrary : public LoadedLibrary<DpclnkLibrary> {
  protected:
    RealLibrary() : LoadedLibrary(whole, u"dpclnk"_s) {}
};

TEST_F(RealLibrary, IsOpenedAndClosedAndAsked) {
    EXPECT_EQ(link.DPCopen(9600, u"COM1"_s, 1000, 5), 0);
    EXPECT_EQ(link.DPCclose(), 0);
    QString model(16, u' ');
    QString serial(10, u' ');
    QString text(40, u' ');
    qint32 number = 0;
    qint32 other = 0;
    qint32 another = 0;
    EXPECT_EQ(link.DPCget70x(model, serial, text, number, other, another), 0);
    EXPECT_EQ(recordedCalls(), "DPCopen 9600 COM1 1000 5\nDPCclose\nDPCget70x\n");
    EXPECT_EQ(model, u"702"_s + QChar(0) + QString(12, u' '));
    EXPECT_EQ(serial, u"€é"_s + QChar(0) + QString(7, u' '));
    EXPECT_EQ(text, QChar(0) + QString(39, u' '));
    EXPECT_EQ(number, 1);
    EXPECT_EQ(other, 2);
    EXPECT_EQ(another, 3);
}

TEST_F(RealLibrary, CountsTheTransferIn32Bits) {
    qint32 count = 0;
    EXPECT_EQ(link.DPCdnlStart(count), 0);
    EXPECT_EQ(count, 70000);
    EXPECT_EQ(link.DPCdnlStep(count), 0);
    EXPECT_EQ(count, 69999);
    EXPECT_EQ(link.DPCuplStart(count), 0);
    EXPECT_EQ(count, -70000);
    EXPECT_EQ(link.DPCuplStep(count), 0);
    EXPECT_EQ(count, -70001);
    EXPECT_EQ(recordedCalls(), "DPCdnlStart\nDPCdnlStep 70000\nDPCuplStart\nDPCuplStep -70000\n");
}

TEST_F(RealLibrary, TakesTheImage) {
    qint32 strategy = 0;
    const float points[] = {0.25F, 0.5F, 1.0F};
    EXPECT_EQ(link.MEMclear(), 0);
    EXPECT_EQ(link.MEMstrategyDefn(strategy, u"UP3"_s, 3, points), 0);
    EXPECT_EQ(strategy, 100000);
    EXPECT_EQ(link.MEMpromptDefn(u"P1"_s, u"Close the valve."_s), 0);
    EXPECT_EQ(link.MEMstartTask(u"PT-1"_s), 0);
    EXPECT_EQ(link.MEMprompt(u"P1"_s), 0);
    EXPECT_EQ(link.MEMtemplate(strategy, 1, u"PT-1"_s, u"K-1"_s, 200000), 0);
    EXPECT_EQ(link.MEMendTask(), 0);
    EXPECT_EQ(recordedCalls(),
              "MEMclear\nMEMstrategyDefn UP3 3 0.25 1\nMEMpromptDefn P1 Close the valve.\n"
              "MEMstartTask PT-1\nMEMprompt P1\nMEMtemplate 100000 1 PT-1 K-1 200000\nMEMendTask\n");
}

TEST_F(RealLibrary, TakesTheSetupState) {
    qint32 state = 0;
    EXPECT_EQ(link.STAinit(), 0);
    EXPECT_EQ(link.STAsetTempUnits(u"celsius"_s), 0);
    EXPECT_EQ(link.STAsetTref(u"user"_s, 20.5F), 0);
    EXPECT_EQ(link.STAsetTempStd(u"its90"_s), 0);
    EXPECT_EQ(link.STAsetPresUnits(u"in_h2o"_s), 0);
    EXPECT_EQ(link.STAsetOutput(u"tc"_s, u"K"_s, -1.5F, 0.25F), 0);
    EXPECT_EQ(link.STAsetInput(u"ma"_s, {}), 0);
    EXPECT_EQ(link.STAsetInputRange(1, 30.0F), 0);
    EXPECT_EQ(link.STAsetLoopPower(u"24v"_s), 0);
    EXPECT_EQ(link.STAsetOutputScale(100.0F, -50.0F), 0);
    EXPECT_EQ(link.STAsetInputScale(20.0F, 4.0F), 0);
    EXPECT_EQ(link.STAsetTestTolerance(0.5F), 0);
    EXPECT_EQ(link.STAsave(state), 0);
    EXPECT_EQ(state, 200000);
    EXPECT_EQ(recordedCalls(), "STAinit\nSTAsetTempUnits celsius\nSTAsetTref user 20.5\nSTAsetTempStd its90\n"
                               "STAsetPresUnits in_h2o\nSTAsetOutput tc K -1.5 0.25\nSTAsetInput ma \n"
                               "STAsetInputRange 1 30\nSTAsetLoopPower 24v\nSTAsetOutputScale 100 -50\n"
                               "STAsetInputScale 20 4\nSTAsetTestTolerance 0.5\nSTAsave\n");
}

TEST_F(RealLibrary, GivesTheStoredRecords) {
    qint32 number = 0;
    qint32 count = 0;
    EXPECT_EQ(link.MEMstats(number, count), 0);
    EXPECT_EQ(QList({number, count}), QList({1, 2}));
    qint16 kind = 0;
    qint16 month = 0;
    qint16 day = 0;
    qint16 year = 0;
    qint16 hour = 0;
    qint16 minute = 0;
    qint16 second = 0;
    EXPECT_EQ(link.MEMrDir(70001, kind, month, day, year, hour, minute, second), 0);
    EXPECT_EQ(QList<int>({kind, month, day, year, hour, minute, second}), QList<int>({1, 2, 3, 4, 5, 6, 7}));
    qint32 another = 0;
    EXPECT_EQ(link.MEMasflInfo(70002, number, count, another), 0);
    EXPECT_EQ(QList({number, count, another}), QList({1, 2, 3}));
    EXPECT_EQ(link.MEMbaseState(70003), 0);
    QString tag(33, u' ');
    QString serial(33, u' ');
    QString technician(33, u' ');
    EXPECT_EQ(link.MEMtagidInfo(70004, tag, serial, technician), 0);
    EXPECT_EQ(ModuleGlobals::CleanDLLString(tag), u"PT-1"_s);
    EXPECT_EQ(ModuleGlobals::CleanDLLString(serial), u"K-1"_s);
    EXPECT_EQ(ModuleGlobals::CleanDLLString(technician), u"J. Doe"_s);
    qint16 entries = 0;
    EXPECT_EQ(link.MEMcalResult(70005, entries), 0);
    EXPECT_EQ(entries, 1);
    QString model(16, u' ');
    QString module(10, u' ');
    EXPECT_EQ(link.STAgetPressure(model, module, number), 0);
    EXPECT_EQ(ModuleGlobals::CleanDLLString(model), u"700P06"_s);
    EXPECT_EQ(ModuleGlobals::CleanDLLString(module), u"P-1"_s);
    EXPECT_EQ(number, 1);
    EXPECT_EQ(recordedCalls(),
              "MEMstats\nMEMrDir 70001\nMEMasflInfo 70002\nMEMbaseState 70003\nMEMtagidInfo 70004\n"
              "MEMcalResult 70005\nSTAgetPressure\n");
}

TEST_F(RealLibrary, GivesTheSevenValuesOfAResult) {
    float reading = 0;
    qint16 second = 0;
    float third = 0;
    float applied = 0;
    qint16 fifth = 0;
    float sixth = 0;
    float error = 0;
    EXPECT_EQ(link.MEMcalResultEntry(70006, 20, reading, second, third, applied, fifth, sixth, error), 0);
    EXPECT_EQ(QList<float>({reading, float(second), third, applied, float(fifth), sixth, error}),
              QList<float>({1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(recordedCalls(), "MEMcalResultEntry 70006 20\n");
}

TEST_F(RealLibrary, GivesAnyStatus) {
    for (const auto status : std::initializer_list<qint16>{100, 2000, 2026, 32767, -1, -32768}) {
        answer(status);
        EXPECT_EQ(link.MEMclear(), status);
    }
}

TEST_F(RealLibrary, TakesTextsInItsAlphabetAndOfAnyLength) {
    link.MEMpromptDefn(u"é€"_s, u"5 Ω 𝛀"_s);
    EXPECT_EQ(recordedCalls(), "MEMpromptDefn \xE9\x80 5 ? ?\n");
    const QString huge(100000, u'x');
    link.MEMstartTask(huge);
    EXPECT_EQ(recordedCalls(), "MEMstartTask " + huge.toLatin1() + "\n");
}

TEST_F(RealLibrary, MayWriteItsZeroBehindTheLastPlaceOrNoneOrFarTooMuch) {
    const struct {
        int manners;
        QChar letter;
    } rows[] = {{wholeLengthAndZero, u'w'}, {noZero, u'n'}, {farTooLong, u'f'}};
    for (const auto& row : rows) {
        behave(row.manners);
        QString tag(33, u' ');
        QString serial(33, u' ');
        QString technician(33, u' ');
        EXPECT_EQ(link.MEMtagidInfo(1, tag, serial, technician), 0);
        EXPECT_EQ(tag, QString(33, row.letter));
        EXPECT_EQ(serial, QString(33, row.letter));
        EXPECT_EQ(technician, QString(33, row.letter));
    }
}

TEST_F(RealLibrary, ThatWritesNothingLeavesEverythingAsItIs) {
    behave(silent);
    QString model(16, u' ');
    QString serial(10, u' ');
    qint32 number = 42;
    EXPECT_EQ(link.STAgetPressure(model, serial, number), 0);
    EXPECT_EQ(model, QString(16, u' '));
    EXPECT_EQ(serial, QString(10, u' '));
    EXPECT_EQ(number, 42);
}

} // namespace kelvane::testing
