#include "tests/simulators/fluke702_bench.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibrary>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke702 {

namespace {

using Status = std::int16_t;

/// The library as a workstation loads it.
class LoadedFluke702 : public Fluke702Bench {
  protected:
    LoadedFluke702() {
        qputenv("KELVANE_FLUKE702_MEMORY", file().toLocal8Bit());
        EXPECT_TRUE(loaded_.load()) << loaded_.errorString().toStdString();
        at<Status()>("MEMclear")();
        at<Status()>("DPCclose")();
    }
    ~LoadedFluke702() override {
        for (const char* const name :
             {"KELVANE_FLUKE702_MEMORY", "KELVANE_FLUKE702_FAULTS", "KELVANE_FLUKE702_RECORD"})
            qunsetenv(name);
    }

    template <class Operation>
    Operation* at(const char* name) {
        return reinterpret_cast<Operation*>(loaded_.resolve(name));
    }
    Status openLink() {
        return at<Status(std::int32_t, const char*, std::int32_t, std::uint8_t)>("DPCopen")(9600, "COM1",
                                                                                            1000, 5);
    }

    QLibrary loaded_{QDir(QCoreApplication::applicationDirPath()).filePath(u"dpclnk"_s)};
};

} // namespace

TEST_F(LoadedFluke702, HasEachOperation) {
    for (const char* const name : operationNames())
        EXPECT_NE(loaded_.resolve(name), nullptr) << name;
    EXPECT_EQ(loaded_.resolve("MEMnone"), nullptr);
}

TEST_F(LoadedFluke702, MovesItsImageToTheFileThatTheEnvironmentNames) {
    EXPECT_EQ(at<Status(const char*, const char*)>("MEMpromptDefn")("KEY", "text"), Done);
    EXPECT_EQ(openLink(), Done);
    std::int32_t count = 0;
    EXPECT_EQ(at<Status(std::int32_t*)>("DPCdnlStart")(&count), Done);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(at<Status(std::int32_t*)>("DPCdnlStep")(&count), Done);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(storedMemory().contents.prompts, (std::vector<Prompt>{{u"KEY"_s, u"text"_s}}));
}

TEST_F(LoadedFluke702, GivesItsRecordsBack) {
    fillCalibrator();
    EXPECT_EQ(openLink(), Done);
    std::int32_t count = 0;
    EXPECT_EQ(at<Status(std::int32_t*)>("DPCuplStart")(&count), Done);
    while (count > 0)
        ASSERT_EQ(at<Status(std::int32_t*)>("DPCuplStep")(&count), Done);
    float real[5]{};
    std::int16_t small[2]{};
    const auto entry = at<Status(std::int32_t, std::int16_t, float*, std::int16_t*, float*, float*,
                                 std::int16_t*, float*, float*)>("MEMcalResultEntry");
    EXPECT_EQ(entry(0, 1, &real[0], &small[0], &real[1], &real[2], &small[1], &real[3], &real[4]), Done);
    EXPECT_EQ(real[0], 0.012F);
    EXPECT_EQ(real[2], 75);
    OutTexts out;
    EXPECT_EQ((at<Status(std::int32_t, char*, char*, char*)>("MEMtagidInfo")(
                  0, out.first.data(), out.second.data(), out.third.data())),
              Done);
    EXPECT_EQ(out.first.left(7), QByteArray("PT-103\0", 7));
}

TEST_F(LoadedFluke702, TakesFaultsAndRecordFromTheEnvironmentAsItRuns) {
    qputenv("KELVANE_FLUKE702_FAULTS", "MEMclear*1=2023");
    qputenv("KELVANE_FLUKE702_RECORD", folder_.path(u"record"_s).toLocal8Bit());
    EXPECT_EQ(at<Status()>("MEMclear")(), 2023);
    EXPECT_EQ(at<Status()>("MEMclear")(), Done);
    EXPECT_EQ(folder_.contentOf(u"record"_s), "MEMclear() = 2023\nMEMclear() = 0\n");
    qputenv("KELVANE_FLUKE702_FAULTS", "nonsense");
    EXPECT_EQ(openLink(), NoAnswer);
    qunsetenv("KELVANE_FLUKE702_FAULTS");
    EXPECT_EQ(openLink(), Done);
}

} // namespace kelvane::simulators::fluke702
