#include "drivers/fluke74x/dpclnk3_library.h"

#include "data/small_routines.h"
#include "testkit/loaded_library.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using ModuleGlobals::CleanDLLString;

namespace {

const QString whole = QStringLiteral(KELVANE_WHOLE_LIBRARY);

QList<qint32> numbers(const Dpclnk3::State& state) {
    return {state.first, state.second, state.third};
}

} // namespace

class RealLibrary3 : public LoadedLibrary<Dpclnk3Library> {
  protected:
    RealLibrary3() : LoadedLibrary(whole, u"dpclnk3"_s) {}

    const QString root = u"root"_s;
};

TEST_F(RealLibrary3, IsOpenedAndClosedAndAsked) {
    EXPECT_EQ(link.DPC3open(9600, u"COM1"_s, 1000, 5), 0);
    EXPECT_EQ(link.DPC3close(), 0);
    QString model(16, u' ');
    QString serial(10, u' ');
    QString text(40, u' ');
    qint32 number = 0;
    qint32 other = 0;
    qint32 another = 0;
    EXPECT_EQ(link.DPC3get74X(model, serial, text, number, other, another), 0);
    EXPECT_EQ(recordedCalls(), "DPC3open 9600 COM1 1000 5\nDPC3close\nDPC3get74X 16 10 40\n");
    EXPECT_EQ(model, u"743"_s + QChar(0) + QString(12, u' '));
    EXPECT_EQ(serial, u"€é"_s + QChar(0) + QString(7, u' '));
    EXPECT_EQ(text, QChar(0) + QString(39, u' '));
    EXPECT_EQ(QList<qint32>({number, other, another}), QList<qint32>({1, 2, 3}));
}

TEST_F(RealLibrary3, CountsMapsAndTransferIn32Bits) {
    qint32 count = 0;
    EXPECT_EQ(link.DPC3mapStart(count), 0);
    EXPECT_EQ(link.DPC3mapStep(count), 0);
    EXPECT_EQ(count, 79999);
    EXPECT_EQ(link.DPC3dnlStart(count), 0);
    qint32 kept1 = 100001;
    qint32 kept2 = 200001;
    qint32 kept3 = 300001;
    EXPECT_EQ(link.DPC3dnlStep(count, kept1, kept2, kept3), 0);
    EXPECT_EQ(QList<qint32>({count, kept1, kept2, kept3}), QList<qint32>({69999, 100002, 200002, 300002}));
    EXPECT_EQ(link.DPC3uplStart(count), 0);
    EXPECT_EQ(link.DPC3uplStep(count), 0);
    EXPECT_EQ(count, -70001);
    EXPECT_EQ(recordedCalls(), "DPC3mapStart\nDPC3mapStep 80000\nDPC3dnlStart\nDPC3dnlStep 70000 100001 "
                               "200001 300001\nDPC3uplStart\nDPC3uplStep -70000\n");
}

TEST_F(RealLibrary3, TakesTheImage) {
    qint32 task = 100000;
    qint32 atom = 200000;
    qint32 place = 0;
    qint32 strategy = 0;
    qint32 strategyId = 0;
    Dpclnk3::PromptNumbers prompt;
    const float points[] = {0.25F, 0.5F, 1.0F};
    EXPECT_EQ(link.MEM3clear(), 0);
    EXPECT_EQ(link.MEM3startTask(task, atom, u"PT-1"_s, {}), 0);
    EXPECT_EQ(QList<qint32>({task, atom}), QList<qint32>({100001, 200001}));
    EXPECT_EQ(link.MEM3promptDefn(prompt, u"K1"_s, u"Close the valve."_s, u"ordinary"_s, u"helvr12"_s), 0);
    EXPECT_EQ(numbers(prompt), QList<qint32>({1, 2, 3}));
    EXPECT_EQ(link.MEM3promptTemplate(task, atom, place, {300001, 300002, 300003}), 0);
    EXPECT_EQ(place, 1);
    EXPECT_EQ(link.MEM3findStrategyDefn(1, u"UP3"_s, strategy, strategyId), 0);
    EXPECT_EQ(QList<qint32>({strategy, strategyId}), QList<qint32>({1, 2}));
    EXPECT_EQ(link.MEM3strategyDefn(task, atom, strategyId, u"UP3"_s, points, 3), 0);
    EXPECT_EQ(QList<qint32>({atom, strategyId}), QList<qint32>({1, 2}));
    EXPECT_EQ(link.MEM3instrCalTemplate(70001, 70002, place, 70003, 70004, 70005, {70006, 70007, 70008}, 1, 0,
                                        2, u"PT-1"_s, u"K-1"_s),
              0);
    EXPECT_EQ(link.MEM3endTask(), 0);
    EXPECT_EQ(recordedCalls(),
              "MEM3clear\nMEM3startTask 100000 200000 PT-1 \nMEM3promptDefn K1 Close the valve. ordinary "
              "helvr12\nMEM3promptTemplate 100001 200001 300001 300002 300003\nMEM3findStrategyDefn 1 UP3\n"
              "MEM3strategyDefn 100001 200001 UP3 0.25 1 3\nMEM3instrCalTemplate 70001 70002 70003 70004 "
              "70005 70006 70007 70008 1 0 2 PT-1 K-1\nMEM3endTask\n");
}

