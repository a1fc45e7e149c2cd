#include "tests/simulators/fluke74x_bench.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke74x {

namespace {

/// A run of the instrument with so many steps.
fluke74x::Run runWith(const QString& tag, std::size_t steps, const QString& serial = u"S"_s) {
    fluke74x::Run run;
    run.time = {2026, 11, 20, 9, 15, 30};
    run.tag = tag;
    run.serial = serial;
    run.state = 1;
    for (std::size_t step = 0; step < steps; ++step)
        run.entries.push_back({static_cast<float>(step), 0, 0});
    return run;
}

} // namespace

class Fluke74xResults : public Fluke74xBench {
  protected:
    void holdRuns(const std::vector<fluke74x::Run>& runs) {
        keep([&](Memory& memory) {
            memory.contents.states = {pressureToCurrent()};
            memory.contents.runs = runs;
        });
        EXPECT_EQ(upload(), Done);
    }
    void holdUsualRuns() {
        fillCalibrator();
        EXPECT_EQ(upload(), Done);
    }
    std::vector<int> kindsOf(qint32 group) {
        qint32 atoms = 0;
        EXPECT_EQ(library_.MEM3natoms(2, group, &atoms), Done);
        std::vector<int> kinds;
        for (qint32 atom = 0; atom < atoms; ++atom) {
            qint16 kind = 0;
            qint32 reference = 0;
            EXPECT_EQ(library_.MEM3atomDir(2, group, atom, &kind, &reference), Done);
            EXPECT_NE(reference, 0);
            kinds.push_back(kind);
        }
        return kinds;
    }
    Library::Status stepState(qint32 atom, int step, References& state) {
        return library_.MEM3instrCalResultStepInfo(2, 0, atom, static_cast<qint16>(step), &state.first,
                                                   &state.second, &state.third);
    }
    void restoreStep(qint32 atom, int step) {
        References state;
        EXPECT_EQ(stepState(atom, step, state), Done);
        EXPECT_EQ(library_.STA3restore(state.first, state.second, state.third), Done);
    }
    qint16 stepsAt(qint32 group, qint32 atom) {
        qint16 steps = -7;
        qint16 time[6]{};
        EXPECT_EQ(library_.MEM3instrCalResultInfo(2, group, atom, &steps, &time[0], &time[1], &time[2],
                                                  &time[3], &time[4], &time[5]),
                  Done);
        return steps;
    }
};

TEST_F(Fluke74xResults, AnInstrumentWithResultsIsAGroup) {
    qint32 groups = -7;
    EXPECT_EQ(library_.MEM3ngroups(2, &groups), Done);
    EXPECT_EQ(groups, 0);
    holdRuns({runWith(u"A"_s, 1), runWith(u"B"_s, 1), runWith(u"A"_s, 1), runWith(u"A"_s, 1, u"T"_s)});
    EXPECT_EQ(library_.MEM3ngroups(2, &groups), Done);
    EXPECT_EQ(groups, 3);
    qint32 reference = 0;
    EXPECT_EQ(library_.MEM3groupDir(2, 2, &reference), Done);
    EXPECT_NE(reference, 0);
    for (const qint32 list : {0, 1, 3, -1}) {
        EXPECT_EQ(library_.MEM3ngroups(list, &groups), BadArgument);
        EXPECT_EQ(library_.MEM3natoms(list, 0, &groups), BadArgument);
        EXPECT_EQ(library_.MEM3groupDir(list, 0, &reference), BadArgument);
    }
}

TEST_F(Fluke74xResults, ARunWithStepsHasThreeAtomsMore) {
    holdRuns({runWith(u"A"_s, 3), runWith(u"B"_s, 0)});
    EXPECT_EQ(kindsOf(0), (std::vector<int>{18, 4, 5, 5, 5, 11}));
    EXPECT_EQ(kindsOf(1), (std::vector<int>{18, 4, 11}));
}

TEST_F(Fluke74xResults, TheRunsOfAnInstrumentFollowEachOtherInTheirGroup) {
    holdRuns({runWith(u"A"_s, 2), runWith(u"B"_s, 1), runWith(u"A"_s, 1), runWith(u"A"_s, 1)});
    EXPECT_EQ(kindsOf(0), (std::vector<int>{18, 4, 5, 5, 11, 18, 4, 5, 11, 18, 4, 5, 11}));
    EXPECT_EQ(stepsAt(0, 1), 2);
    EXPECT_EQ(stepsAt(0, 6), 1);
}

