#include "tests/simulators/fluke702_bench.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke702 {

namespace {

/// The reason for which the text is refused; empty when it is taken.
QString refusal(const QByteArray& text) {
    try {
        memoryFrom(text);
    } catch (const Failure& failure) {
        return failure.text();
    }
    return {};
}

} // namespace

using Fluke702Memory = Fluke702Bench;

TEST_F(Fluke702Memory, ComesBackFromItsTextAsItWas) {
    fillCalibrator();
    const Memory memory = storedMemory();
    ASSERT_EQ(memory.contents.runs.size(), 2U);
    EXPECT_EQ(memoryFrom(textOf(memory)), memory);
    EXPECT_EQ(memoryFrom(textOf({})), Memory());
}

TEST_F(Fluke702Memory, NumbersStandInTheFileInUsualNotation) {
    fillCalibrator();
    const QByteArray text = textOf(storedMemory());
    EXPECT_TRUE(text.contains("\"tolerance\": 0.25"));
    EXPECT_TRUE(text.contains(" 0.1\n"));
    EXPECT_TRUE(text.contains(" 0.0041,\n"));
}

TEST_F(Fluke702Memory, ABrokenCalibratorsResultsAreKept) {
    fillCalibrator();
    Memory memory = storedMemory();
    constexpr float infinity = std::numeric_limits<float>::infinity();
    memory.contents.runs[1].kind = 3;
    memory.contents.runs[1].time = {};
    memory.contents.runs[1].entries = {{infinity, -infinity, 0},
                                       {std::numeric_limits<float>::quiet_NaN(), 0, 0}};
    const Memory back = memoryFrom(textOf(memory));
    EXPECT_EQ(back.contents.runs[1].kind, 3);
    EXPECT_EQ(back.contents.runs[1].time.year, 0);
    EXPECT_EQ(back.contents.runs[1].entries[0], memory.contents.runs[1].entries[0]);
    EXPECT_TRUE(std::isnan(back.contents.runs[1].entries[1].reading));
}

TEST_F(Fluke702Memory, RefusesADamagedTextAndSaysWhy) {
    fillCalibrator();
    const QByteArray good = textOf(storedMemory());
    const auto with = [&](const QByteArray& before, const QByteArray& after) {
        EXPECT_TRUE(good.contains(before)) << before.constData();
        return QByteArray(good).replace(before, after);
    };
    const struct {
        QByteArray text;
        const char* reason;
    } cases[] = {
        {"", "at byte 0"},
        {good.chopped(20), "at byte"},
        {QByteArray(5000, '\0'), "at byte"},
        {"[]", "does not bear the mark"},
        {with("fluke702 memory 1", "fluke702 memory 2"), "does not bear the mark"},
        {with("\"room\": 1000", "\"room\": -1"), "not a number that the calibrator can keep"},
        {with("\"room\": 1000", "\"room\": 1.5"), "not a whole number"},
        {with("\"6841207\"", "6841207"), "\"serial\" is of the wrong kind"},
        {with("\"6841207\"", "\"6841207890\""), "\"serial\" has more than 9 characters"},
        {with("\"tasks\"", "\"task\""), "\"task\" is unknown"},
        {with("\"tasks\": [", "\"tasks\": [7,"), "of the wrong kind"},
        {with("\"9 POINT UP/DO\"", "\"9 POINT UP/DOWN\""), "\"name\" has more than 13 characters"},
        {with("0.1\n", "\n"), "a strategy has 1 to 50 points"},
        {with("0.1\n", "1e39\n"), "\"points\": not a number"},
        {with("0.1\n", "\"nan\"\n"), "\"points\": not a number"},
        {with("\"KLMNOPQRST\",\n            \"text\"", "\"ABCDEFGHIJ\",\n            \"text\""),
         "stands twice"},
        {with("                \"KLMNOPQRST\"", "                \"KLMN\""),
         "names a prompt that is not there"},
        {with("\"source mode\"", "\"source\""), "\"source mode\" is missing"},
        {with("\"automatic range\": true", "\"automatic range\": 1"),
         "\"automatic range\" is of the wrong kind"},
        {with("\"high\": 150", "\"top\": 150"), "\"top\" is unknown"},
        {with("\"strategy\": 2", "\"strategy\": 3"), "not a number that the calibrator can keep"},
        {with("\"strategy\": 2", "\"strategy\": 0"), "not a number that the calibrator can keep"},
        {with("\"state\": 2", "\"state\": \"2\""), "not a number that the calibrator can keep"},
        {with("\"kind\": 2", "\"kind\": 40000"), "not a number that the calibrator can keep"},
        {with("2026-11-20", "2026-11-31"), "not a date and time"},
        {with("2026-11-20", "0000-11-20"), "not a date and time"},
        {with("09:15:30", "24:15:30"), "not a date and time"},
        {with("\"71204\"", "\"7120471204\""), "\"pressure module\" has more than 9 characters"},
        {with("0.0041,\n", ""), "an entry has three numbers"},
        {with("0.0041", "\"high\""), "not a number that the calibrator can keep"},
    };
    for (const auto& entry : cases)
        EXPECT_TRUE(refusal(entry.text).contains(QString::fromLatin1(entry.reason)))
            << entry.reason << " / " << refusal(entry.text).toStdString();
}

TEST_F(Fluke702Memory, IsSeenByTheNextLinkAfterAUserChangedIt) {
    defineTask("A");
    ASSERT_EQ(download(), Done);
    const QByteArray text = folder_.contentOf(u"fluke702.json"_s);
    folder_.put(u"fluke702.json"_s, QByteArray(text).replace("\"6841207\"", "\"55\""));
    OutTexts out;
    ASSERT_EQ(library_.DPCopen(9600, "COM1", 1000, 5), Done);
    EXPECT_EQ(library_.DPCget70x(out.first.data(), out.second.data(), out.third.data(), &out.numbers[0],
                                 &out.numbers[1], &out.numbers[2]),
              Done);
    EXPECT_EQ(out.second.left(3), QByteArray("55\0", 3));
}

} // namespace kelvane::simulators::fluke702