TEST_F(RealLibrary3, TakesTheSetupState) {
    Dpclnk3::State state;
    EXPECT_EQ(link.STA3beginOps(), 0);
    EXPECT_EQ(link.STA3initOp(), 0);
    EXPECT_EQ(link.STA3setMappedOp(root, u"mcMode"_s, u"2 Wire Ohms"_s), 0);
    EXPECT_EQ(link.STA3setUnitOp(root, u"defaultPres"_s, u"in_h2o"_s), 0);
    EXPECT_EQ(link.STA3setFloatOp(root, u"mUutZero"_s, -1.5F), 0);
    EXPECT_EQ(link.STA3setIntOp(root, u"mcRangeLocked"_s, 70000), 0);
    EXPECT_EQ(link.STA3evalOp(), 0);
    EXPECT_EQ(link.STA3saveOps(state), 0);
    EXPECT_EQ(numbers(state), QList<qint32>({1, 2, 3}));
    EXPECT_EQ(link.STA3freeOps(), 0);
    EXPECT_EQ(recordedCalls(),
              "STA3beginOps\nSTA3initOp\nSTA3setMappedOp root mcMode 2 Wire Ohms\n"
              "STA3setUnitOp root defaultPres in_h2o\nSTA3setFloatOp root mUutZero -1.5\n"
              "STA3setIntOp root mcRangeLocked 70000\nSTA3evalOp\nSTA3saveOps\nSTA3freeOps\n");
}

TEST_F(RealLibrary3, GivesGroupsAndAtoms) {
    qint32 first = 0;
    qint32 second = 0;
    qint16 kind = 0;
    EXPECT_EQ(link.MEM3ngroups(2, first), 0);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(link.MEM3natoms(2, 70001, second), 0);
    EXPECT_EQ(second, 1);
    EXPECT_EQ(link.MEM3groupDir(2, 70001, first), 0);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(link.MEM3atomDir(2, 70001, 80001, kind, second), 0);
    EXPECT_EQ(kind, 1);
    EXPECT_EQ(second, 2);
    EXPECT_EQ(link.MEM3taskResultRefInfo(2, 70001, 80001, first, second), 0);
    EXPECT_EQ(QList<qint32>({first, second}), QList<qint32>({1, 2}));
    QString tag(33, u' ');
    QString serial(33, u' ');
    QString technician(33, u' ');
    EXPECT_EQ(link.MEM3instrTagInfo(2, 70001, 80001, tag, serial, technician), 0);
    EXPECT_EQ(CleanDLLString(tag) + u'|' + CleanDLLString(serial) + u'|' + CleanDLLString(technician),
              u"PT-1|K-1|J. Doe"_s);
    EXPECT_EQ(recordedCalls(),
              "MEM3ngroups 2\nMEM3natoms 2 70001\nMEM3groupDir 2 70001\nMEM3atomDir 2 70001 "
              "80001\nMEM3taskResultRefInfo 2 70001 80001\nMEM3instrTagInfo 2 70001 80001\n");
}

TEST_F(RealLibrary3, GivesRunsAndTheirSteps) {
    qint16 steps = 0;
    Dpclnk3::RunTime time;
    EXPECT_EQ(link.MEM3instrCalResultInfo(2, 70001, 80001, steps, time), 0);
    EXPECT_EQ(QList<int>({steps, time.month, time.day, time.year, time.hour, time.minute, time.second}),
              QList<int>({1, 2, 3, 4, 5, 6, 7}));
    Dpclnk3::State state;
    EXPECT_EQ(link.MEM3instrCalResultStepInfo(2, 70001, 80001, 20, state), 0);
    EXPECT_EQ(numbers(state), QList<qint32>({1, 2, 3}));
    EXPECT_EQ(link.STA3restore({90001, 90002, 90003}), 0);
    EXPECT_EQ(recordedCalls(), "MEM3instrCalResultInfo 2 70001 80001\nMEM3instrCalResultStepInfo 2 70001 "
                               "80001 20\nSTA3restore 90001 90002 90003\n");
}

