#include "tests/simulators/fluke74x_bench.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke74x {

class Fluke74xTransfer : public Fluke74xBench {
  protected:
    Library::Status startDownload(qint32& count) {
        kept_ = {};
        return library_.DPC3dnlStart(&count);
    }
    Library::Status stepDownload(qint32& count) {
        return library_.DPC3dnlStep(&count, &kept_.first, &kept_.second, &kept_.third);
    }
    bool areMapsThere() { return library_.STA3restore(0, 0, 0) != NoMaps; }
    void beAnotherCalibrator(const QString& serial) {
        keep([&](Memory& memory) { memory.identity.serial = serial; });
    }

    References kept_;
};

TEST_F(Fluke74xTransfer, NothingGoesOverALinkThatIsNotOpen) {
    OutTexts out;
    qint32 count = 5;
    const auto tryAll = [&] {
        EXPECT_EQ(identify(out), NotOpen);
        EXPECT_EQ(library_.DPC3mapStart(&count), NotOpen);
        EXPECT_EQ(library_.DPC3mapStep(&count), NotOpen);
        EXPECT_EQ(startDownload(count), NotOpen);
        EXPECT_EQ(stepDownload(count), NotOpen);
        EXPECT_EQ(library_.DPC3uplStart(&count), NotOpen);
        EXPECT_EQ(library_.DPC3uplStep(&count), NotOpen);
    };
    tryAll();
    EXPECT_EQ(library_.DPC3close(), Done) << "closing what is closed does no harm";
    EXPECT_EQ(open(), Done);
    EXPECT_EQ(open(), NoAnswer) << "it is open";
    EXPECT_EQ(library_.DPC3close(), Done);
    EXPECT_EQ(library_.DPC3close(), Done);
    tryAll();
    EXPECT_EQ(count, 5);
}

TEST_F(Fluke74xTransfer, ALinkNeedsASpeedAndAPort) {
    EXPECT_EQ(library_.DPC3open(0, "COM1", 1000, 5), BadSettings);
    EXPECT_EQ(library_.DPC3open(-9600, "COM1", 1000, 5), BadSettings);
    EXPECT_EQ(library_.DPC3open(9600, "", 1000, 5), BadSettings);
    EXPECT_EQ(library_.DPC3open(9600, nullptr, 1000, 5), BadSettings);
    EXPECT_EQ(library_.DPC3open(300, "COM4", -1, 255), Done) << "the two constants are not looked at";
}

TEST_F(Fluke74xTransfer, TheCalibratorSaysWhoItIs) {
    OutTexts out;
    ASSERT_EQ(open(), Done);
    EXPECT_EQ(identify(out), Done);
    EXPECT_FALSE(QFile::exists(file())) << "asking makes no memory";
    EXPECT_EQ(out.first, QByteArray("743B\0", 5) + QByteArray(35, ' '));
    EXPECT_EQ(out.second, QByteArray("7112044\0", 8) + QByteArray(32, ' '));
    EXPECT_EQ(out.third.left(5), QByteArray("V3.1\0", 5));
    library_.DPC3close();
    keep([](Memory& memory) {
        memory.identity = {u"744 of fifteen c"_s.left(15), u"123456789"_s, {}, 1000};
    });
    ASSERT_EQ(open(), Done);
    EXPECT_EQ(identify(out), Done);
    EXPECT_EQ(out.first.left(17), QByteArray("744 of fifteen \0 ", 17));
    EXPECT_EQ(out.second.left(11), QByteArray("123456789\0 ", 11)) << "its zero is within the length";
    EXPECT_EQ(library_.DPC3get74X(out.first.data(), 4, out.second.data(), 1, out.third.data(), 40,
                                  &out.numbers[0], &out.numbers[1], &out.numbers[2]),
              Done);
    EXPECT_EQ(out.first.left(5), QByteArray("744\0o", 5)) << "cut to the length that is given";
    EXPECT_EQ(out.second.left(2), QByteArray("\0002", 2));
}

