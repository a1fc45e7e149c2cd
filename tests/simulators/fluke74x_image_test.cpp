#include "tests/simulators/fluke74x_bench.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke74x {

class Fluke74xImage : public Fluke74xBench {
  protected:
    Fluke74xImage() { EXPECT_EQ(fetchMaps(), Done); }

    Library::Status startStatus(const char* tag) { return library_.MEM3startTask(&task_, &atom_, tag, ""); }
    Library::Status strategyStatus(const char* name, const float* points, int count) {
        qint32 atom = atom_;
        qint32 id = 0;
        return library_.MEM3strategyDefn(task_, &atom, &id, name, points, static_cast<qint16>(count));
    }
    Library::Status templateStatus(const References& state, int measureByHand, int sourceByHand,
                                   int kind = 2) {
        qint32 place = 0;
        return library_.MEM3instrCalTemplate(task_, atom_, &place, 0, 0, 0, state.first, state.second,
                                             state.third, static_cast<qint16>(measureByHand),
                                             static_cast<qint16>(sourceByHand), kind, "A", "S");
    }
};

TEST_F(Fluke74xImage, ATagHasOneTo29Characters) {
    const QByteArray longest(29, 'T');
    EXPECT_EQ(startStatus(""), BadArgument);
    EXPECT_EQ(startStatus((longest + 'T').constData()), TooLong);
    EXPECT_EQ(startStatus(longest.constData()), Done);
    const References state = saveState();
    EXPECT_EQ(placeTemplate(0, state, (longest + 'T').constData()), TooLong);
    EXPECT_EQ(placeTemplate(0, state, "T", QByteArray(33, 'S').constData()), TooLong);
    EXPECT_EQ(placeTemplate(0, state, longest.constData(), QByteArray(32, 'S').constData()), Done);
}

TEST_F(Fluke74xImage, ATaskGivesItsReferencesWhateverTheyHeld) {
    task_ = 77;
    atom_ = -5;
    startTask();
    EXPECT_NE(task_, 0);
    EXPECT_NE(atom_, 0);
    const qint32 first = task_;
    EXPECT_EQ(placeTemplate(0, saveState()), Done);
    EXPECT_EQ(library_.MEM3endTask(), Done);
    startTask();
    EXPECT_NE(task_, first);
}

TEST_F(Fluke74xImage, ATaskIsBuiltInItsOrder) {
    EXPECT_EQ(definePrompt("PRE"), Done);
    EXPECT_EQ(placePrompt(), OutOfStep);
    EXPECT_EQ(defineStrategy(), 0) << "outside a task";
    EXPECT_EQ(placeTemplate(0, saveState()), OutOfStep);
    EXPECT_EQ(library_.MEM3endTask(), OutOfStep);
    startTask();
    EXPECT_EQ(startStatus("B"), OutOfStep);
    EXPECT_EQ(library_.MEM3endTask(), OutOfStep) << "without a template";
    EXPECT_EQ(placePrompt(), Done);
    EXPECT_EQ(placeTemplate(0, saveState()), Done);
    EXPECT_EQ(placeTemplate(0, saveState()), OutOfStep) << "a second template";
    EXPECT_EQ(placePrompt(), Done);
    EXPECT_EQ(library_.MEM3endTask(), Done);
}

TEST_F(Fluke74xImage, AReferenceThatIsNotThatOfTheOpenTaskIsRefused) {
    startTask();
    EXPECT_EQ(definePrompt("PRE"), Done);
    const References state = saveState();
    const qint32 task = task_;
    const qint32 atom = atom_;
    for (const auto& entry : {std::pair(task + 1, atom), std::pair(task, atom + 1), std::pair(0, 0)}) {
        task_ = entry.first;
        atom_ = entry.second;
        EXPECT_EQ(placePrompt(), BadArgument);
        EXPECT_EQ(defineStrategy(), 0);
        EXPECT_EQ(placeTemplate(0, state), BadArgument);
    }
    task_ = task;
    atom_ = atom;
    EXPECT_EQ(placeTemplate(0, state), Done);
}

