#include "tests/simulators/fluke702_bench.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke702 {

using Fluke702Transfer = Fluke702Bench;

TEST_F(Fluke702Transfer, NothingGoesOverALinkThatIsNotOpen) {
    OutTexts out;
    qint32 count = 5;
    const auto tryAll = [&] {
        EXPECT_EQ(library_.DPCget70x(out.first.data(), out.second.data(), out.third.data(), &out.numbers[0],
                                     &out.numbers[1], &out.numbers[2]),
                  NotOpen);
        EXPECT_EQ(library_.DPCdnlStart(&count), NotOpen);
        EXPECT_EQ(library_.DPCdnlStep(&count), NotOpen);
        EXPECT_EQ(library_.DPCuplStart(&count), NotOpen);
        EXPECT_EQ(library_.DPCuplStep(&count), NotOpen);
    };
    tryAll();
    EXPECT_EQ(library_.DPCclose(), Done) << "closing what is closed does no harm";
    EXPECT_EQ(library_.DPCopen(9600, "COM1", 1000, 5), Done);
    EXPECT_EQ(library_.DPCopen(9600, "COM1", 1000, 5), OutOfStep);
    EXPECT_EQ(library_.DPCclose(), Done);
    tryAll();
    EXPECT_EQ(count, 5);
}

TEST_F(Fluke702Transfer, ALinkNeedsASpeedAndAPort) {
    EXPECT_EQ(library_.DPCopen(0, "COM1", 1000, 5), BadArgument);
    EXPECT_EQ(library_.DPCopen(-9600, "COM1", 1000, 5), BadArgument);
    EXPECT_EQ(library_.DPCopen(9600, "", 1000, 5), BadArgument);
    EXPECT_EQ(library_.DPCopen(9600, nullptr, 1000, 5), BadArgument);
    EXPECT_EQ(library_.DPCopen(300, "COM4", -1, 255), Done) << "the two constants are not looked at";
}

TEST_F(Fluke702Transfer, TheCalibratorSaysWhoItIs) {
    OutTexts out;
    const auto ask = [&] {
        library_.DPCclose();
        EXPECT_EQ(library_.DPCopen(9600, "COM1", 1000, 5), Done);
        return library_.DPCget70x(out.first.data(), out.second.data(), out.third.data(), &out.numbers[0],
                                  &out.numbers[1], &out.numbers[2]);
    };
    EXPECT_EQ(ask(), Done);
    EXPECT_FALSE(QFile::exists(file())) << "asking makes no memory";
    EXPECT_EQ(out.first, QByteArray("702\0", 4) + QByteArray(36, ' '));
    EXPECT_EQ(out.second, QByteArray("6841207\0", 8) + QByteArray(32, ' '));
    EXPECT_EQ(out.third.left(5), QByteArray("V2.3\0", 5));
    keep([](Memory& memory) {
        memory.identity = {u"702 of fifteen c"_s.left(15), u"123456789"_s, {}, 1000};
    });
    EXPECT_EQ(ask(), Done);
    EXPECT_EQ(out.second.left(10), QByteArray("123456789\0", 10)) << "its zero is within the ten bytes";
    EXPECT_EQ(out.second.at(10), ' ');
    EXPECT_EQ(out.first.left(17), QByteArray("702 of fifteen \0 ", 17));
}

TEST_F(Fluke702Transfer, TheNumberOfStepsDependsOnTheContents) {
    const auto steps = [&](Library::Status (Library::*start)(qint32*)) {
        qint32 count = 0;
        EXPECT_EQ(library_.DPCopen(9600, "COM1", 1000, 5), Done);
        EXPECT_EQ((library_.*start)(&count), Done);
        library_.DPCclose();
        return count;
    };
    EXPECT_EQ(steps(&Library::DPCdnlStart), 1);
    EXPECT_EQ(steps(&Library::DPCuplStart), 1);
    defineTask("A");
    defineTask("B");
    EXPECT_EQ(steps(&Library::DPCdnlStart), 3);
    fillCalibrator();
    EXPECT_EQ(steps(&Library::DPCuplStart), 5);
}

