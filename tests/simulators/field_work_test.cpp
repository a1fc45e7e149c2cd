#include "simulators/common/failure.h"
#include "simulators/torquestar/field_work.h"
#include "simulators/torquestar/listing.h"
#include "simulators/torquestar/messages.h"
#include "simulators/torquestar/pitfalls.h"
#include "tests/simulators/message_bytes.h"

#include <gtest/gtest.h>

#include <set>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

Characteristic characteristic(const QString& name, const std::vector<QByteArray>& fields = goodFields()) {
    Characteristic made{name, {}, {}, {}};
    EXPECT_EQ(readFields(addMessage({}, fields).sliced(7), made.fields), FieldBytes::Read);
    return made;
}

Job job(const QString& name, std::vector<double> nominals, std::vector<double> deviations) {
    return {name, std::move(nominals), std::move(deviations), u"as found"_s, {}};
}

FieldWork workAt(const QString& moment, int seconds = 60, std::optional<int> takes = {}) {
    return {momentOf(moment), seconds, takes};
}

QString refusalOf(const QString& plan) {
    try {
        jobsOf(plan);
    } catch (const Failure& failure) {
        return failure.text();
    }
    return {};
}

} // namespace

TEST(Plan, ALineIsNameNominalsDeviationsCommentAndMoment) {
    const std::vector<Job> jobs =
        jobsOf(u"# the week's work\r\n\n"
               "TW-1; 20, 60,100 ; 0.1,-0.2,0.05; found in order ; 2026-11-20 09:15:30\n"
               " TW-2 ;-50;;;2026-11-20 9:15\n"
               "TW-34567890123; 1e1\n"_s);
    ASSERT_EQ(jobs.size(), 3U);
    EXPECT_EQ(jobs[0].name, u"TW-1"_s);
    EXPECT_EQ(jobs[0].nominals, (std::vector<double>{20, 60, 100}));
    EXPECT_EQ(jobs[0].deviations, (std::vector<double>{0.1, -0.2, 0.05}));
    EXPECT_EQ(jobs[0].comment, u"found in order"_s);
    EXPECT_EQ(jobs[0].from, momentOf(u"2026-11-20 09:15:30"_s));
    EXPECT_EQ(jobs[1].deviations, std::vector<double>{0});
    EXPECT_EQ(jobs[1].from, momentOf(u"2026-11-20 09:15:00"_s));
    EXPECT_EQ(jobs[2].name, u"TW-34567890"_s);
    EXPECT_EQ(jobs[2].nominals, std::vector<double>{10});
    EXPECT_FALSE(jobs[2].from);
}

TEST(Plan, OneDeviationStandsForAllReadings) {
    EXPECT_EQ(jobsOf(u"A;1,2,3;0.5"_s).front().deviations, (std::vector<double>{0.5, 0.5, 0.5}));
}

TEST(Plan, AWrongLineIsReportedByItsNumber) {
    const struct {
        const char* plan;
        const char* reason;
    } cases[] = {
        {"\nTW-1", "line 2 of the plan: a line is NAME; NOMINALS"},
        {"TW-1;1;2;3;2026-11-20 09:00;6", "line 1 of the plan: a line is NAME; NOMINALS"},
        {" ;1", "the name is missing"},
        {"TW-1;", "nominals: \"\" is no number"},
        {"TW-1;1,,2", "nominals: \"\" is no number"},
        {"TW-1;1,x", "nominals: \"x\" is no number"},
        {"TW-1;inf", "nominals: \"inf\" is no number"},
        {"TW-1;1,2,3;1,2", "2 deviations for 3 readings"},
        {"TW-1;1;1%", "deviations: \"1%\" is no number"},
        {"TW-1;1;;;yesterday", "\"yesterday\" is no moment"},
        {"TW-1;1;;;2026-02-30 09:00", "is no moment"},
        {"TW-1;1\nTW-1;2", "line 2 of the plan: TW-1 stands twice"},
    };
    for (const auto& entry : cases)
        EXPECT_TRUE(refusalOf(QString::fromLatin1(entry.plan)).contains(QString::fromLatin1(entry.reason)))
            << entry.plan << " / " << refusalOf(QString::fromLatin1(entry.plan)).toStdString();
}

TEST(FieldWorkTest, AReadingIsTheNominalWithItsDeviationRoundedToFourDecimals) {
    Memory memory{{}, {characteristic(u"A"_s)}};
    carryOut(memory, {job(u"A"_s, {20, 60, 100, -50, 0.33333}, {0.1, -0.2, 0, 1, 0})},
             workAt(u"2026-11-20 09:15"_s, 0, 1));
    std::vector<qint32> readings;
    for (const Result& result : memory.characteristics.front().results) {
        EXPECT_EQ(result.samples, std::vector<qint32>(3, result.samples.front()));
        readings.push_back(result.samples.front());
    }
    EXPECT_EQ(readings, (std::vector<qint32>{200200, 598800, 1000000, -505000, 3333}));
    EXPECT_EQ(memory.characteristics.front().comment, u"as found"_s);
}

TEST(FieldWorkTest, EachPointIsTakenAsOftenAsItHasSamplesOneAfterTheOther) {
    Memory memory{{}, {characteristic(u"A"_s)}};
    carryOut(memory, {job(u"A"_s, {20, 60}, {0, 0})}, workAt(u"2026-11-20 09:15"_s));
    std::vector<qint32> readings;
    for (const Result& result : memory.characteristics.front().results)
        readings.push_back(result.samples.front());
    EXPECT_EQ(readings, (std::vector<qint32>{200000, 200000, 200000, 600000, 600000, 600000}));
}

