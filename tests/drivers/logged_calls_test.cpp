#include "drivers/logged_calls.h"

#include "drivers/fluke702/logged_dpclnk.h"
#include "drivers/fluke74x/logged_dpclnk3.h"
#include "drivers/fluke_link_log.h"
#include "testkit/fixtures.h"
#include "testkit/recorded_link.h"
#include "testkit/recorded_link3.h"
#include "testkit/shown_in.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// A link library under the test's control, its log, and the library as the driver has it.
class LoggedLink : public RecordedSession {
  protected:
    LoggedLink() {
        settings.setValue(logSection, log702.calibrator(), u"1"_s);
        settings.setValue(logSection, log74x.calibrator(), u"1"_s);
        EXPECT_EQ(dpclnk->missing(), QString());
        EXPECT_EQ(dpclnk3->missing(), QString());
    }

    /// The lines of a log, without date, time and calibrator; the durations are "N".
    QStringList linesOf(const QString& name) const {
        static const QRegularExpression duration(u", \\d+ ms$"_s);
        QStringList words;
        for (const auto& line : folder.read(name).split(u'\n', Qt::SkipEmptyParts))
            words << line.section(u"] "_s, 1).replace(duration, u", N ms"_s);
        return words;
    }
    QStringList logged() const { return linesOf(u"fluke-702.log"_s); }
    QStringList logged3() const { return linesOf(u"fluke-743-744.log"_s); }
    /// The operations that lines name; the second line is the port's.
    static QStringList operationsIn(QStringList lines) {
        lines.removeAt(1);
        for (auto& line : lines)
            line = line.section(u'(', 0, 0);
        return lines;
    }

    RecordedLink link;
    RecordedLink3 link3;
    CommunicationLog log702{session, u"Fluke 702"_s, folder.path()};
    CommunicationLog log74x{session, u"Fluke 743/744"_s, folder.path()};
    QList<SerialDevice> connected{{.path = u"/dev/ttyUSB0"_s, .serialNumber = u"7"_s}};
    SerialPorts ports{settings, {[this] { return connected; }, folder.path()}};
    std::unique_ptr<Dpclnk> dpclnk = loggedDpclnk(link, {log702, ports});
    std::unique_ptr<Dpclnk3> dpclnk3 = loggedDpclnk3(link3, {log74x, ports});
};

TEST(LoggedValues, ShowTextsAsTheyReachALibraryAndNumbersInShort) {
    const struct {
        QString text;
        QString shown;
    } rows[] = {
        {{}, u"\"\""_s},
        {u"PT-101"_s, u"\"PT-101\""_s},
        {u"702"_s + QChar(0) + u"rest of the buffer"_s, u"\"702\""_s},
        {u"a \"word\", a \\ and\r\nÄ € Ω"_s, u"\"a \\\"word\\\", a \\\\ and\\r\\nÄ € ?\""_s},
        {u"\t\x1b\x7f"_s, u"\"\\x09\\x1b\\x7f\""_s},
    };
    for (const auto& row : rows)
        EXPECT_EQ(loggedText(row.text), row.shown);
    EXPECT_EQ(loggedText(0.1F), u"0.1"_s);
    EXPECT_EQ(loggedText(qint32{-5}), u"-5"_s);
    const float points[] = {0, 0.25F, 1};
    EXPECT_EQ(loggedText(points, 3), u"[0, 0.25, 1]"_s);
    EXPECT_EQ(loggedNumbers({1, 2, 3}), u"{1, 2, 3}"_s);
}

TEST_F(LoggedLink, ShowsWhatGoesInWhatComesOutTheStatusWithItsWordsAndTheDuration) {
    EXPECT_EQ(dpclnk->DPCopen(9600, u"COM1"_s, 1000, 5), 0);
    QString model(16, u' ');
    QString serial(10, u' ');
    QString text(40, u' ');
    qint32 number = 0;
    qint32 unused1 = 0;
    qint32 unused2 = 2;
    dpclnk->DPCget70x(model, serial, text, number, unused1, unused2);
    link.steps = 5;
    qint32 count = 0;
    dpclnk->DPCdnlStart(count);
    link.answer(u"DPCdnlStep"_s, 2012);
    EXPECT_EQ(dpclnk->DPCdnlStep(count), 2012);
    EXPECT_EQ(count, 4);
    link.answer(u"MEMclear"_s, 77);
    dpclnk->MEMclear();
    const float points[] = {0, 0.5F};
    qint32 strategy = 0;
    dpclnk->MEMstrategyDefn(strategy, u"UP"_s, 2, points);
    dpclnk->MEMpromptDefn(u"K1"_s, u"Close the valve of \"A\"\r\nand vent."_s);
    EXPECT_EQ(
        logged(),
        (QStringList{
            u"DPCopen(9600, \"COM1\", 1000, 5) = 0 DPCERR_NONE, N ms"_s,
            u"port COM1: /dev/ttyUSB0, serial number 7"_s,
            u"DPCget70x(16→\"702\", 10→\"6841207\", 40→\"V1.0\", 0→702, 0→1, 2→2) = 0 DPCERR_NONE, N ms"_s,
            u"DPCdnlStart(0→5) = 0 DPCERR_NONE, N ms"_s,
            u"DPCdnlStep(5→4) = 2012 DPCERR_MEMORY_SIZE, N ms"_s,
            u"MEMclear() = 77, N ms"_s,
            u"MEMstrategyDefn(0→1, \"UP\", 2, [0, 0.5]) = 0 DPCERR_NONE, N ms"_s,
            u"MEMpromptDefn(\"K1\", \"Close the valve of \\\"A\\\"\\r\\nand vent.\") = 0 DPCERR_NONE, N ms"_s,
        }));
}