TEST_F(Fluke74xImage, PromptsStandBeforeOrAfterTheTemplateByTheirOrder) {
    startTask("TIT-201");
    EXPECT_EQ(definePrompt("ABCDEFGHIJ", "Vent it \x96 slowly."), Done);
    EXPECT_EQ(placePrompt(), Done);
    EXPECT_EQ(placeTemplate(defineStrategy(), saveState(), "TIT-201", "None"), Done);
    EXPECT_EQ(placePrompt(), Done);
    EXPECT_EQ(definePrompt("KLMNOPQRST", ""), Done);
    EXPECT_EQ(placePrompt(), Done);
    EXPECT_EQ(definePrompt("NOT PLACED"), Done);
    EXPECT_EQ(library_.MEM3endTask(), Done);
    ASSERT_EQ(download(), Done);
    const Contents now = storedMemory().contents;
    EXPECT_EQ(now.prompts, (std::vector<Prompt>{{u"ABCDEFGHIJ"_s, u"Vent it – slowly."_s},
                                                {u"KLMNOPQRST"_s, {}},
                                                {u"NOT PLACED"_s, u"x"_s}}));
    EXPECT_EQ(now.tasks, (std::vector<Task>{{u"TIT-201"_s,
                                             {u"ABCDEFGHIJ"_s},
                                             {u"ABCDEFGHIJ"_s, u"KLMNOPQRST"_s},
                                             1,
                                             1,
                                             {},
                                             u"TIT-201"_s,
                                             u"None"_s}}));
}

TEST_F(Fluke74xImage, APromptHasAKeyOfItsOwnAndAtMost255Characters) {
    const QByteArray longest(255, 'x');
    EXPECT_EQ(definePrompt("ABCDEFGHIJ", longest.constData()), Done);
    EXPECT_EQ(definePrompt("EMPTY", ""), Done);
    EXPECT_EQ(definePrompt("K", (longest + 'x').constData()), TooLong);
    EXPECT_EQ(definePrompt("K", QByteArray(5'000'000, 'x').constData()), TooLong);
    EXPECT_EQ(definePrompt("ABCDEFGHIJK"), TooLong);
    EXPECT_EQ(definePrompt(""), BadArgument);
    EXPECT_EQ(definePrompt("EMPTY", "again"), BadArgument);
}

TEST_F(Fluke74xImage, APromptHasItsStyleAndItsFont) {
    qint32 numbers[3]{};
    const auto define = [&](const char* style, const char* font) {
        return library_.MEM3promptDefn(&numbers[0], &numbers[1], &numbers[2], "K", "x", style, font);
    };
    EXPECT_EQ(define("Ordinary", "helvr12"), BadArgument);
    EXPECT_EQ(define("ordinary", "helvr10"), BadArgument);
    EXPECT_EQ(define("", ""), BadArgument);
    EXPECT_EQ(define("ordinary", "helvr12"), Done);
}

TEST_F(Fluke74xImage, APromptIsPlacedByItsThreeNumbers) {
    startTask();
    EXPECT_EQ(definePrompt("A"), Done);
    const References first = prompt_;
    EXPECT_EQ(definePrompt("B"), Done);
    for (const References& mixed :
         {References{first.first, prompt_.second, prompt_.third}, References{first.first, first.second, 0},
          References{0, 0, 0}, References{99, first.second, first.third}}) {
        prompt_ = mixed;
        EXPECT_EQ(placePrompt(), NotFound);
    }
    prompt_ = first;
    EXPECT_EQ(placePrompt(), Done);
}

TEST_F(Fluke74xImage, AStrategyHasAShortNameAndOneToFiftyPointsNearTheRange) {
    const std::vector<float> many(60, 0.5F);
    const float outside[] = {0, 2.01F};
    const float below[] = {-1.01F};
    const float none[] = {0.5F, std::numeric_limits<float>::quiet_NaN()};
    const struct {
        const char* name;
        int count;
        const float* points;
        int status;
    } cases[] = {
        {"LINEARITY FIFTY", 50, many.data(), Done},
        {"S", 1, many.data(), Done},
        {"T", 51, many.data(), BadArgument},
        {"T", 0, many.data(), BadArgument},
        {"T", -1, many.data(), BadArgument},
        {"T", 32767, many.data(), BadArgument},
        {"", 5, many.data(), BadArgument},
        {"LINEARITY SIXTY6", 5, many.data(), BadArgument},
        {"T", 2, outside, BadArgument},
        {"T", 1, below, BadArgument},
        {"T", 2, none, BadArgument},
        {"T", 5, nullptr, BadArgument},
        {nullptr, 5, many.data(), BadArgument},
    };
    startTask();
    for (const auto& entry : cases)
        EXPECT_EQ(strategyStatus(entry.name, entry.points, entry.count), entry.status)
            << (entry.name ? entry.name : "null") << ' ' << entry.count;
}