TEST(FieldWorkTest, TakesAreAMatterOfChoice) {
    Memory memory{{}, {characteristic(u"A"_s)}};
    for (const int takes : {0, 1, 5}) {
        carryOut(memory, {job(u"A"_s, {20, 60}, {0, 0})}, workAt(u"2026-11-20 09:15"_s, 60, takes));
        EXPECT_EQ(memory.characteristics.front().results.size(), static_cast<std::size_t>(2 * takes));
    }
}

TEST(FieldWorkTest, ResultsFollowEachOtherAtTheIntervalEvenPastMidnight) {
    Memory memory{{}, {characteristic(u"A"_s)}};
    carryOut(memory, {job(u"A"_s, {50, 60}, {0, 0})}, workAt(u"2026-12-31 23:59:30"_s, 60, 1));
    const std::vector<Result>& results = memory.characteristics.front().results;
    EXPECT_EQ(results[0].date, 20261231);
    EXPECT_EQ(results[0].time, 235930);
    EXPECT_EQ(results[1].date, 20270101);
    EXPECT_EQ(results[1].time, 30);
}

TEST(FieldWorkTest, AJobsOwnMomentOverridesTheCommonOne) {
    Memory memory{{}, {characteristic(u"A"_s)}};
    Job dated = job(u"A"_s, {60}, {0});
    dated.from = momentOf(u"2026-01-02 03:04:05"_s);
    carryOut(memory, {dated}, workAt(u"2026-11-20 09:15"_s));
    EXPECT_EQ(memory.characteristics.front().results.front().date, 20260102);
    EXPECT_EQ(memory.characteristics.front().results.front().time, 30405);
}

TEST(FieldWorkTest, NoResultOfADayIsTakenAtAMomentThatTheWorkstationCantRead) {
    std::vector<QByteArray> fields = goodFields();
    fields[0] = hex("01");
    Memory memory{{}, {characteristic(u"A"_s, fields)}};
    const std::vector<double> nominals(1000, 60);
    carryOut(memory, {job(u"A"_s, nominals, std::vector<double>(1000, 0))},
             workAt(u"2026-11-20 00:00"_s, 85));
    std::set<qint32> seconds;
    for (const Result& result : memory.characteristics.front().results) {
        EXPECT_FALSE(losesDigit(result.time)) << result.time;
        EXPECT_FALSE(endsInAnnouncement(resultReply(result))) << result.time;
        seconds.insert(result.time);
    }
    EXPECT_EQ(seconds.size(), 1000U);
}

TEST(FieldWorkTest, AReadingThatTheWorkstationCantReadIsReportedAndStays) {
    Memory memory{{}, {characteristic(u"A"_s)}};
    const QStringList lines = carryOut(memory, {job(u"A"_s, {20}, {0})}, workAt(u"2026-11-20 09:15"_s));
    EXPECT_EQ(lines,
              (QStringList{u"A: 3 results taken"_s,
                           u"  note: reading 20.0000 has a byte from 0A to 0F inside: the workstation reads "
                           "another number"_s}));
    EXPECT_EQ(memory.characteristics.front().results.front().samples.front(), 200000);
}

TEST(FieldWorkTest, OldResultsAreReplaced) {
    Memory memory{{}, {characteristic(u"A"_s)}};
    carryOut(memory, {job(u"A"_s, {50}, {0})}, workAt(u"2026-11-20 09:15"_s));
    const QStringList lines = carryOut(memory, {job(u"A"_s, {60}, {0})}, workAt(u"2026-11-20 09:15"_s));
    EXPECT_EQ(lines.front(), u"A: 3 results taken, in the place of 3"_s);
    EXPECT_EQ(memory.characteristics.front().results.front().samples.front(), 600000);
}

TEST(FieldWorkTest, NothingIsKeptWhenOneJobFails) {
    const Memory before{{}, {characteristic(u"A"_s)}};
    for (const Job& bad :
         {job(u"B"_s, {50}, {0}), job(u"A"_s, {214748.3648}, {0}), job(u"A"_s, {1e308}, {1e308})}) {
        Memory memory = before;
        EXPECT_THROW(carryOut(memory, {job(u"A"_s, {50}, {0}), bad}, workAt(u"2026-11-20 09:15"_s)), Failure);
        EXPECT_EQ(memory, before);
    }
}

TEST(Listing, DescribesTheCharacteristicsInWords) {
    Memory memory{{{u"KVTASK"_s, 3, {u"A"_s, u"S"_s}}},
                  {characteristic(u"A"_s), characteristic(u"S"_s, goodSerialFields())}};
    carryOut(memory, {job(u"A"_s, {60}, {0})}, workAt(u"2026-11-20 09:15"_s, 60, 1));
    EXPECT_EQ(
        listing(memory),
        (QStringList{
            u"Round KVTASK: A, S"_s,
            u"A: 3 samples, Peak, Right"_s,
            u"  Industry Standard transducer 30, span 150.0000 ft/lb, cycle end 1.0 s, frequency response 1024 Hz"_s,
            u"  torque 96.0000 to 104.0000 ft/lb, threshold 5.0000, click dip threshold 2.0000"_s,
            u"  comment: as found"_s,
            u"  2026-11-20 09:15:00  60.0000 60.0000 60.0000"_s,
            u"S: 3 samples"_s,
            u"  Serial transducer, resolution 0.1, 9600 baud, 8 data bits, 1 stop bits, parity None"_s,
            u"  torque 96.0000 to 104.0000, threshold 5.0000, click dip threshold 2.0000"_s,
            u"  no results"_s,
        }));
    EXPECT_EQ(listing({}), QStringList{u"The calibrator is empty."_s});
}

} // namespace kelvane::simulators
