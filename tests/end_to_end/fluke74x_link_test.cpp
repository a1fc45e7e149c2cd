#include "drivers/fluke74x/dpclnk3_library.h"
#include "simulators/fluke74x/field_work.h"
#include "testkit/fixtures.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace simulated = simulators::fluke74x;

/// The program's way to a link library, and the simulated calibrator as that library.
class RealLinkToFluke74x : public ::testing::Test {
  protected:
    RealLinkToFluke74x() {
        qputenv("KELVANE_FLUKE74X_MEMORY", QFile::encodeName(folder.path() + u"/fluke74x.json"_s));
        EXPECT_EQ(link.missing(), QString());
        link.MEM3clear();
        link.DPC3close();
    }
    ~RealLinkToFluke74x() override { qunsetenv("KELVANE_FLUKE74X_MEMORY"); }

    void readRunBack();
    void readBuckets();

    OwnFolder folder;
    Dpclnk3Library link;
};

void RealLinkToFluke74x::readRunBack() {
    qint32 count = 0;
    EXPECT_EQ(link.MEM3clear(), 0);
    EXPECT_EQ(link.DPC3open(9600, u"COM1"_s, 1000, 5), 0);
    EXPECT_EQ(link.DPC3uplStart(count), 0);
    EXPECT_EQ(count, 3);
    while (count > 0)
        ASSERT_EQ(link.DPC3uplStep(count), 0);
    EXPECT_EQ(link.DPC3close(), 0);
    EXPECT_EQ(link.MEM3ngroups(2, count), 0);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(link.MEM3natoms(2, 0, count), 0);
    EXPECT_EQ(count, 6);
    qint32 reference = 0;
    EXPECT_EQ(link.MEM3groupDir(2, 0, reference), 0);
    QList<qint16> kinds;
    for (qint32 atom = 0; atom < count; ++atom)
        EXPECT_EQ(link.MEM3atomDir(2, 0, atom, kinds.emplaceBack(), reference), 0);
    EXPECT_EQ(kinds, (QList<qint16>{18, 4, 5, 5, 5, 11}));
    qint32 results = 0;
    qint32 task = 0;
    EXPECT_EQ(link.MEM3taskResultRefInfo(2, 0, 0, results, task), 0);
    qint16 steps = 0;
    Dpclnk3::RunTime time;
    EXPECT_EQ(link.MEM3instrCalResultInfo(2, 0, 1, steps, time), 0);
    EXPECT_EQ(steps, 3);
    EXPECT_EQ((QList<qint16>{time.month, time.day, time.year, time.hour, time.minute, time.second}),
              (QList<qint16>{11, 20, 2026, 9, 15, 30}));
    QString tag(33, u' ');
    QString instrument(33, u' ');
    QString technician(33, u' ');
    EXPECT_EQ(link.MEM3instrTagInfo(2, 0, 5, tag, instrument, technician), 0);
    EXPECT_EQ(tag, u"TÜ-205"_s + QChar(0) + QString(26, u' '));
    EXPECT_EQ(instrument.section(QChar(0), 0, 0), u"None"_s);
    EXPECT_EQ(technician.section(QChar(0), 0, 0), u"J. Öz"_s);
    Dpclnk3::State state;
    EXPECT_EQ(link.MEM3instrCalResultStepInfo(2, 0, 1, 1, state), 0);
    EXPECT_EQ(link.STA3restore(state), 0);
    readBuckets();
}

void RealLinkToFluke74x::readBuckets() {
    const auto root = u"root"_s;
    qint32 buckets = 0;
    EXPECT_EQ(link.STA3getBktListInfo(root, buckets), 0);
    EXPECT_GT(buckets, 34);
    QString text(33, u' ');
    EXPECT_EQ(link.STA3getBktName(root, 0, text), 0);
    EXPECT_EQ(text, u"mcMode"_s + QChar(0) + QString(26, u' '));
    qint16 type = 0;
    EXPECT_EQ(link.STA3getType(root, u"mcMode"_s, type), 0);
    EXPECT_EQ(type, 7);
    EXPECT_EQ(link.STA3getMapped(root, u"mcMode"_s, text), 0);
    EXPECT_EQ(text.section(QChar(0), 0, 0), u"Current"_s);
    EXPECT_EQ(link.STA3getUnit(root, u"defaultPres"_s, text), 0);
    EXPECT_EQ(text.section(QChar(0), 0, 0), u"bar"_s);
    EXPECT_EQ(link.STA3getStr(root, u"spserial"_s, text), 0);
    EXPECT_EQ(text.section(QChar(0), 0, 0), u"71204"_s);
    qint32 whole = 0;
    EXPECT_EQ(link.STA3getInt(root, u"mcRangeLocked"_s, whole), 0);
    EXPECT_EQ(whole, 1);
    EXPECT_EQ(link.STA3getTime(root, u"time"_s, whole), 0);
    EXPECT_EQ(whole, 1795166130);
    float real[2]{};
    EXPECT_EQ(link.STA3getRange(root, u"mrange"_s, real[0], real[1]), 0);
    EXPECT_FLOAT_EQ(real[0], 0.004F);
    EXPECT_FLOAT_EQ(real[1], 0.02F);
    EXPECT_EQ(link.STA3getFloat(root, u"mprimary"_s, real[0]), 0);
    EXPECT_FLOAT_EQ(real[0], 0.01208F);
    EXPECT_EQ(link.STA3getFloat(root, u"sprimary"_s, real[0]), 0);
    EXPECT_EQ(real[0], 4);
    EXPECT_EQ(link.STA3getFloat(root, u"muev"_s, real[0]), 2001);
}