TEST_F(Fluke74xImage, AStrategyIsFoundByItsName) {
    const auto find = [&](const char* name, qint32& id) {
        qint32 strategy = -7;
        const Library::Status status = library_.MEM3findStrategyDefn(1, name, &strategy, &id);
        EXPECT_EQ(strategy == -7, status != Done) << "nothing is written when there is none";
        return status;
    };
    qint32 id = -7;
    EXPECT_EQ(find("LINEARITY", id), NotFound);
    EXPECT_EQ(id, -7);
    startTask();
    EXPECT_EQ(defineStrategy("OTHER"), 1);
    EXPECT_EQ(defineStrategy("LINEARITY"), 2);
    EXPECT_EQ(find("LINEARITY", id), Done);
    EXPECT_EQ(id, 2);
    EXPECT_EQ(find("Linearity", id), NotFound);
    EXPECT_EQ(find("", id), NotFound);
    qint32 strategy = 0;
    EXPECT_EQ(library_.MEM3findStrategyDefn(2, "LINEARITY", &strategy, &id), BadArgument);
    EXPECT_EQ(library_.MEM3clear(), Done);
    EXPECT_EQ(find("LINEARITY", id), NotFound);
}

TEST_F(Fluke74xImage, AStrategyThatIsDefinedAgainKeepsItsIdAndItsPoints) {
    startTask();
    EXPECT_EQ(defineStrategy("A", {0, 1}), 1);
    EXPECT_EQ(defineStrategy("B", {0, 1}), 2);
    EXPECT_EQ(defineStrategy("A", {0, 1}), 1);
    const float others[] = {0, 0.5F, 1};
    EXPECT_EQ(strategyStatus("A", others, 3), BadArgument);
    EXPECT_EQ(strategyStatus("A", others, 1), BadArgument);
    EXPECT_EQ(placeTemplate(1, saveState()), Done);
    EXPECT_EQ(library_.MEM3endTask(), Done);
    ASSERT_EQ(download(), Done);
    EXPECT_EQ(storedMemory().contents.strategies,
              (std::vector<Strategy>{{u"A"_s, {0, 1}}, {u"B"_s, {0, 1}}}));
}

TEST_F(Fluke74xImage, TheStrategysAtomComesOutAndIsNotTheTasks) {
    startTask();
    qint32 atom = atom_;
    qint32 id = 0;
    const float points[] = {0, 1};
    EXPECT_EQ(library_.MEM3strategyDefn(task_, &atom, &id, "A", points, 2), Done);
    EXPECT_NE(atom, atom_);
    EXPECT_EQ(library_.MEM3strategyDefn(task_, &atom, &id, "B", points, 2), BadArgument)
        << "the task's has to go in again";
    qint32 strategy = 0;
    EXPECT_EQ(library_.MEM3findStrategyDefn(1, "A", &strategy, &id), Done);
    EXPECT_EQ(strategy, atom);
}

TEST_F(Fluke74xImage, Bytes140And141OfANameAreKept) {
    startTask();
    for (const char* const name : {"\x8C"
                                   "2",
                                   "\x8D"
                                   "2",
                                   "\x8C\x8D"
                                   "11"})
        EXPECT_NE(defineStrategy(name, {0, 1}), 0);
    qint32 strategy = 0;
    qint32 id = 0;
    EXPECT_EQ(library_.MEM3findStrategyDefn(1,
                                            "\x8C\x8D"
                                            "11",
                                            &strategy, &id),
              Done);
    EXPECT_EQ(id, 3);
    EXPECT_EQ(placeTemplate(id, saveState()), Done);
    EXPECT_EQ(library_.MEM3endTask(), Done);
    ASSERT_EQ(download(), Done);
    ASSERT_EQ(upload(), Done);
    EXPECT_EQ(library_.MEM3findStrategyDefn(1,
                                            "\x8D"
                                            "2",
                                            &strategy, &id),
              Done);
    EXPECT_EQ(id, 2);
}

