#include "tests/simulators/fluke702_bench.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke702 {

namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();

} // namespace

using Fluke702Image = Fluke702Bench;

TEST_F(Fluke702Image, GivesIdsThatCountFromOne) {
    EXPECT_EQ(defineStrategy(), 1);
    EXPECT_EQ(defineStrategy(), 2);
    EXPECT_EQ(saveState(), 1);
    EXPECT_EQ(saveState(), 2);
    EXPECT_EQ(library_.MEMclear(), Done);
    EXPECT_EQ(defineStrategy(), 1);
    EXPECT_EQ(saveState(), 1);
}

TEST_F(Fluke702Image, AStrategyHasAShortNameAndOneToFiftyPointsNearTheRange) {
    const std::vector<float> many(60, 0.5F);
    const float outside[] = {0, 2.01F};
    const float below[] = {-1.01F};
    const float none[] = {0.5F, notANumber};
    const float endless[] = {infinity};
    const struct {
        const char* name;
        int count;
        const float* points;
        int status;
    } cases[] = {
        {"LINEARITY FIV", 50, many.data(), Done},
        {"S", 1, many.data(), Done},
        {"S", 51, many.data(), BadStrategy},
        {"S", 0, many.data(), BadStrategy},
        {"S", -1, many.data(), BadStrategy},
        {"S", 32767, many.data(), BadStrategy},
        {"", 5, many.data(), BadStrategy},
        {"LINEARITY FIVE", 5, many.data(), BadStrategy},
        {"S", 2, outside, BadStrategy},
        {"S", 1, below, BadStrategy},
        {"S", 2, none, BadStrategy},
        {"S", 1, endless, BadStrategy},
        {"S", 5, nullptr, BadArgument},
        {nullptr, 5, many.data(), BadArgument},
    };
    for (const auto& entry : cases) {
        qint32 id = -7;
        EXPECT_EQ(library_.MEMstrategyDefn(&id, entry.name, static_cast<qint16>(entry.count), entry.points),
                  entry.status)
            << (entry.name ? entry.name : "null") << ' ' << entry.count;
        EXPECT_EQ(id > 0, entry.status == Done) << "an id only for what was taken";
    }
    EXPECT_EQ(library_.MEMstrategyDefn(nullptr, "S", 1, many.data()), BadArgument);
}

TEST_F(Fluke702Image, APromptHasAKeyOfItsOwnAndAtMost255Characters) {
    const QByteArray longest(255, 'x');
    EXPECT_EQ(library_.MEMpromptDefn("ABCDEFGHIJ", longest.constData()), Done);
    EXPECT_EQ(library_.MEMpromptDefn("EMPTY", ""), Done);
    EXPECT_EQ(library_.MEMpromptDefn("K", (longest + 'x').constData()), PromptTooLong);
    EXPECT_EQ(library_.MEMpromptDefn("K", QByteArray(5'000'000, 'x').constData()), PromptTooLong);
    EXPECT_EQ(library_.MEMpromptDefn("ABCDEFGHIJK", "x"), TooLong);
    EXPECT_EQ(library_.MEMpromptDefn("", "x"), BadArgument);
    EXPECT_EQ(library_.MEMpromptDefn("EMPTY", "again"), BadArgument);
    EXPECT_EQ(library_.MEMpromptDefn(nullptr, "x"), BadArgument);
    EXPECT_EQ(library_.MEMpromptDefn("K", nullptr), BadArgument);
}

TEST_F(Fluke702Image, ATagHasOneTo29Characters) {
    const QByteArray longest(29, 'T');
    EXPECT_EQ(library_.MEMstartTask(""), BadArgument);
    EXPECT_EQ(library_.MEMstartTask(nullptr), BadArgument);
    EXPECT_EQ(library_.MEMstartTask((longest + 'T').constData()), TooLong);
    EXPECT_EQ(library_.MEMstartTask(longest.constData()), Done);
    const qint32 strategy = defineStrategy();
    const qint32 state = saveState();
    EXPECT_EQ(library_.MEMtemplate(strategy, 0, (longest + 'T').constData(), "S", state), TooLong);
    EXPECT_EQ(library_.MEMtemplate(strategy, 0, "T", QByteArray(33, 'S').constData(), state), TooLong);
    EXPECT_EQ(library_.MEMtemplate(strategy, 0, nullptr, "S", state), BadArgument);
    EXPECT_EQ(library_.MEMtemplate(strategy, 0, "T", nullptr, state), BadArgument);
    EXPECT_EQ(library_.MEMtemplate(strategy, 0, longest.constData(), QByteArray(32, 'S').constData(), state),
              Done);
}