TEST_F(LoggedLink, HasTheSameWordsInEveryLanguage) {
    const ShownIn german(u"de"_s);
    link.answer(u"DPCopen"_s, 2019);
    dpclnk->DPCopen(9600, u"COM1"_s, 1000, 5);
    link3.answer(u"DPC3open"_s, 2010);
    dpclnk3->DPC3open(9600, u"COM2"_s, 1000, 5);
    EXPECT_EQ(logged(),
              (QStringList{u"DPCopen(9600, \"COM1\", 1000, 5) = 2019 DPCERR_COMM_NOT_CONNECTED, N ms"_s,
                           u"port COM1: /dev/ttyUSB0, serial number 7"_s}));
    EXPECT_EQ(logged3(),
              (QStringList{u"DPC3open(9600, \"COM2\", 1000, 5) = 2010 DPC3ERR_COMM_NOT_CONNECTED, N ms"_s,
                           u"port COM2: no device"_s}));
    EXPECT_TRUE(log702.opening()->refusal.startsWith(u"COM1 (/dev/ttyUSB0) konnte nicht"_s))
        << "a user reads that";
}

TEST_F(LoggedLink, ShowsReferencesThatBelongTogetherAsOne) {
    dpclnk3->STA3restore({7, 8, 9});
    Dpclnk3::State state{1, 2, 3};
    dpclnk3->STA3saveOps(state);
    EXPECT_EQ(logged3(), (QStringList{u"STA3restore({7, 8, 9}) = 0 DPCERR_NONE, N ms"_s,
                                      u"STA3saveOps({1, 2, 3}→%1) = 0 DPCERR_NONE, N ms"_s.arg(
                                          loggedNumbers({state.first, state.second, state.third}))}));
}

TEST_F(LoggedLink, PassesEachOperationOnToTheLibraryOfItsOwnName) {
    // Whatever an operation is called with, its line begins like the call that the library has recorded.
    qint32 number = 1;
    qint16 small = 1;
    float real = 1;
    QString text(33, u' ');
    QString other = text;
    QString another = text;
    const float points[] = {0.5F};
    auto& x = *dpclnk;
    x.DPCopen(9600, u"COM1"_s, 1000, 5);
    x.DPCclose();
    x.DPCget70x(text, other, another, number, number, number);
    x.DPCdnlStart(number);
    x.DPCdnlStep(number);
    x.DPCuplStart(number);
    x.DPCuplStep(number);
    x.MEMclear();
    x.MEMstrategyDefn(number, u"A"_s, 1, points);
    x.MEMpromptDefn(u"A"_s, u"B"_s);
    x.MEMstartTask(u"A"_s);
    x.MEMprompt(u"A"_s);
    x.MEMtemplate(1, 0, u"A"_s, u"B"_s, 2);
    x.MEMendTask();
    x.STAinit();
    x.STAsetTempUnits(u"A"_s);
    x.STAsetTref(u"A"_s, 1);
    x.STAsetTempStd(u"A"_s);
    x.STAsetPresUnits(u"A"_s);
    x.STAsetOutput(u"A"_s, u"B"_s, 1, 2);
    x.STAsetInput(u"A"_s, u"B"_s);
    x.STAsetInputRange(1, 2);
    x.STAsetLoopPower(u"A"_s);
    x.STAsetOutputScale(1, 2);
    x.STAsetInputScale(1, 2);
    x.STAsetTestTolerance(1);
    x.STAsave(number);
    x.MEMstats(number, number);
    x.MEMrDir(1, small, small, small, small, small, small, small);
    x.MEMasflInfo(1, number, number, number);
    x.MEMbaseState(1);
    x.MEMtagidInfo(1, text, other, another);
    x.MEMcalResult(1, small);
    x.MEMcalResultEntry(1, 2, real, small, real, real, small, real, real);
    x.STAgetPressure(text, other, number);
    EXPECT_EQ(link.operations().size(), 35);
    EXPECT_EQ(operationsIn(logged()), link.operations());
}