TEST_F(Fluke74xResults, AGroupOrAnAtomIsThereOrNot) {
    holdUsualRuns();
    qint32 wide = 0;
    qint16 small = 0;
    for (const qint32 group :
         {-1, 1, std::numeric_limits<qint32>::max(), std::numeric_limits<qint32>::min()}) {
        EXPECT_EQ(library_.MEM3natoms(2, group, &wide), BadArgument) << group;
        EXPECT_EQ(library_.MEM3groupDir(2, group, &wide), BadArgument) << group;
        EXPECT_EQ(library_.MEM3atomDir(2, group, 0, &small, &wide), BadArgument) << group;
    }
    for (const qint32 atom : {-1, 10, std::numeric_limits<qint32>::max(), std::numeric_limits<qint32>::min()})
        EXPECT_EQ(library_.MEM3atomDir(2, 0, atom, &small, &wide), BadArgument) << atom;
    EXPECT_EQ(library_.MEM3atomDir(1, 0, 0, &small, &wide), BadArgument);
    EXPECT_EQ(library_.MEM3atomDir(2, 0, 9, &small, &wide), Done);
}

TEST_F(Fluke74xResults, AnAtomOfAnotherKindIsRefused) {
    holdUsualRuns();
    qint32 wide = 0;
    qint16 small = 0;
    References state;
    OutTexts out;
    // 18, 4, 5, 5, 5, 11
    for (const qint32 atom : {0, 1, 2, 5}) {
        EXPECT_EQ(library_.MEM3taskResultRefInfo(2, 0, atom, &wide, &wide), atom == 0 ? Done : BadArgument);
        EXPECT_EQ(library_.MEM3instrCalResultInfo(2, 0, atom, &small, &small, &small, &small, &small, &small,
                                                  &small),
                  atom == 1 ? Done : BadArgument);
        EXPECT_EQ(stepState(atom, 0, state), atom == 1 ? Done : BadArgument);
        EXPECT_EQ(
            library_.MEM3instrTagInfo(2, 0, atom, out.first.data(), out.second.data(), out.third.data()),
            atom == 5 ? Done : BadArgument);
    }
}

TEST_F(Fluke74xResults, TheReferenceLeadsToTheResultsAndTheirTask) {
    holdUsualRuns();
    qint32 results = 0;
    qint32 task = 0;
    EXPECT_EQ(library_.MEM3taskResultRefInfo(2, 0, 6, &results, &task), Done);
    qint16 kind = 0;
    qint32 reference = 0;
    EXPECT_EQ(library_.MEM3atomDir(2, 0, 7, &kind, &reference), Done);
    EXPECT_EQ(results, reference);
    EXPECT_EQ(task, 1);
}

TEST_F(Fluke74xResults, ReadsBackWhatTheCalibratorKept) {
    holdUsualRuns();
    qint16 steps = 0;
    qint16 time[6]{};
    EXPECT_EQ(library_.MEM3instrCalResultInfo(2, 0, 1, &steps, &time[0], &time[1], &time[2], &time[3],
                                              &time[4], &time[5]),
              Done);
    EXPECT_EQ(steps, 3);
    EXPECT_EQ((std::vector<int>(time, time + 6)), (std::vector<int>{11, 20, 2026, 9, 15, 30}))
        << "month, day, year, hour, minute, second";
    OutTexts out;
    EXPECT_EQ(library_.MEM3instrTagInfo(2, 0, 5, out.first.data(), out.second.data(), out.third.data()),
              Done);
    EXPECT_EQ(out.first, QByteArray("PT-103\0", 7) + QByteArray(33, ' '))
        << "a zero inside, and nothing changed behind it";
    EXPECT_EQ(out.second.left(7), QByteArray("V88103\0", 7));
    EXPECT_EQ(out.third.left(6), QByteArray("J. \xD6z\0", 6));
}