TEST_F(Fluke702Image, ATemplateNamesAStrategyAndAStateThatAreThere) {
    const qint32 strategy = defineStrategy();
    const qint32 state = saveState();
    ASSERT_EQ(library_.MEMstartTask("PT-103"), Done);
    for (const qint32 unknown :
         {0, -1, 2, std::numeric_limits<qint32>::max(), std::numeric_limits<qint32>::min()}) {
        EXPECT_EQ(library_.MEMtemplate(unknown, 0, "PT-103", "S", state), UnknownId) << unknown;
        EXPECT_EQ(library_.MEMtemplate(strategy, 0, "PT-103", "S", unknown), UnknownId) << unknown;
    }
    EXPECT_EQ(library_.MEMtemplate(strategy, 2, "PT-103", "S", state), BadArgument);
    EXPECT_EQ(library_.MEMtemplate(strategy, -1, "PT-103", "S", state), BadArgument);
    EXPECT_EQ(library_.MEMtemplate(strategy, 1, "PT-103", "S", state), Done);
}

TEST_F(Fluke702Image, AStateBelongsToOneTemplate) {
    const qint32 strategy = defineStrategy();
    const qint32 state = saveState();
    ASSERT_EQ(library_.MEMstartTask("A"), Done);
    ASSERT_EQ(library_.MEMtemplate(strategy, 0, "A", "S", state), Done);
    ASSERT_EQ(library_.MEMendTask(), Done);
    ASSERT_EQ(library_.MEMstartTask("B"), Done);
    EXPECT_EQ(library_.MEMtemplate(strategy, 0, "B", "S", state), StateInUse);
    EXPECT_EQ(library_.MEMtemplate(strategy, 0, "B", "S", saveState()), Done) << "a strategy may be shared";
}

TEST_F(Fluke702Image, ATaskIsBuiltInItsOrder) {
    EXPECT_EQ(library_.MEMpromptDefn("PRE", "x"), Done);
    EXPECT_EQ(library_.MEMprompt("PRE"), OutOfStep);
    EXPECT_EQ(library_.MEMendTask(), OutOfStep);
    const qint32 strategy = defineStrategy();
    const qint32 state = saveState();
    EXPECT_EQ(library_.MEMtemplate(strategy, 0, "A", "S", state), OutOfStep);
    EXPECT_EQ(library_.MEMstartTask("A"), Done);
    EXPECT_EQ(library_.MEMstartTask("B"), OutOfStep);
    EXPECT_EQ(library_.MEMprompt("PST"), UnknownId);
    EXPECT_EQ(library_.MEMprompt(nullptr), BadArgument);
    EXPECT_EQ(library_.MEMprompt("PRE"), Done);
    EXPECT_EQ(library_.MEMendTask(), OutOfStep) << "without a template";
    EXPECT_EQ(library_.MEMtemplate(strategy, 0, "A", "S", state), Done);
    EXPECT_EQ(library_.MEMtemplate(strategy, 0, "A", "S", saveState()), OutOfStep) << "a second template";
    EXPECT_EQ(library_.MEMprompt("PRE"), Done);
    EXPECT_EQ(library_.MEMendTask(), Done);
}

TEST_F(Fluke702Image, TwoTasksMayBearTheSameTag) {
    defineTask("A TAG THAT WAS CUT AT 29 CHAR", "S1");
    defineTask("A TAG THAT WAS CUT AT 29 CHAR", "S2");
    EXPECT_EQ(download(), Done);
    EXPECT_EQ(storedMemory().contents.tasks.size(), 2U);
}