TEST_F(LoggedLink, OfTheOtherCalibratorPassesEachOperationOnToo) {
    qint32 number = 1;
    qint16 small = 1;
    float real = 1;
    QString text(33, u' ');
    QString other = text;
    QString another = text;
    Dpclnk3::State state;
    Dpclnk3::RunTime time;
    const float points[] = {0.5F};
    const auto root = u"root"_s;
    auto& x = *dpclnk3;
    x.DPC3open(9600, u"COM1"_s, 1000, 5);
    x.DPC3close();
    x.DPC3get74X(text, other, another, number, number, number);
    x.DPC3mapStart(number);
    x.DPC3mapStep(number);
    x.DPC3dnlStart(number);
    x.DPC3dnlStep(number, number, number, number);
    x.DPC3uplStart(number);
    x.DPC3uplStep(number);
    x.MEM3clear();
    x.MEM3startTask(number, number, u"A"_s, u"B"_s);
    x.MEM3promptDefn(state, u"A"_s, u"B"_s, u"C"_s, u"D"_s);
    x.MEM3promptTemplate(1, 2, number, state);
    x.MEM3findStrategyDefn(1, u"A"_s, number, number);
    x.MEM3strategyDefn(1, number, number, u"A"_s, points, 1);
    x.MEM3instrCalTemplate(1, 2, number, 3, 4, 5, state, 0, 1, 2, u"A"_s, u"B"_s);
    x.MEM3endTask();
    x.STA3beginOps();
    x.STA3initOp();
    x.STA3setMappedOp(root, u"A"_s, u"B"_s);
    x.STA3setUnitOp(root, u"A"_s, u"B"_s);
    x.STA3setFloatOp(root, u"A"_s, 1);
    x.STA3setIntOp(root, u"A"_s, 1);
    x.STA3evalOp();
    x.STA3saveOps(state);
    x.STA3freeOps();
    x.MEM3ngroups(2, number);
    x.MEM3natoms(2, 0, number);
    x.MEM3groupDir(2, 0, number);
    x.MEM3atomDir(2, 0, 0, small, number);
    x.MEM3taskResultRefInfo(2, 0, 0, number, number);
    x.MEM3instrTagInfo(2, 0, 0, text, other, another);
    x.MEM3instrCalResultInfo(2, 0, 0, small, time);
    x.MEM3instrCalResultStepInfo(2, 0, 0, 1, state);
    x.STA3restore(state);
    x.STA3getBktListInfo(root, number);
    x.STA3getBktName(root, 0, text);
    x.STA3getType(root, u"A"_s, small);
    x.STA3getFloat(root, u"A"_s, real);
    x.STA3getStr(root, u"A"_s, text);
    x.STA3getRange(root, u"A"_s, real, real);
    x.STA3getUnit(root, u"A"_s, text);
    x.STA3getInt(root, u"A"_s, number);
    x.STA3getTime(root, u"A"_s, number);
    x.STA3getMapped(root, u"A"_s, text);
    EXPECT_EQ(link3.operations().size(), 45);
    EXPECT_EQ(operationsIn(logged3()), link3.operations());
}

TEST_F(LoggedLink, SaysWhetherTheLinkCouldBeOpenedAndWhyNot) {
    EXPECT_FALSE(log702.opening().has_value());
    link.answer(u"DPCopen"_s, 2019);
    dpclnk->DPCopen(9600, u"COM1"_s, 1000, 5);
    ASSERT_TRUE(log702.opening().has_value());
    EXPECT_EQ(log702.opening()->refusal, u"COM1 (/dev/ttyUSB0) could not be opened: Communications with "
                                         "calibrator failed! (DPCERR_COMM_NOT_CONNECTED)"_s);
    link.answer(u"DPCopen"_s, 2999);
    dpclnk->DPCopen(9600, u"COM1"_s, 1000, 5);
    EXPECT_TRUE(log702.opening()->refusal.endsWith(u": 2999"_s));
    link.answer(u"DPCopen"_s, 100);
    dpclnk->DPCopen(9600, u"COM1"_s, 1000, 5);
    EXPECT_EQ(*log702.opening(), (LineOpening{.port = u"COM1"_s, .device = u"/dev/ttyUSB0"_s}))
        << "with a warning";
}

TEST_F(LoggedLink, SaysWhatIsMissing) {
    link.reasonMissing = u"There is no library."_s;
    EXPECT_EQ(dpclnk->missing(), u"There is no library."_s);
    EXPECT_EQ(logged(), QStringList{u"no library: There is no library."_s});
    ASSERT_TRUE(log702.opening().has_value());
    EXPECT_EQ(log702.opening()->refusal, u"There is no library."_s);
}

TEST_F(LoggedLink, IsOnlyCalledWithTheLogOff) {
    settings.setValue(logSection, log702.calibrator(), u"0"_s);
    dpclnk->MEMclear();
    EXPECT_EQ(logged().size(), 1) << "the switch counts from the next command on";
    EXPECT_EQ(dpclnk->missing(), QString());
    qint32 count = 3;
    EXPECT_EQ(dpclnk->DPCdnlStep(count), 0);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(link.operations(), (QStringList{u"MEMclear"_s, u"DPCdnlStep"_s}));
    EXPECT_EQ(logged().size(), 1);
}

} // namespace kelvane::testing
