#include "tests/simulators/fluke702_bench.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke702 {

namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();

} // namespace

using Fluke702State = Fluke702Bench;

TEST_F(Fluke702State, WordsAreComparedExactly) {
    const struct {
        Library::Status (Library::*set)(const char*);
        std::vector<const char*> known;
        std::vector<const char*> unknown;
    } cases[] = {
        {&Library::STAsetTempUnits, {"celsius", "fahrenheit"}, {"", "Celsius", "kelvin", "celsius "}},
        {&Library::STAsetTempStd, {"ipts68", "its90"}, {"", "IPTS-68"}},
        {&Library::STAsetPresUnits, {"psi", "in_hg", "in_h2o", "mm_hg", "kpa", "bar"}, {"", "psig", "mbar"}},
        {&Library::STAsetLoopPower, {"off", "24v", "28v"}, {"", "24V", "on"}},
    };
    for (const auto& entry : cases) {
        for (const char* const word : entry.known)
            EXPECT_EQ((library_.*entry.set)(word), Done) << word;
        for (const char* const word : entry.unknown)
            EXPECT_EQ((library_.*entry.set)(word), BadArgument) << word;
        EXPECT_EQ((library_.*entry.set)(QByteArray(1'000'000, 'x').constData()), BadArgument);
    }
    EXPECT_EQ(library_.STAsetTref("measure", 0), Done);
    EXPECT_EQ(library_.STAsetTref("user", 25.5F), Done);
    EXPECT_EQ(library_.STAsetTref("EXT", 0), BadArgument);
    EXPECT_EQ(library_.STAsetTref("user", notANumber), BadArgument);
}

TEST_F(Fluke702State, ModesAndSensorsGoTogether) {
    const struct {
        const char* source;
        const char* sourceSensor;
        const char* measure;
        const char* measureSensor;
        int status;
    } cases[] = {
        {"dcv", "", "current", "", Done},
        {"current", "", "dcv", "", Done},
        {"freq", "", "freq_low", "", Done},
        {"2w_ohms", "", "acv", "", Done},
        {"pressure", "", "freq", "", Done},
        {"2w_rtd", "rtd_pt100_392", "3w_rtd", "rtd_cu10", Done},
        {"tc", "tc_k", "4w_rtd", "rtd_ni120", Done},
        {"dcv", "", "tc", "tc_u", Done},
        // A sensor in a mode that needs none is passed over.
        {"tc", "tc_j", "dcv", "rtd_pt100_385", Done},
        {"dcv", "", "dcv", "tc_k", Done},
        {"dcv", "pt100", "dcv", "", BadArgument},
        {"", "", "dcv", "", BadArgument},
        {"RTD", "rtd_pt100_385", "dcv", "", BadArgument},
        {"dcv", "", "", "", BadArgument},
        {"dcv", "", "RTD", "rtd_pt100_385", BadArgument},
        {"DCV", "", "dcv", "", BadArgument},
        // What it measures but can't source.
        {"acv", "", "dcv", "", BadCombination},
        {"freq_low", "", "dcv", "", BadCombination},
        {"3w_rtd", "rtd_pt100_385", "dcv", "", BadCombination},
        // A sensor that is missing, or of the other kind.
        {"tc", "", "dcv", "", BadCombination},
        {"tc", "rtd_pt100_385", "dcv", "", BadCombination},
        {"2w_rtd", "tc_k", "dcv", "", BadCombination},
        {"dcv", "", "4w_rtd", "", BadCombination},
        {"dcv", "", "tc", "rtd_cu10", BadCombination},
        // What needs the same jacks on both sides.
        {"pressure", "", "pressure", "", BadCombination},
        {"current", "", "current", "", BadCombination},
        {"tc", "tc_k", "tc", "tc_j", BadCombination},
        {"current", "", "2w_rtd", "rtd_pt100_385", BadCombination},
        {"current", "", "3w_rtd", "rtd_pt100_385", BadCombination},
        {"current", "", "4w_rtd", "rtd_pt100_385", BadCombination},
        {"current", "", "2w_ohms", "", BadCombination},
    };
    for (const auto& entry : cases)
        EXPECT_EQ(tryState(entry.source, entry.sourceSensor, entry.measure, entry.measureSensor),
                  entry.status)
            << entry.source << ' ' << entry.sourceSensor << " / " << entry.measure << ' '
            << entry.measureSensor;
}