TEST_F(RealLibrary3, GivesTheBucketsOfAState) {
    qint32 number = 0;
    EXPECT_EQ(link.STA3getBktListInfo(root, number), 0);
    EXPECT_EQ(number, 1);
    QString name(33, u' ');
    EXPECT_EQ(link.STA3getBktName(root, 199, name), 0);
    EXPECT_EQ(CleanDLLString(name), u"suev"_s);
    qint16 type = 0;
    EXPECT_EQ(link.STA3getType(root, u"suev"_s, type), 0);
    EXPECT_EQ(type, 1);
    float low = 0;
    float high = 0;
    EXPECT_EQ(link.STA3getFloat(root, u"suev"_s, low), 0);
    EXPECT_EQ(low, 1);
    EXPECT_EQ(link.STA3getRange(root, u"r"_s, low, high), 0);
    EXPECT_EQ(high, 2);
    EXPECT_EQ(link.STA3getInt(root, u"i"_s, number), 0);
    EXPECT_EQ(link.STA3getTime(root, u"t"_s, number), 0);
    EXPECT_EQ(number, 1);
    QString words(33, u' ');
    QString unit(20, u' ');
    QString mapped(33, u' ');
    EXPECT_EQ(link.STA3getStr(root, u"s"_s, words), 0);
    EXPECT_EQ(link.STA3getUnit(root, u"u"_s, unit), 0);
    EXPECT_EQ(link.STA3getMapped(root, u"m"_s, mapped), 0);
    EXPECT_EQ(CleanDLLString(words) + u'|' + CleanDLLString(unit) + u'|' + CleanDLLString(mapped),
              u"P-1|psi|DCV"_s);
    EXPECT_EQ(recordedCalls(), "STA3getBktListInfo root\nSTA3getBktName root 199 33\nSTA3getType root suev\n"
                               "STA3getFloat root suev\nSTA3getRange root r\nSTA3getInt root i\n"
                               "STA3getTime root t\nSTA3getStr root s 33\nSTA3getUnit root u 20\n"
                               "STA3getMapped root m 33\n");
}

TEST_F(RealLibrary3, GivesAnyStatus) {
    for (const auto status : std::initializer_list<qint16>{100, 2000, 2016, 32767, -1, -32768}) {
        answer(status);
        EXPECT_EQ(link.MEM3clear(), status);
    }
}

TEST_F(RealLibrary3, TakesTextsInItsAlphabetAndOfAnyLength) {
    Dpclnk3::PromptNumbers prompt;
    link.MEM3promptDefn(prompt, u"é€"_s, u"5 Ω 𝛀"_s, {}, {});
    EXPECT_EQ(recordedCalls(), "MEM3promptDefn \xE9\x80 5 ? ?  \n");
    const QString huge(100000, u'x');
    qint32 task = 0;
    qint32 atom = 0;
    link.MEM3startTask(task, atom, huge, {});
    EXPECT_EQ(recordedCalls(), "MEM3startTask 0 0 " + huge.toLatin1() + " \n");
}

TEST_F(RealLibrary3, MayWriteItsZeroBehindTheLastPlaceOrNoneOrFarTooMuch) {
    const struct {
        int manners;
        QChar letter;
    } rows[] = {{wholeLengthAndZero, u'w'}, {noZero, u'n'}, {farTooLong, u'f'}};
    for (const auto& row : rows) {
        behave(row.manners);
        QString tag(33, u' ');
        QString serial(33, u' ');
        QString name(33, u' ');
        EXPECT_EQ(link.MEM3instrTagInfo(2, 0, 0, tag, serial, name), 0);
        EXPECT_EQ(tag + serial + name, QString(99, row.letter));
        for (auto operation : {&Dpclnk3::STA3getStr, &Dpclnk3::STA3getUnit, &Dpclnk3::STA3getMapped}) {
            QString words(33, u' ');
            EXPECT_EQ((link.*operation)(root, u"b"_s, words), 0);
            EXPECT_EQ(words, QString(33, row.letter));
        }
    }
}

TEST_F(RealLibrary3, ThatWritesNothingLeavesEverythingAsItIs) {
    behave(silent);
    QString words(33, u' ');
    float low = 1.5F;
    float high = 2.5F;
    EXPECT_EQ(link.STA3getStr(root, u"s"_s, words), 0);
    EXPECT_EQ(link.STA3getRange(root, u"r"_s, low, high), 0);
    EXPECT_EQ(words, QString(33, u' '));
    EXPECT_EQ(QList<float>({low, high}), QList<float>({1.5F, 2.5F}));
}

} // namespace kelvane::testing