TEST_F(Fluke702Transfer, ADownloadReplacesAllThatTheCalibratorHeld) {
    fillCalibrator();
    EXPECT_EQ(library_.MEMpromptDefn("ABCDEFGHIJ", "Vent it \x96 slowly."), Done);
    EXPECT_EQ(library_.MEMpromptDefn("KLMNOPQRST", ""), Done);
    EXPECT_EQ(library_.MEMpromptDefn("NOT PLACED", "x"), Done);
    EXPECT_EQ(library_.MEMstartTask("TIT-201"), Done);
    EXPECT_EQ(library_.MEMprompt("ABCDEFGHIJ"), Done);
    EXPECT_EQ(library_.MEMtemplate(defineStrategy({0, 0, 0.1F}), 1, "TIT-201", "None", saveState()), Done);
    EXPECT_EQ(library_.MEMprompt("KLMNOPQRST"), Done);
    EXPECT_EQ(library_.MEMendTask(), Done);
    ASSERT_EQ(download(), Done);
    const Contents now = storedMemory().contents;
    EXPECT_EQ(now.strategies, (std::vector<Strategy>{{u"LINEARITY"_s, {0, 0, 0.1F}}}));
    EXPECT_EQ(now.prompts, (std::vector<Prompt>{{u"ABCDEFGHIJ"_s, u"Vent it – slowly."_s},
                                                {u"KLMNOPQRST"_s, {}},
                                                {u"NOT PLACED"_s, u"x"_s}}));
    EXPECT_EQ(
        now.tasks,
        (std::vector<Task>{
            {u"TIT-201"_s, {u"ABCDEFGHIJ"_s}, {u"KLMNOPQRST"_s}, 1, 1, true, u"TIT-201"_s, u"None"_s}}));
    EXPECT_TRUE(now.runs.empty()) << "results go with what they belonged to";
    EXPECT_EQ(storedMemory().identity, Identity());
}

TEST_F(Fluke702Transfer, AnEmptyImageEmptiesTheCalibrator) {
    fillCalibrator();
    ASSERT_EQ(download(), Done);
    EXPECT_EQ(storedMemory(), Memory());
}

TEST_F(Fluke702Transfer, AnUploadBringsTheImageWhatTheCalibratorHolds) {
    fillCalibrator();
    const Memory before = storedMemory();
    defineTask("GONE");
    ASSERT_EQ(upload(), Done);
    EXPECT_EQ(storedMemory(), before) << "an upload changes nothing on the calibrator";
    // What came up goes down again, without the results.
    library_.setEnvironment({folder_.path(u"other.json"_s), {}, {}});
    ASSERT_EQ(download(), Done);
    Memory expected = before;
    expected.contents.runs.clear();
    MemoryFile(folder_.path(u"other.json"_s)).use([&](const Memory& memory) {
        EXPECT_EQ(memory, expected);
        return false;
    });
}

TEST_F(Fluke702Transfer, AStateThatCameUpStaysInUse) {
    fillCalibrator();
    ASSERT_EQ(upload(), Done);
    ASSERT_EQ(library_.MEMstartTask("NEW"), Done);
    EXPECT_EQ(library_.MEMtemplate(1, 0, "NEW", "S", 1), StateInUse);
    EXPECT_EQ(library_.MEMprompt("ABCDEFGHIJ"), Done);
    EXPECT_EQ(library_.MEMpromptDefn("ABCDEFGHIJ", "x"), BadArgument);
    EXPECT_EQ(saveState(), 3);
    EXPECT_EQ(library_.MEMtemplate(1, 0, "NEW", "S", 3), Done);
}

TEST_F(Fluke702Transfer, ADownloadThatNeverBeganChangesNothing) {
    fillCalibrator();
    const Memory before = storedMemory();
    defineTask("A");
    qint32 count = 0;
    ASSERT_EQ(library_.DPCopen(9600, "COM1", 1000, 5), Done);
    ASSERT_EQ(library_.DPCdnlStart(&count), Done);
    library_.DPCclose();
    EXPECT_EQ(storedMemory(), before);
}

TEST_F(Fluke702Transfer, ADownloadThatBreaksOffLeavesTheCalibratorEmpty) {
    fillCalibrator();
    defineTask("A");
    defineTask("B");
    qint32 count = 0;
    ASSERT_EQ(library_.DPCopen(9600, "COM1", 1000, 5), Done);
    ASSERT_EQ(library_.DPCdnlStart(&count), Done);
    ASSERT_EQ(library_.DPCdnlStep(&count), Done);
    EXPECT_EQ(storedMemory(), Memory());
    ASSERT_EQ(library_.DPCdnlStep(&count), Done);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(storedMemory(), Memory());
    EXPECT_EQ(library_.DPCclose(), Done);
    EXPECT_EQ(storedMemory(), Memory());
    ASSERT_EQ(library_.DPCopen(9600, "COM1", 1000, 5), Done);
    EXPECT_EQ(library_.DPCdnlStep(&count), OutOfStep) << "it does not go on by itself";
    library_.DPCclose();
    EXPECT_EQ(download(), Done) << "the image is still there";
    EXPECT_EQ(storedMemory().contents.tasks.size(), 2U);
}

