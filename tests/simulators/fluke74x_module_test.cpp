#include "tests/simulators/fluke74x_bench.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibrary>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke74x {

namespace {

using Status = std::int16_t;
using Wide = std::int32_t;

/// The library as a workstation loads it.
class LoadedFluke74x : public Fluke74xBench {
  protected:
    LoadedFluke74x() {
        qputenv("KELVANE_FLUKE74X_MEMORY", file().toLocal8Bit());
        EXPECT_TRUE(loaded_.load()) << loaded_.errorString().toStdString();
        at<Status()>("MEM3clear")();
        at<Status()>("DPC3close")();
    }
    ~LoadedFluke74x() override {
        for (const char* const name :
             {"KELVANE_FLUKE74X_MEMORY", "KELVANE_FLUKE74X_FAULTS", "KELVANE_FLUKE74X_RECORD"})
            qunsetenv(name);
    }

    template <class Operation>
    Operation* at(const char* name) {
        return reinterpret_cast<Operation*>(loaded_.resolve(name));
    }
    Status openLink() { return at<Status(Wide, const char*, Wide, Wide)>("DPC3open")(9600, "COM1", 1000, 5); }
    void carryThrough(const char* start, const char* step) {
        Wide count = 0;
        EXPECT_EQ(at<Status(Wide*)>(start)(&count), Done);
        while (count > 0)
            ASSERT_EQ(at<Status(Wide*)>(step)(&count), Done);
    }

    QLibrary loaded_{QDir(QCoreApplication::applicationDirPath()).filePath(u"dpclnk3"_s)};
};

} // namespace

TEST_F(LoadedFluke74x, HasEachOperation) {
    for (const char* const name : operationNames())
        EXPECT_NE(loaded_.resolve(name), nullptr) << name;
    EXPECT_EQ(loaded_.resolve("MEM3none"), nullptr);
}

TEST_F(LoadedFluke74x, MovesItsImageToTheFileThatTheEnvironmentNames) {
    Wide kept[3]{};
    const auto define =
        at<Status(Wide*, Wide*, Wide*, const char*, const char*, const char*, const char*)>("MEM3promptDefn");
    EXPECT_EQ(define(&kept[0], &kept[1], &kept[2], "KEY", "text", "ordinary", "helvr12"), Done);
    EXPECT_EQ(openLink(), Done);
    Wide count = 0;
    EXPECT_EQ(at<Status(Wide*)>("DPC3dnlStart")(&count), Done);
    EXPECT_EQ(count, 1);
    kept[0] = kept[1] = kept[2] = 0;
    EXPECT_EQ((at<Status(Wide*, Wide*, Wide*, Wide*)>("DPC3dnlStep")(&count, &kept[0], &kept[1], &kept[2])),
              Done);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(storedMemory().contents.prompts, (std::vector<Prompt>{{u"KEY"_s, u"text"_s}}));
}

TEST_F(LoadedFluke74x, GivesItsResultsBack) {
    fillCalibrator();
    EXPECT_EQ(openLink(), Done);
    carryThrough("DPC3mapStart", "DPC3mapStep");
    carryThrough("DPC3uplStart", "DPC3uplStep");
    Wide state[3]{};
    EXPECT_EQ((at<Status(Wide, Wide, Wide, std::int16_t, Wide*, Wide*, Wide*)>("MEM3instrCalResultStepInfo")(
                  2, 0, 1, 1, &state[0], &state[1], &state[2])),
              Done);
    EXPECT_EQ((at<Status(Wide, Wide, Wide)>("STA3restore")(state[0], state[1], state[2])), Done);
    float value = 0;
    EXPECT_EQ((at<Status(const char*, const char*, float*)>("STA3getFloat")("root", "sprimary", &value)),
              Done);
    EXPECT_EQ(value, 75);
    OutTexts out;
    EXPECT_EQ((at<Status(Wide, Wide, Wide, char*, char*, char*)>("MEM3instrTagInfo")(
                  2, 0, 5, out.first.data(), out.second.data(), out.third.data())),
              Done);
    EXPECT_EQ(out.first.left(7), QByteArray("PT-103\0", 7));
}

TEST_F(LoadedFluke74x, TakesFaultsAndRecordFromTheEnvironmentAsItRuns) {
    qputenv("KELVANE_FLUKE74X_FAULTS", "MEM3clear*1=2004");
    qputenv("KELVANE_FLUKE74X_RECORD", folder_.path(u"record"_s).toLocal8Bit());
    EXPECT_EQ(at<Status()>("MEM3clear")(), 2004);
    EXPECT_EQ(at<Status()>("MEM3clear")(), Done);
    EXPECT_EQ(folder_.contentOf(u"record"_s), "MEM3clear() = 2004\nMEM3clear() = 0\n");
    qputenv("KELVANE_FLUKE74X_FAULTS", "nonsense");
    EXPECT_EQ(openLink(), NoAnswer);
    qunsetenv("KELVANE_FLUKE74X_FAULTS");
    EXPECT_EQ(openLink(), Done);
}

} // namespace kelvane::simulators::fluke74x