TEST_F(Fluke74xTransfer, TheMapsComeInSteps) {
    qint32 count = 0;
    ASSERT_EQ(open(), Done);
    EXPECT_EQ(library_.DPC3mapStep(&count), OutOfStep) << "before the start";
    ASSERT_EQ(library_.DPC3mapStart(&count), Done);
    EXPECT_EQ(count, 7);
    for (qint32 other : {0, -1, 6, 8, 2147483647})
        EXPECT_EQ(library_.DPC3mapStep(&other), OutOfStep) << other;
    while (count > 0) {
        EXPECT_FALSE(areMapsThere()) << count;
        const qint32 before = count;
        ASSERT_EQ(library_.DPC3mapStep(&count), Done);
        EXPECT_EQ(count, before - 1);
    }
    EXPECT_TRUE(areMapsThere());
    EXPECT_EQ(library_.DPC3mapStep(&count), OutOfStep) << "behind the last";
}

TEST_F(Fluke74xTransfer, TheMapsStayWhenTheLinkIsClosedAndOpenedAgain) {
    ASSERT_EQ(fetchMaps(), Done);
    library_.DPC3close();
    EXPECT_TRUE(areMapsThere());
    library_.MEM3clear();
    EXPECT_TRUE(areMapsThere());
    ASSERT_EQ(open(), Done);
    EXPECT_TRUE(areMapsThere());
    qint32 count = 0;
    ASSERT_EQ(library_.DPC3mapStart(&count), Done);
    EXPECT_TRUE(areMapsThere()) << "those that are there are good until the new ones are";
}

TEST_F(Fluke74xTransfer, AnotherCalibratorHasMapsOfItsOwn) {
    ASSERT_EQ(fetchMaps(), Done);
    library_.DPC3close();
    beAnotherCalibrator(u"7112045"_s);
    EXPECT_TRUE(areMapsThere()) << "as long as the link is closed";
    ASSERT_EQ(open(), Done);
    EXPECT_FALSE(areMapsThere());
    ASSERT_EQ(fetchMaps(), Done);
    EXPECT_TRUE(areMapsThere());
}

TEST_F(Fluke74xTransfer, MapsThatBreakOffDoNotGoOn) {
    qint32 count = 0;
    ASSERT_EQ(open(), Done);
    ASSERT_EQ(library_.DPC3mapStart(&count), Done);
    ASSERT_EQ(library_.DPC3mapStep(&count), Done);
    library_.DPC3close();
    ASSERT_EQ(open(), Done);
    EXPECT_EQ(library_.DPC3mapStep(&count), OutOfStep);
    EXPECT_FALSE(areMapsThere());
}

TEST_F(Fluke74xTransfer, ADownloadKeepsThreeNumbersFromStepToStep) {
    ASSERT_EQ(fetchMaps(), Done);
    defineTask("A");
    defineTask("B");
    qint32 count = 0;
    ASSERT_EQ(startDownload(count), Done);
    EXPECT_EQ(count, 3);
    References before;
    while (count > 0) {
        for (qint32 References::*const number :
             {&References::first, &References::second, &References::third}) {
            const References good = kept_;
            ++(kept_.*number);
            const qint32 left = count;
            EXPECT_EQ(stepDownload(count), BadArgument);
            EXPECT_EQ(count, left);
            kept_ = good;
        }
        ASSERT_EQ(stepDownload(count), Done);
        EXPECT_NE(kept_.first, before.first);
        EXPECT_NE(kept_.second, before.second);
        EXPECT_NE(kept_.third, before.third);
        before = kept_;
    }
    EXPECT_EQ(storedMemory().contents.tasks.size(), 2U);
}