TEST_F(Fluke74xImage, ATemplateNamesAStrategyAndAStateThatAreThere) {
    startTask();
    const qint32 strategy = defineStrategy();
    const References state = saveState();
    for (const qint32 unknown :
         {-1, 2, std::numeric_limits<qint32>::max(), std::numeric_limits<qint32>::min()}) {
        EXPECT_EQ(placeTemplate(unknown, state), NotFound) << unknown;
        EXPECT_EQ(placeTemplate(strategy, {unknown, state.second, state.third}), NotFound) << unknown;
        EXPECT_EQ(placeTemplate(strategy, {state.first, unknown == -1 ? 0 : unknown, state.third}), NotFound);
        EXPECT_EQ(placeTemplate(strategy, {state.first, state.second, unknown == -1 ? 0 : unknown}),
                  NotFound);
    }
    EXPECT_EQ(placeTemplate(strategy, state), Done);
}

TEST_F(Fluke74xImage, ATemplateMayHaveNoStrategy) {
    startTask();
    EXPECT_EQ(placeTemplate(0, saveState()), Done);
    EXPECT_EQ(library_.MEM3endTask(), Done);
    ASSERT_EQ(download(), Done);
    EXPECT_EQ(storedMemory().contents.tasks.front().strategy, 0);
}

TEST_F(Fluke74xImage, TheFlagsOfATemplateAgreeWithTheErrorWordOfItsState) {
    const struct {
        const char* word;
        int measureByHand;
        int sourceByHand;
    } cases[] = {{"Normal", 0, 0}, {"UEV Measure", 1, 0}, {"UEV Source", 0, 1}, {"UEV Measure Source", 1, 1}};
    for (const auto& entry : cases) {
        const References state = saveState(entry.word);
        EXPECT_EQ(library_.MEM3startTask(&task_, &atom_, "A", ""), Done);
        EXPECT_EQ(templateStatus(state, 1 - entry.measureByHand, entry.sourceByHand), BadArgument);
        EXPECT_EQ(templateStatus(state, entry.measureByHand, 1 - entry.sourceByHand), BadArgument);
        EXPECT_EQ(templateStatus(state, 2, entry.sourceByHand), BadArgument);
        EXPECT_EQ(templateStatus(state, entry.measureByHand, -1), BadArgument);
        EXPECT_EQ(templateStatus(state, entry.measureByHand, entry.sourceByHand, 1), BadArgument)
            << "the constant is 2";
        EXPECT_EQ(templateStatus(state, entry.measureByHand, entry.sourceByHand), Done) << entry.word;
        EXPECT_EQ(library_.MEM3endTask(), Done);
    }
    ASSERT_EQ(download(), Done);
    const std::vector<Task> tasks = storedMemory().contents.tasks;
    EXPECT_EQ(tasks[1].byHand, (ByHand{true, false}));
    EXPECT_EQ(tasks[3].byHand, (ByHand{true, true}));
}

TEST_F(Fluke74xImage, TwoTasksMayBearTheSameTag) {
    defineTask("A TAG THAT WAS CUT AT 29 CHAR", "S1");
    defineTask("A TAG THAT WAS CUT AT 29 CHAR", "S2");
    EXPECT_EQ(download(), Done);
    EXPECT_EQ(storedMemory().contents.tasks.size(), 2U);
}