TEST_F(Fluke702State, ASetupThatLacksAModeIsNotSaved) {
    qint32 id = 0;
    EXPECT_EQ(library_.STAsave(&id), BadCombination);
    EXPECT_EQ(library_.STAsetOutput("dcv", "", 0, 0), Done);
    EXPECT_EQ(library_.STAsave(&id), BadCombination);
    EXPECT_EQ(library_.STAsetInput("dcv", ""), Done);
    EXPECT_EQ(library_.STAsave(&id), Done);
    EXPECT_EQ(library_.STAinit(), Done);
    EXPECT_EQ(library_.STAsave(&id), BadCombination) << "a new state begins without modes";
}

TEST_F(Fluke702State, TheScaleOfASourceLiesWithinWhatItSources) {
    const struct {
        const char* mode;
        float most;
        float tooMuch;
    } cases[] = {
        {"dcv", 11, 11.2F}, {"current", 0.022F, 0.0225F}, {"2w_ohms", 11000, 11200}, {"freq", 50000, 51000}};
    for (const auto& entry : cases) {
        ASSERT_EQ(library_.STAsetOutput(entry.mode, "", 0, 0), Done);
        EXPECT_EQ(library_.STAsetOutputScale(entry.most, 0), Done) << entry.mode;
        EXPECT_EQ(library_.STAsetOutputScale(0, -entry.most), Done) << entry.mode;
        EXPECT_EQ(library_.STAsetOutputScale(entry.tooMuch, 0), SourceOutOfRange) << entry.mode;
        EXPECT_EQ(library_.STAsetOutputScale(0, -entry.tooMuch), SourceOutOfRange) << entry.mode;
    }
    ASSERT_EQ(library_.STAsetOutput("pressure", "", 0, 0), Done);
    EXPECT_EQ(library_.STAsetOutputScale(30000, -15), Done);
}

TEST_F(Fluke702State, OnlyNumbersAreTaken) {
    for (const float number : {infinity, -infinity, notANumber}) {
        EXPECT_EQ(library_.STAsetOutput("freq", "", number, 0), SourceOutOfRange);
        EXPECT_EQ(library_.STAsetOutput("freq", "", 0, number), SourceOutOfRange);
        EXPECT_EQ(library_.STAsetOutputScale(number, 0), BadArgument);
        EXPECT_EQ(library_.STAsetOutputScale(0, number), BadArgument);
        EXPECT_EQ(library_.STAsetInputScale(number, 0), BadArgument);
        EXPECT_EQ(library_.STAsetInputScale(0, number), BadArgument);
        EXPECT_EQ(library_.STAsetTestTolerance(number), BadArgument);
        EXPECT_EQ(library_.STAsetInputRange(0, number), BadRange);
    }
    EXPECT_EQ(library_.STAsetInputRange(2, 1), BadArgument);
    EXPECT_EQ(library_.STAsetInputRange(-1, 1), BadArgument);
    EXPECT_EQ(library_.STAsetInputRange(1, 0), Done);
    EXPECT_EQ(library_.STAsetInputRange(0, 300), Done) << "beyond the widest range is the widest";
}

TEST_F(Fluke702State, ASavedStateHoldsWhatWasSet) {
    EXPECT_EQ(library_.STAinit(), Done);
    EXPECT_EQ(library_.STAsetTempUnits("fahrenheit"), Done);
    EXPECT_EQ(library_.STAsetTref("user", 71.5F), Done);
    EXPECT_EQ(library_.STAsetTempStd("ipts68"), Done);
    EXPECT_EQ(library_.STAsetPresUnits("mm_hg"), Done);
    EXPECT_EQ(library_.STAsetOutput("freq", "", 1000, 0.005F), Done);
    EXPECT_EQ(library_.STAsetInput("2w_rtd", "rtd_cu10"), Done);
    EXPECT_EQ(library_.STAsetInputRange(0, 0.022F), Done);
    EXPECT_EQ(library_.STAsetLoopPower("28v"), Done);
    EXPECT_EQ(library_.STAsetOutputScale(1000, 10), Done);
    EXPECT_EQ(library_.STAsetInputScale(400, 32), Done);
    EXPECT_EQ(library_.STAsetTestTolerance(0.1F), Done);
    qint32 id = 0;
    EXPECT_EQ(library_.STAsave(&id), Done);
    EXPECT_EQ(library_.STAsetTempUnits("celsius"), Done) << "after the save, and so without effect on it";
    EXPECT_EQ(download(), Done);
    const State expected{
        u"fahrenheit"_s, u"user"_s,     71.5F, u"ipts68"_s, u"mm_hg"_s, u"freq"_s,  {},        1000, 0.005F,
        u"2w_rtd"_s,     u"rtd_cu10"_s, false, 0.022F,      u"28v"_s,   {1000, 10}, {400, 32}, 0.1F};
    EXPECT_EQ(storedMemory().contents.states, std::vector<State>{expected});
}

} // namespace kelvane::simulators::fluke702