TEST_F(Fluke702Image, ARecordIsThereOrNot) {
    fillCalibrator();
    ASSERT_EQ(upload(), Done);
    qint16 small[7]{};
    qint32 wide[3]{};
    float real[5]{};
    OutTexts out;
    for (const qint32 record :
         {-1, 2, std::numeric_limits<qint32>::max(), std::numeric_limits<qint32>::min()}) {
        EXPECT_EQ(library_.MEMrDir(record, &small[0], &small[1], &small[2], &small[3], &small[4], &small[5],
                                   &small[6]),
                  UnknownId);
        EXPECT_EQ(library_.MEMasflInfo(record, &wide[0], &wide[1], &wide[2]), UnknownId);
        EXPECT_EQ(library_.MEMbaseState(record), UnknownId);
        EXPECT_EQ(library_.MEMtagidInfo(record, out.first.data(), out.second.data(), out.third.data()),
                  UnknownId);
        EXPECT_EQ(library_.MEMcalResult(record, &small[0]), UnknownId);
        EXPECT_EQ(library_.MEMcalResultEntry(record, 0, &real[0], &small[0], &real[1], &real[2], &small[1],
                                             &real[3], &real[4]),
                  UnknownId);
    }
    for (const int entry : {-1, 3, 32767, -32768})
        EXPECT_EQ(library_.MEMcalResultEntry(0, static_cast<qint16>(entry), &real[0], &small[0], &real[1],
                                             &real[2], &small[1], &real[3], &real[4]),
                  UnknownId);
    EXPECT_EQ(out.first, QByteArray(40, ' ')) << "nothing is written";
}

TEST_F(Fluke702Image, ReadsBackWhatTheCalibratorKept) {
    fillCalibrator();
    ASSERT_EQ(upload(), Done);
    qint32 wide[3]{};
    EXPECT_EQ(library_.MEMstats(&wide[0], &wide[1]), Done);
    EXPECT_EQ(wide[0], 2);
    EXPECT_EQ(wide[1], 2);

    qint16 of[7]{};
    EXPECT_EQ(library_.MEMrDir(0, &of[0], &of[1], &of[2], &of[3], &of[4], &of[5], &of[6]), Done);
    EXPECT_EQ((std::vector<int>(of, of + 7)), (std::vector<int>{1, 11, 20, 2026, 9, 15, 30}));
    EXPECT_EQ(library_.MEMasflInfo(1, &wide[0], &wide[1], &wide[2]), Done);
    EXPECT_EQ((std::vector<qint32>(wide, wide + 3)), (std::vector<qint32>{0, 1, 2}));

    OutTexts out;
    EXPECT_EQ(library_.MEMtagidInfo(0, out.first.data(), out.second.data(), out.third.data()), Done);
    EXPECT_EQ(out.first, QByteArray("PT-103\0", 7) + QByteArray(33, ' '))
        << "a zero inside, and nothing changed behind it";
    EXPECT_EQ(out.second.left(7), QByteArray("V88103\0", 7));
    EXPECT_EQ(out.third.left(6), QByteArray("J. \xD6z\0", 6));

    qint16 entries = 0;
    EXPECT_EQ(library_.MEMcalResult(0, &entries), Done);
    EXPECT_EQ(entries, 3);
    float real[5]{};
    EXPECT_EQ(
        library_.MEMcalResultEntry(0, 2, &real[0], &of[0], &real[1], &real[2], &of[1], &real[3], &real[4]),
        Done);
    EXPECT_EQ(real[0], 0.02F);
    EXPECT_EQ(real[2], 150);
    EXPECT_EQ(real[4], -1e38F);
}