TEST_F(Fluke702Transfer, AnUploadThatBreaksOffLeavesWhatHasCome) {
    fillCalibrator();
    qint32 count = 0;
    qint32 tasks = 0;
    qint32 runs = 0;
    ASSERT_EQ(library_.DPCopen(9600, "COM1", 1000, 5), Done);
    ASSERT_EQ(library_.DPCuplStart(&count), Done);
    while (count > 1)
        ASSERT_EQ(library_.DPCuplStep(&count), Done);
    library_.DPCclose();
    EXPECT_EQ(library_.MEMstats(&tasks, &runs), Done);
    EXPECT_EQ(tasks, 2);
    EXPECT_EQ(runs, 1);
}

TEST_F(Fluke702Transfer, StepsComeInTheirOrder) {
    defineTask("A");
    qint32 count = 2;
    ASSERT_EQ(library_.DPCopen(9600, "COM1", 1000, 5), Done);
    EXPECT_EQ(library_.DPCdnlStep(&count), OutOfStep) << "before the start";
    ASSERT_EQ(library_.DPCdnlStart(&count), Done);
    EXPECT_EQ(library_.DPCuplStep(&count), OutOfStep) << "the other way";
    for (qint32 other : {0, -1, 1, 3, 2147483647}) {
        EXPECT_EQ(library_.DPCdnlStep(&other), OutOfStep) << other;
    }
    EXPECT_EQ(library_.DPCdnlStep(&count), Done);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(library_.DPCdnlStep(&count), Done);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(library_.DPCdnlStep(&count), OutOfStep) << "behind the last";
}

TEST_F(Fluke702Transfer, AnOpenTaskIsNotTransferred) {
    ASSERT_EQ(library_.MEMstartTask("A"), Done);
    EXPECT_EQ(download(), OutOfStep);
    EXPECT_EQ(upload(), OutOfStep);
    library_.MEMclear();
    EXPECT_EQ(download(), Done);
}

TEST_F(Fluke702Transfer, MoreTasksThanItTakesAreRefusedBeforeAnythingIsErased) {
    fillCalibrator();
    keep([](Memory& memory) { memory.identity.room = 1; });
    const Memory before = storedMemory();
    defineTask("A");
    defineTask("B");
    EXPECT_EQ(download(), NoRoom);
    EXPECT_EQ(storedMemory(), before);
    library_.MEMclear();
    defineTask("A");
    EXPECT_EQ(download(), Done);
}

TEST_F(Fluke702Transfer, TakesTheMostInstrumentsOfAPackage) {
    for (int number = 0; number < 501; ++number)
        defineTask(QByteArray::number(number).constData());
    ASSERT_EQ(download(), Done);
    EXPECT_EQ(storedMemory().contents.tasks.size(), 501U);
    ASSERT_EQ(upload(), Done);
}

TEST_F(Fluke702Transfer, ADamagedMemoryIsNoCalibratorAndIsLeftAlone) {
    folder_.put(u"fluke702.json"_s, "{ half a mem");
    EXPECT_EQ(library_.DPCopen(9600, "COM1", 1000, 5), NoAnswer);
    qint32 count = 0;
    EXPECT_EQ(library_.DPCdnlStart(&count), NotOpen);
    EXPECT_EQ(folder_.contentOf(u"fluke702.json"_s), "{ half a mem");
    ASSERT_TRUE(QFile::remove(file()));
    EXPECT_EQ(library_.DPCopen(9600, "COM1", 1000, 5), Done);
}

TEST_F(Fluke702Transfer, AMemoryThatIsDamagedMeanwhileFailsTheTransfer) {
    defineTask("A");
    ASSERT_EQ(library_.DPCopen(9600, "COM1", 1000, 5), Done);
    qint32 count = 0;
    ASSERT_EQ(library_.DPCdnlStart(&count), Done);
    folder_.put(u"fluke702.json"_s, "{ half a mem");
    EXPECT_EQ(library_.DPCdnlStep(&count), CantWrite);
    EXPECT_EQ(library_.DPCdnlStart(&count), CantWrite);
    EXPECT_EQ(library_.DPCuplStart(&count), CantRead);
    EXPECT_EQ(folder_.contentOf(u"fluke702.json"_s), "{ half a mem");
}

TEST_F(Fluke702Transfer, AMemoryThatCantBeReachedOrWrittenIsAFailure) {
    library_.setEnvironment({folder_.path(u"nowhere/memory.json"_s), {}, {}});
    EXPECT_EQ(library_.DPCopen(9600, "COM1", 1000, 5), NoAnswer);
    library_.setEnvironment(environment());
    ASSERT_TRUE(QDir().mkpath(file() + u".new"_s));
    EXPECT_EQ(download(), CantWrite);
}

} // namespace kelvane::simulators::fluke702