TEST_F(RealLinkToFluke74x, AnImageGoesDownAndItsRunsComeUp) {
    QString model(16, u' ');
    QString serial(10, u' ');
    QString text(40, u' ');
    qint32 wide[3]{};
    EXPECT_EQ(link.DPC3get74X(model, serial, text, wide[0], wide[1], wide[2]), 2015);
    EXPECT_EQ(link.DPC3open(9600, u"COM1"_s, 1000, 5), 0);
    EXPECT_EQ(link.DPC3get74X(model, serial, text, wide[0], wide[1], wide[2]), 0);
    EXPECT_EQ(model, u"743B"_s + QChar(0) + QString(11, u' '));
    EXPECT_EQ(serial, u"7112044"_s + QChar(0) + QString(2, u' '));
    qint32 count = 0;
    EXPECT_EQ(link.DPC3mapStart(count), 0);
    while (count > 0)
        ASSERT_EQ(link.DPC3mapStep(count), 0);

    qint32 task = 0;
    qint32 atom = 0;
    EXPECT_EQ(link.MEM3startTask(task, atom, u"TÜ-205"_s, {}), 0);
    Dpclnk3::PromptNumbers prompt;
    EXPECT_EQ(link.MEM3promptDefn(prompt, u"ABCDEFGHIJ"_s, u"Prüfen – 5 €"_s, u"ordinary"_s, u"helvr12"_s),
              0);
    const auto root = u"root"_s;
    EXPECT_EQ(link.STA3beginOps(), 0);
    EXPECT_EQ(link.STA3initOp(), 0);
    EXPECT_EQ(link.STA3setMappedOp(root, u"mcMode"_s, u"Current"_s), 0);
    EXPECT_EQ(link.STA3setMappedOp(root, u"scMode"_s, u"Pressure"_s), 0);
    EXPECT_EQ(link.STA3setUnitOp(root, u"defaultPres"_s, u"bar"_s), 0);
    EXPECT_EQ(link.STA3setFloatOp(root, u"mUutZero"_s, 0.004F), 0);
    EXPECT_EQ(link.STA3setFloatOp(root, u"mUutFS"_s, 0.02F), 0);
    EXPECT_EQ(link.STA3setFloatOp(root, u"sUutFS"_s, 8), 0);
    EXPECT_EQ(link.STA3setIntOp(root, u"mcRangeLocked"_s, 1), 0);
    EXPECT_EQ(link.STA3setFloatOp(root, u"tol"_s, 0.5F), 0);
    qint32 place = 0;
    EXPECT_EQ(link.MEM3promptTemplate(task, atom, place, prompt), 0);
    EXPECT_EQ(link.STA3evalOp(), 0);
    Dpclnk3::State state;
    EXPECT_EQ(link.STA3saveOps(state), 0);
    EXPECT_EQ(link.STA3freeOps(), 0);
    qint32 strategy = 0;
    qint32 strategyId = 0;
    EXPECT_EQ(link.MEM3findStrategyDefn(1, u"LINEARITY"_s, strategy, strategyId), 2001);
    const float points[] = {0, 0.5F, 1};
    qint32 strategyAtom = atom;
    EXPECT_EQ(link.MEM3strategyDefn(task, strategyAtom, strategyId, u"LINEARITY"_s, points, 3), 0);
    EXPECT_EQ(link.MEM3instrCalTemplate(task, atom, place, strategy, strategyAtom, strategyId, state, 0, 0, 2,
                                        u"TÜ-205"_s, u"None"_s),
              0);
    EXPECT_EQ(link.MEM3endTask(), 0);
    EXPECT_EQ(link.MEM3findStrategyDefn(1, u"LINEARITY"_s, strategy, strategyId), 0);

    EXPECT_EQ(link.DPC3dnlStart(count), 0);
    EXPECT_EQ(count, 2);
    qint32 kept[3]{};
    while (count > 0)
        ASSERT_EQ(link.DPC3dnlStep(count, kept[0], kept[1], kept[2]), 0);
    EXPECT_EQ(link.DPC3close(), 0);

    simulated::MemoryFile(folder.path() + u"/fluke74x.json"_s).use([](simulated::Memory& memory) {
        EXPECT_EQ(memory.contents.prompts.at(0).text, u"Prüfen – 5 €"_s);
        simulated::carryOut(
            memory, simulated::jobsOf(u"TÜ-205; as-found; 0.5; J. Öz; 71204; 2026-11-20 09:15:30"_s), {});
        return true;
    });
    readRunBack();
}

} // namespace kelvane::testing