TEST_F(Fluke74xResults, AStepIsThereOrNot) {
    holdUsualRuns();
    References state;
    for (const int step : {-1, 3, 32767, -32768})
        EXPECT_EQ(stepState(1, step, state), BadArgument) << step;
    EXPECT_EQ(state, References());
    EXPECT_EQ(stepState(1, 2, state), Done);
    for (const qint32 number : {state.first, state.second, state.third})
        EXPECT_NE(number, 0) << "so that a reference that is not passed on is none";
    EXPECT_EQ(library_.STA3restore(state.first, state.second, state.third), Done);
    EXPECT_EQ(library_.STA3restore(state.first, state.second, 4), NotFound);
    EXPECT_EQ(library_.STA3restore(state.first, 3, state.third), NotFound);
    EXPECT_EQ(library_.STA3restore(state.first + 1, state.second, state.third), NotFound)
        << "a state with which the run was not stored";
}

TEST_F(Fluke74xResults, BeforeAStateIsRestoredThereIsNone) {
    holdUsualRuns();
    qint32 buckets = 0;
    char text[33]{};
    EXPECT_EQ(library_.STA3getBktListInfo("root", &buckets), NoData);
    EXPECT_EQ(library_.STA3getBktName("root", 0, text, 33), NoData);
    float value = 0;
    EXPECT_EQ(library_.STA3getFloat("root", "mprimary", &value), NoData);
    EXPECT_EQ(library_.STA3getBktListInfo("branch", &buckets), NotFound);
}

TEST_F(Fluke74xResults, TheBucketsOfAStepAreThoseOfItsStateAndWhatWasMeasured) {
    holdUsualRuns();
    restoreStep(1, 1);
    qint32 buckets = 0;
    EXPECT_EQ(library_.STA3getBktListInfo("root", &buckets), Done);
    QStringList names;
    for (qint32 bucket = 0; bucket < buckets; ++bucket) {
        char text[33]{};
        EXPECT_EQ(library_.STA3getBktName("root", static_cast<qint16>(bucket), text, 33), Done);
        names += QString::fromLatin1(text);
    }
    for (const Item& item : items())
        EXPECT_EQ(names.count(item.name.toString()), 1) << item.name.toString().toStdString();
    for (const QString& name : {u"sprimary"_s, u"mprimary"_s, u"tol"_s, u"error"_s, u"spserial"_s,
                                u"exttemp"_s, u"srange"_s, u"mrange"_s, u"time"_s})
        EXPECT_EQ(names.count(name), 1) << name.toStdString();
    for (const QString& name : {u"suev"_s, u"muev"_s, u"mpserial"_s})
        EXPECT_FALSE(names.contains(name)) << name.toStdString();
    EXPECT_FLOAT_EQ(floatBucket("sprimary"), 75);
    EXPECT_FLOAT_EQ(floatBucket("mprimary"), 0.012F);
    EXPECT_FLOAT_EQ(floatBucket("tol"), 0.25F);
    EXPECT_EQ(floatBucket("error"), 0);
    EXPECT_EQ(textBucket("spserial"), u"71204"_s);
    char text[33]{};
    for (const int bucket : {-1, static_cast<int>(buckets), 32767, -32768})
        EXPECT_EQ(library_.STA3getBktName("root", static_cast<qint16>(bucket), text, 33), BadArgument);
    restoreStep(1, 0);
    EXPECT_FLOAT_EQ(floatBucket("mprimary"), 0.0041F);
    EXPECT_FLOAT_EQ(floatBucket("error"), 0.625F);
}

TEST_F(Fluke74xResults, EachTypeHasItsReadingCall) {
    holdUsualRuns();
    restoreStep(1, 0);
    char text[40]{};
    float real[2]{};
    qint32 wide = 0;
    const struct {
        const char* bucket;
        int type;
    } cases[] = {{"mprimary", 1},      {"spserial", 2}, {"mrange", 3}, {"defaultPres", 4},
                 {"mcRangeLocked", 5}, {"time", 6},     {"mcMode", 7}};
    for (const auto& entry : cases) {
        EXPECT_EQ(typeOfBucket(entry.bucket), entry.type) << entry.bucket;
        const std::vector<Library::Status> statuses{
            library_.STA3getFloat("root", entry.bucket, real),
            library_.STA3getStr("root", entry.bucket, text, 33),
            library_.STA3getRange("root", entry.bucket, real, real + 1),
            library_.STA3getUnit("root", entry.bucket, text, 33),
            library_.STA3getInt("root", entry.bucket, &wide),
            library_.STA3getTime("root", entry.bucket, &wide),
            library_.STA3getMapped("root", entry.bucket, text, 33)};
        for (std::size_t call = 0; call < statuses.size(); ++call)
            EXPECT_EQ(statuses[call], static_cast<int>(call) + 1 == entry.type ? Done : BadArgument)
                << entry.bucket << " with the call of type " << call + 1;
    }
}