TEST_F(Fluke74xTransfer, EachDownloadBeginsItsNumbersAnew) {
    ASSERT_EQ(open(), Done);
    for (int number = 0; number < 2; ++number) {
        qint32 count = 0;
        ASSERT_EQ(startDownload(count), Done);
        EXPECT_EQ(stepDownload(count), Done);
    }
    qint32 count = 0;
    ASSERT_EQ(library_.DPC3dnlStart(&count), Done);
    EXPECT_EQ(stepDownload(count), BadArgument) << "those of the transfer before";
}

TEST_F(Fluke74xTransfer, TheNumberOfStepsDependsOnTheContents) {
    const auto steps = [&](Library::Status (Library::*start)(qint32*)) {
        qint32 count = 0;
        EXPECT_EQ(fetchMaps(), Done);
        EXPECT_EQ((library_.*start)(&count), Done);
        return count;
    };
    EXPECT_EQ(steps(&Library::DPC3dnlStart), 1);
    EXPECT_EQ(steps(&Library::DPC3uplStart), 1);
    defineTask("A");
    defineTask("B");
    EXPECT_EQ(steps(&Library::DPC3dnlStart), 3);
    fillCalibrator();
    EXPECT_EQ(steps(&Library::DPC3uplStart), 5);
}

TEST_F(Fluke74xTransfer, ADownloadReplacesAllThatTheCalibratorHeld) {
    fillCalibrator();
    ASSERT_EQ(fetchMaps(), Done);
    defineTask("TIT-201", "None");
    ASSERT_EQ(download(), Done);
    const Contents now = storedMemory().contents;
    EXPECT_EQ(now.strategies, (std::vector<Strategy>{{u"LINEARITY"_s, {0, 0.5F, 1}}}));
    EXPECT_EQ(now.tasks, (std::vector<Task>{{u"TIT-201"_s, {}, {}, 1, 1, {}, u"TIT-201"_s, u"None"_s}}));
    EXPECT_TRUE(now.prompts.empty());
    EXPECT_TRUE(now.runs.empty()) << "results go with what they belonged to";
    EXPECT_EQ(storedMemory().identity, Identity());
}

TEST_F(Fluke74xTransfer, ADownloadAfterTheLinkWasClosedAndOpenedNeedsNoNewMaps) {
    ASSERT_EQ(fetchMaps(), Done);
    defineTask("A");
    library_.DPC3close();
    ASSERT_EQ(open(), Done);
    qint32 count = 0;
    ASSERT_EQ(startDownload(count), Done);
    while (count > 0)
        ASSERT_EQ(stepDownload(count), Done);
    EXPECT_EQ(storedMemory().contents.tasks.size(), 1U);
}