TEST_F(Fluke702Image, TheStateOfARecordNamesItsPressureModule) {
    fillCalibrator();
    ASSERT_EQ(upload(), Done);
    OutTexts out;
    EXPECT_EQ(library_.STAgetPressure(out.first.data(), out.second.data(), out.numbers), Done);
    EXPECT_EQ(out.second.at(0), '\0') << "no record has been chosen";
    EXPECT_EQ(library_.MEMbaseState(0), Done);
    EXPECT_EQ(library_.STAgetPressure(out.first.data(), out.second.data(), out.numbers), Done);
    EXPECT_EQ(out.first.left(5), QByteArray("700P\0", 5));
    EXPECT_EQ(out.second.left(6), QByteArray("71204\0", 6));
    EXPECT_EQ(library_.MEMbaseState(1), Done);
    EXPECT_EQ(library_.STAgetPressure(out.first.data(), out.second.data(), out.numbers), Done);
    EXPECT_EQ(out.second.at(0), '\0');
}

TEST_F(Fluke702Image, ARunWithoutATagIsMarkedAsSuch) {
    fillCalibrator();
    keep([](Memory& memory) { memory.contents.runs[0].tag.clear(); });
    ASSERT_EQ(upload(), Done);
    OutTexts out;
    EXPECT_EQ(library_.MEMtagidInfo(0, out.first.data(), out.second.data(), out.third.data()), NoTag);
    EXPECT_EQ(out.first.at(0), '\0');
    EXPECT_EQ(out.second.left(7), QByteArray("V88103\0", 7));
}

TEST_F(Fluke702Image, NullPointersAreRefused) {
    fillCalibrator();
    ASSERT_EQ(upload(), Done);
    ASSERT_EQ(library_.DPCopen(9600, "COM1", 1000, 5), Done);
    qint16 small = 0;
    qint32 wide = 0;
    float real = 0;
    char text[40]{};
    EXPECT_EQ(library_.DPCget70x(nullptr, text, text, &wide, &wide, &wide), BadArgument);
    EXPECT_EQ(library_.DPCget70x(text, text, text, &wide, nullptr, &wide), BadArgument);
    EXPECT_EQ(library_.DPCdnlStart(nullptr), BadArgument);
    EXPECT_EQ(library_.DPCdnlStep(nullptr), BadArgument);
    EXPECT_EQ(library_.DPCuplStart(nullptr), BadArgument);
    EXPECT_EQ(library_.DPCuplStep(nullptr), BadArgument);
    EXPECT_EQ(library_.STAsave(nullptr), BadArgument);
    EXPECT_EQ(library_.STAsetTempUnits(nullptr), BadArgument);
    EXPECT_EQ(library_.STAsetTempStd(nullptr), BadArgument);
    EXPECT_EQ(library_.STAsetPresUnits(nullptr), BadArgument);
    EXPECT_EQ(library_.STAsetLoopPower(nullptr), BadArgument);
    EXPECT_EQ(library_.STAsetTref(nullptr, 0), BadArgument);
    EXPECT_EQ(library_.STAsetOutput(nullptr, "", 0, 0), BadArgument);
    EXPECT_EQ(library_.STAsetOutput("dcv", nullptr, 0, 0), BadArgument);
    EXPECT_EQ(library_.STAsetInput(nullptr, ""), BadArgument);
    EXPECT_EQ(library_.STAsetInput("dcv", nullptr), BadArgument);
    EXPECT_EQ(library_.MEMstats(nullptr, &wide), BadArgument);
    EXPECT_EQ(library_.MEMstats(&wide, nullptr), BadArgument);
    EXPECT_EQ(library_.MEMrDir(0, &small, &small, &small, &small, &small, &small, nullptr), BadArgument);
    EXPECT_EQ(library_.MEMasflInfo(0, nullptr, &wide, &wide), BadArgument);
    EXPECT_EQ(library_.MEMtagidInfo(0, text, nullptr, text), BadArgument);
    EXPECT_EQ(library_.MEMcalResult(0, nullptr), BadArgument);
    EXPECT_EQ(library_.MEMcalResultEntry(0, 0, nullptr, &small, &real, &real, &small, &real, &real),
              BadArgument);
    EXPECT_EQ(library_.MEMcalResultEntry(0, 0, &real, &small, &real, &real, nullptr, &real, &real),
              BadArgument);
    EXPECT_EQ(library_.STAgetPressure(text, nullptr, &wide), BadArgument);
}

} // namespace kelvane::simulators::fluke702