TEST_F(Fluke74xResults, EachTypeGivesItsValue) {
    holdUsualRuns();
    restoreStep(1, 0);
    float low = 0;
    float high = 0;
    qint32 wide = 0;
    char text[40]{};
    EXPECT_EQ(library_.STA3getRange("root", "mrange", &low, &high), Done);
    EXPECT_EQ(low, 0.004F);
    EXPECT_EQ(high, 0.02F);
    EXPECT_EQ(library_.STA3getTime("root", "time", &wide), Done);
    EXPECT_EQ(wide, 1'795'166'130) << "2026-11-20 09:15:30";
    EXPECT_EQ(library_.STA3getInt("root", "mcRangeLocked", &wide), Done);
    EXPECT_EQ(wide, 0);
    EXPECT_EQ(library_.STA3getUnit("root", "defaultPres", text, 33), Done);
    EXPECT_STREQ(text, "in_h2o");
    EXPECT_EQ(library_.STA3getMapped("root", "scMode", text, 4), Done);
    EXPECT_STREQ(text, "Pre") << "cut to the length that is given";
}

TEST_F(Fluke74xResults, AnUnknownBucketIsNotFound) {
    holdUsualRuns();
    restoreStep(1, 0);
    char text[33]{};
    float real[2]{};
    qint32 wide = 0;
    qint16 small = 0;
    for (const char* const name : {"", "muev", "Mprimary", "mpserial"}) {
        EXPECT_EQ(library_.STA3getType("root", name, &small), NotFound) << name;
        EXPECT_EQ(library_.STA3getFloat("root", name, real), NotFound);
        EXPECT_EQ(library_.STA3getStr("root", name, text, 33), NotFound);
        EXPECT_EQ(library_.STA3getRange("root", name, real, real + 1), NotFound);
        EXPECT_EQ(library_.STA3getUnit("root", name, text, 33), NotFound);
        EXPECT_EQ(library_.STA3getInt("root", name, &wide), NotFound);
        EXPECT_EQ(library_.STA3getTime("root", name, &wide), NotFound);
        EXPECT_EQ(library_.STA3getMapped("root", name, text, 33), NotFound);
    }
    EXPECT_EQ(library_.STA3getFloat("branch", "mprimary", real), NotFound);
}

TEST_F(Fluke74xResults, ASideByHandHasTheEntryAndTheChannelsValue) {
    fillCalibrator();
    keep([](Memory& memory) {
        State& state = memory.contents.states[1];
        EXPECT_EQ(state.set(u"sCustomZero"_s, -50.0F), Done);
        EXPECT_EQ(state.set(u"sCustomFS"_s, 50.0F), Done);
        fluke74x::Run run = runWith(u"LI-401"_s, 0);
        run.state = 2;
        run.byHand = {true, true};
        run.measureModule = u"71391"_s;
        run.entries = {{75, 0, 0.1F}};
        memory.contents.runs = {run};
    });
    ASSERT_EQ(upload(), Done);
    restoreStep(1, 0);
    EXPECT_EQ(floatBucket("muev"), 75);
    EXPECT_FLOAT_EQ(floatBucket("mprimary"), 2.5F) << "a quarter of 0 to 10 V";
    EXPECT_EQ(floatBucket("suev"), 0);
    EXPECT_FLOAT_EQ(floatBucket("sprimary"), 5);
    EXPECT_EQ(textBucket("mpserial"), u"71391"_s);
    EXPECT_EQ(typeOfBucket("spserial"), -1);
}

TEST_F(Fluke74xResults, ASavedStateHasTheBucketsOfItsItemsAlone) {
    ASSERT_EQ(fetchMaps(), Done);
    const References state = saveState();
    EXPECT_EQ(library_.STA3restore(state.first, state.second, state.third), Done);
    qint32 buckets = 0;
    EXPECT_EQ(library_.STA3getBktListInfo("root", &buckets), Done);
    EXPECT_EQ(buckets, static_cast<qint32>(items().size()));
    EXPECT_EQ(floatBucket("mUutFS"), 0.02F);
    EXPECT_EQ(typeOfBucket("mprimary"), -1);
}

} // namespace kelvane::simulators::fluke74x
