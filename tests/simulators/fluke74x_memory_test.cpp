#include "tests/simulators/fluke74x_bench.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke74x {

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

using Fluke74xMemory = Fluke74xBench;

TEST_F(Fluke74xMemory, ComesBackFromItsTextAsItWas) {
    fillCalibrator();
    const Memory memory = storedMemory();
    ASSERT_EQ(memory.contents.runs.size(), 2U);
    EXPECT_EQ(memoryFrom(textOf(memory)), memory);
    EXPECT_EQ(memoryFrom(textOf({})), Memory());
}

TEST_F(Fluke74xMemory, ItemsStandInTheFileUnderTheirNames) {
    fillCalibrator();
    const QByteArray text = textOf(storedMemory());
    for (const char* const line : {"\"tol\": 0.25", "\"mcMode\": \"Current\"", "\"defaultPres\": \"in_h2o\"",
                                   "\"mcRangeLocked\": 1", "\"mCustomUnit\": \"gal/min\""})
        EXPECT_TRUE(text.contains(line)) << line;
}

TEST_F(Fluke74xMemory, ANameWithBytes140And141ComesBack) {
    Memory memory;
    memory.contents.strategies = {{u"\u0152\u008D11"_s, {0, 1}}};
    EXPECT_EQ(memoryFrom(textOf(memory)), memory);
}

TEST_F(Fluke74xMemory, ABrokenCalibratorsResultsAreKept) {
    fillCalibrator();
    Memory memory = storedMemory();
    constexpr float infinity = std::numeric_limits<float>::infinity();
    memory.contents.runs[1].time = {};
    memory.contents.runs[1].tag.clear();
    memory.contents.runs[1].entries = {{infinity, -infinity, 0},
                                       {std::numeric_limits<float>::quiet_NaN(), 0, 0}};
    const Memory back = memoryFrom(textOf(memory));
    EXPECT_EQ(back.contents.runs[1].time, ClockTime());
    EXPECT_EQ(back.contents.runs[1].entries[0], memory.contents.runs[1].entries[0]);
    EXPECT_TRUE(std::isnan(back.contents.runs[1].entries[1].reading));
}

TEST_F(Fluke74xMemory, RefusesADamagedTextAndSaysWhy) {
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
        {with("fluke74x memory 1", "fluke702 memory 1"), "does not bear the mark"},
        {with("\"room\": 1000", "\"room\": -1"), "not a number that the calibrator can keep"},
        {with("\"7112044\"", "\"7112044890\""), "\"serial\" has more than 9 characters"},
        {with("\"tasks\"", "\"task\""), "\"task\" is unknown"},
        {with("\"9 POINT UP/DOWN\"", "\"9 POINT UP AND D\""), "\"name\" has more than 15 characters"},
        {with("\"mcMode\": \"Current\"", "\"mcMode\": \"current\""), "\"mcMode\" is not in the maps"},
        {with("\"mcMode\": \"Current\"", "\"mcMode\": 4"), "\"mcMode\" is of the wrong kind"},
        {with("\"defaultPres\": \"in_h2o\"", "\"defaultPres\": \"mbar\""),
         "\"defaultPres\" is not in the maps"},
        {with("\"tol\"", "\"tolerance\""), "\"tol\""},
        {with("\"tol\": 0.25", "\"tol\": \"0.25\""), "not a number that the calibrator can keep"},
        {with("\"mcRangeLocked\": 1", "\"mcRangeLocked\": 2"), "not a number that the calibrator can keep"},
        {with("\"mcRangeLocked\": 1", "\"mcRangeLocked\": 1, \"x\": 1"), "\"x\" is unknown"},
        {with("\"strategy\": 2", "\"strategy\": 3"), "not a number that the calibrator can keep"},
        {with("\"strategy\": 2", "\"strategy\": -1"), "not a number that the calibrator can keep"},
        {with("\"state\": 2", "\"state\": 0"), "not a number that the calibrator can keep"},
        {with("\"measure by hand\": true", "\"measure by hand\": 1"),
         "\"measure by hand\" is of the wrong kind"},
        {with("2026-11-20", "2026-11-31"), "not a date and time"},
        {with("\"71204\"", '"' + QByteArray(33, '7') + '"'), "\"source module\" has more than 32 characters"},
        {with("0.0041,\n", ""), "an entry has three numbers"},
    };
    for (const auto& entry : cases)
        EXPECT_TRUE(refusal(entry.text).contains(QString::fromLatin1(entry.reason)))
            << entry.reason << " / " << refusal(entry.text).toStdString();
    EXPECT_EQ(refusal(with("\"strategy\": 2", "\"strategy\": 0")), QString()) << "a task without a strategy";
}

TEST_F(Fluke74xMemory, IsSeenByTheNextLinkAfterAUserChangedIt) {
    ASSERT_EQ(download(), Done);
    const QByteArray text = folder_.contentOf(u"fluke74x.json"_s);
    folder_.put(u"fluke74x.json"_s, QByteArray(text).replace("\"743B\"", "\"744\""));
    OutTexts out;
    ASSERT_EQ(open(), Done);
    EXPECT_EQ(identify(out), Done);
    EXPECT_EQ(out.first.left(4), QByteArray("744\0", 4));
}

} // namespace kelvane::simulators::fluke74x