TEST_F(Fluke74xTransfer, AnUploadBringsTheImageWhatTheCalibratorHolds) {
    fillCalibrator();
    const Memory before = storedMemory();
    ASSERT_EQ(fetchMaps(), Done);
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

TEST_F(Fluke74xTransfer, ASecondPassOfAnUploadBringsTheSameAgain) {
    fillCalibrator();
    ASSERT_EQ(fetchMaps(), Done);
    qint32 groups = 0;
    qint32 atoms = 0;
    for (int pass = 0; pass < 2; ++pass) {
        qint32 count = 0;
        ASSERT_EQ(library_.DPC3uplStart(&count), Done);
        while (count > 0)
            ASSERT_EQ(library_.DPC3uplStep(&count), Done);
        EXPECT_EQ(library_.MEM3ngroups(2, &groups), Done);
        EXPECT_EQ(groups, 1);
        EXPECT_EQ(library_.MEM3natoms(2, 0, &atoms), Done);
        EXPECT_EQ(atoms, 10);
    }
}

TEST_F(Fluke74xTransfer, ADownloadThatNeverBeganChangesNothing) {
    fillCalibrator();
    const Memory before = storedMemory();
    ASSERT_EQ(fetchMaps(), Done);
    defineTask("A");
    qint32 count = 0;
    ASSERT_EQ(startDownload(count), Done);
    library_.DPC3close();
    EXPECT_EQ(storedMemory(), before);
}

TEST_F(Fluke74xTransfer, ADownloadThatBreaksOffLeavesTheCalibratorEmpty) {
    fillCalibrator();
    ASSERT_EQ(fetchMaps(), Done);
    defineTask("A");
    defineTask("B");
    qint32 count = 0;
    ASSERT_EQ(startDownload(count), Done);
    ASSERT_EQ(stepDownload(count), Done);
    EXPECT_EQ(storedMemory(), Memory());
    ASSERT_EQ(stepDownload(count), Done);
    EXPECT_EQ(storedMemory(), Memory());
    library_.DPC3close();
    ASSERT_EQ(open(), Done);
    EXPECT_EQ(stepDownload(count), OutOfStep) << "it does not go on by itself";
    EXPECT_EQ(download(), Done) << "the image is still there";
    EXPECT_EQ(storedMemory().contents.tasks.size(), 2U);
}

TEST_F(Fluke74xTransfer, AnOpenTaskIsNotTransferred) {
    startTask();
    EXPECT_EQ(download(), OutOfStep);
    EXPECT_EQ(upload(), OutOfStep);
    library_.MEM3clear();
    EXPECT_EQ(download(), Done);
}

TEST_F(Fluke74xTransfer, MoreTasksThanItTakesAreRefusedBeforeAnythingIsErased) {
    fillCalibrator();
    keep([](Memory& memory) { memory.identity.room = 1; });
    const Memory before = storedMemory();
    ASSERT_EQ(fetchMaps(), Done);
    defineTask("A");
    defineTask("B");
    EXPECT_EQ(download(), NoRoom);
    EXPECT_EQ(storedMemory(), before);
    library_.MEM3clear();
    defineTask("A");
    EXPECT_EQ(download(), Done);
}

TEST_F(Fluke74xTransfer, TakesTheMostInstrumentsOfAPackage) {
    ASSERT_EQ(fetchMaps(), Done);
    for (int number = 0; number < 501; ++number)
        defineTask(QByteArray::number(number).constData());
    ASSERT_EQ(download(), Done);
    EXPECT_EQ(storedMemory().contents.tasks.size(), 501U);
    ASSERT_EQ(upload(), Done);
}

TEST_F(Fluke74xTransfer, ADamagedMemoryIsNoCalibratorAndIsLeftAlone) {
    folder_.put(u"fluke74x.json"_s, "{ half a mem");
    EXPECT_EQ(open(), NoAnswer);
    qint32 count = 0;
    EXPECT_EQ(startDownload(count), NotOpen);
    EXPECT_EQ(folder_.contentOf(u"fluke74x.json"_s), "{ half a mem");
    ASSERT_TRUE(QFile::remove(file()));
    EXPECT_EQ(open(), Done);
}

TEST_F(Fluke74xTransfer, AMemoryThatIsDamagedMeanwhileFailsTheTransfer) {
    ASSERT_EQ(fetchMaps(), Done);
    defineTask("A");
    qint32 count = 0;
    ASSERT_EQ(startDownload(count), Done);
    folder_.put(u"fluke74x.json"_s, "{ half a mem");
    EXPECT_EQ(stepDownload(count), CantWrite);
    EXPECT_EQ(startDownload(count), CantWrite);
    EXPECT_EQ(library_.DPC3uplStart(&count), CantRead);
    EXPECT_EQ(folder_.contentOf(u"fluke74x.json"_s), "{ half a mem");
}

TEST_F(Fluke74xTransfer, AMemoryThatCantBeReachedOrWrittenIsAFailure) {
    library_.setEnvironment({folder_.path(u"nowhere/memory.json"_s), {}, {}});
    EXPECT_EQ(open(), NoAnswer);
    library_.setEnvironment(environment());
    ASSERT_TRUE(QDir().mkpath(file() + u".new"_s));
    EXPECT_EQ(download(), CantWrite);
}

} // namespace kelvane::simulators::fluke74x