TEST_F(Fluke74xImage, NullPointersAreRefused) {
    qint32 wide = 0;
    qint16 small = 0;
    float real = 0;
    char text[40]{};
    const float points[] = {0};
    startTask();
    EXPECT_EQ(library_.DPC3get74X(nullptr, 16, text, 10, text, 40, &wide, &wide, &wide), BadArgument);
    EXPECT_EQ(library_.DPC3get74X(text, 0, text, 10, text, 40, &wide, &wide, &wide), BadArgument);
    EXPECT_EQ(library_.DPC3get74X(text, 16, text, 10, text, 40, &wide, nullptr, &wide), BadArgument);
    EXPECT_EQ(library_.DPC3mapStart(nullptr), BadArgument);
    EXPECT_EQ(library_.DPC3mapStep(nullptr), BadArgument);
    EXPECT_EQ(library_.DPC3dnlStart(nullptr), BadArgument);
    EXPECT_EQ(library_.DPC3dnlStep(nullptr, &wide, &wide, &wide), BadArgument);
    EXPECT_EQ(library_.DPC3dnlStep(&wide, &wide, &wide, nullptr), BadArgument);
    EXPECT_EQ(library_.DPC3uplStart(nullptr), BadArgument);
    EXPECT_EQ(library_.DPC3uplStep(nullptr), BadArgument);
    EXPECT_EQ(library_.MEM3startTask(nullptr, &wide, "A", ""), BadArgument);
    EXPECT_EQ(library_.MEM3startTask(&wide, &wide, nullptr, ""), BadArgument);
    EXPECT_EQ(library_.MEM3promptDefn(&wide, &wide, nullptr, "K", "x", "ordinary", "helvr12"), BadArgument);
    EXPECT_EQ(library_.MEM3promptDefn(&wide, &wide, &wide, "K", nullptr, "ordinary", "helvr12"), BadArgument);
    EXPECT_EQ(library_.MEM3promptTemplate(task_, atom_, nullptr, 1, 1, 1), BadArgument);
    EXPECT_EQ(library_.MEM3findStrategyDefn(1, nullptr, &wide, &wide), BadArgument);
    EXPECT_EQ(library_.MEM3findStrategyDefn(1, "A", &wide, nullptr), BadArgument);
    EXPECT_EQ(library_.MEM3strategyDefn(task_, nullptr, &wide, "A", points, 1), BadArgument);
    EXPECT_EQ(library_.MEM3strategyDefn(task_, &atom_, nullptr, "A", points, 1), BadArgument);
    EXPECT_EQ(library_.MEM3instrCalTemplate(task_, atom_, nullptr, 0, 0, 0, 1, 1, 1, 0, 0, 2, "A", "S"),
              BadArgument);
    EXPECT_EQ(library_.MEM3instrCalTemplate(task_, atom_, &wide, 0, 0, 0, 1, 1, 1, 0, 0, 2, nullptr, "S"),
              BadArgument);
    EXPECT_EQ(library_.STA3saveOps(&wide, nullptr, &wide), BadArgument);
    EXPECT_EQ(library_.STA3setMappedOp("root", "mcMode", nullptr), BadArgument);
    EXPECT_EQ(library_.STA3setUnitOp("root", nullptr, "psi"), BadArgument);
    EXPECT_EQ(library_.STA3setFloatOp(nullptr, "tol", 1), BadArgument);
    fillCalibrator();
    ASSERT_EQ(library_.MEM3clear(), Done);
    ASSERT_EQ(upload(), Done);
    ASSERT_EQ(library_.STA3restore(1, 1, 1), Done);
    EXPECT_EQ(library_.MEM3ngroups(2, nullptr), BadArgument);
    EXPECT_EQ(library_.MEM3natoms(2, 0, nullptr), BadArgument);
    EXPECT_EQ(library_.MEM3groupDir(2, 0, nullptr), BadArgument);
    EXPECT_EQ(library_.MEM3atomDir(2, 0, 0, nullptr, &wide), BadArgument);
    EXPECT_EQ(library_.MEM3taskResultRefInfo(2, 0, 0, &wide, nullptr), BadArgument);
    EXPECT_EQ(library_.MEM3instrTagInfo(2, 0, 5, text, nullptr, text), BadArgument);
    EXPECT_EQ(
        library_.MEM3instrCalResultInfo(2, 0, 1, &small, &small, &small, &small, &small, &small, nullptr),
        BadArgument);
    EXPECT_EQ(library_.MEM3instrCalResultStepInfo(2, 0, 1, 0, &wide, nullptr, &wide), BadArgument);
    EXPECT_EQ(library_.STA3getBktListInfo(nullptr, &wide), BadArgument);
    EXPECT_EQ(library_.STA3getBktListInfo("root", nullptr), BadArgument);
    EXPECT_EQ(library_.STA3getBktName("root", 0, nullptr, 33), BadArgument);
    EXPECT_EQ(library_.STA3getBktName("root", 0, text, 0), BadArgument);
    EXPECT_EQ(library_.STA3getType("root", "tol", nullptr), BadArgument);
    EXPECT_EQ(library_.STA3getFloat("root", "tol", nullptr), BadArgument);
    EXPECT_EQ(library_.STA3getStr("root", "spserial", nullptr, 33), BadArgument);
    EXPECT_EQ(library_.STA3getRange("root", "mrange", &real, nullptr), BadArgument);
    EXPECT_EQ(library_.STA3getUnit("root", "defaultPres", text, -1), BadArgument);
    EXPECT_EQ(library_.STA3getInt("root", "mcRangeLocked", nullptr), BadArgument);
    EXPECT_EQ(library_.STA3getTime("root", "time", nullptr), BadArgument);
    EXPECT_EQ(library_.STA3getMapped("root", nullptr, text, 33), BadArgument);
}

} // namespace kelvane::simulators::fluke74x
