#include "drivers/torquestar/tool_results.h"

#include "testkit/torque_fixture.h"
#include "tests/platform/errors.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleTSInterface;

class ResultsOfATool : public TorqueFixture {
  protected:
    CalRecord record;
    ToolResults results{.points = {result(20260318, 93005, {50, 50.5}), result(20260318, 93105, {100})},
                        .comment = "t1FWorn\xB0.",
                        .tech = u"asmith"_s};
};

TEST_F(ResultsOfATool, ComeBackFromTheJournalToTheByte) {
    results.points << QByteArray("t1D\x00\xFF\x10\x02", 7) << QByteArray();
    const auto line = QJsonDocument(toJson(results)).toJson(QJsonDocument::Compact);
    const auto back = resultsOf(QJsonDocument::fromJson(line).object());
    EXPECT_EQ(back.points, results.points);
    EXPECT_EQ(back.comment, results.comment);
    EXPECT_EQ(back.tech, results.tech);
}

TEST_F(ResultsOfATool, AreShownToTheOperatorAPointALineWithoutAReport) {
    results.points << QByteArray("t1D") << result(20260318, 93005, {1}) + QByteArray("\x01\x02");
    EXPECT_EQ(readingsOf(session, results),
              (QStringList{u"1: 50; 50.5"_s, u"2: 100"_s, u"3: "_s, u"4: 1"_s}));
}

TEST_F(ResultsOfATool, HaveTheMomentOfTheLastReplyThatHasOne) {
    results.points << QByteArray("t1D") << QByteArray("t1D\x01\x02");
    QString date;
    QString time;
    readMoment(session, results, date, time);
    EXPECT_EQ(date + u' ' + time, u"2026-03-18 09:31:05"_s);
}

TEST_F(ResultsOfATool, AreJudgedPointByPointWithTheirComment) {
    auto tool = wrench();
    tool.repetitions = 1;
    const auto findings = findingsOf(session, record, tool, {0.5, 1}, results);
    EXPECT_EQ(findings.date + u' ' + findings.time, u"2026-03-18 09:31:05"_s);
    EXPECT_EQ(findings.comment, u"Worn\u00b0"_s);
    EXPECT_EQ(findings.counts.failures, 0);
    results.comment.clear();
    EXPECT_EQ(errorOf([&] { findingsOf(session, record, tool, {0.5, 1}, results); }), 5);
    tool.repetitions = 0;
    EXPECT_EQ(errorOf([&] { findingsOf(session, record, tool, {0.5, 1}, results); }), 11);
}

TEST_F(ResultsOfATool, JudgedAgainTakeTheEntrysMomentAndTechnician) {
    auto tool = wrench();
    tool.repetitions = 1;
    addInstrument(u"W-1"_s, u"KW-1"_s, tool);
    addHistory(u"W-1"_s);
    addPoints(u"W-1"_s, {u"50"_s, u"100"_s}, 1);
    addDictionary({u"C2301"_s, u"C2333"_s, u"C2307"_s, u"C2326"_s, u"C2323"_s});
    JournalEntry entry{.driver = ModuleTSInterface::identity.journalWord.toString(),
                       .serial = u"12345678"_s,
                       .asset = u"W-1"_s,
                       .date = u"2026-03-20"_s,
                       .time = u"10:00:00"_s,
                       .raw = toJson(results),
                       .prepared = true,
                       .standards = {u"X-1"_s}};
    EXPECT_EQ(TorqueStar_judge_again(session, entry, record), QString());
    QStringList values;
    for (int row = 0; row < 5; ++row)
        values << std::as_const(record.CalFieldTable)[row].value;
    EXPECT_EQ(values, (QStringList{u"2026-03-20"_s, u"10:00:00"_s, u"asmith"_s, u"Worn\u00b0"_s, u"Y"_s}));
    EXPECT_EQ(entriesOf(record.RecordResults).size(), 2);
    EXPECT_EQ(entriesOf(record.RecordStandards), QStringList{u"X-1"_s});

    // Of a failed preparation, technician and standards are looked up again.
    entry.prepared = false;
    entry.standards.clear();
    addInUseData(u"12345678"_s, u"W-1"_s, u"mjones"_s);
    addStandards(u"W-1"_s, {u"X-2"_s, u"TS-01"_s});
    EXPECT_EQ(TorqueStar_judge_again(session, entry, record), QString());
    EXPECT_EQ(std::as_const(record.CalFieldTable)[2].value, u"mjones"_s);
    EXPECT_EQ(entriesOf(record.RecordStandards), (QStringList{u"X-2"_s, u"TS-01"_s}));

    addPoints(u"W-1"_s, {u"100"_s}, 1);
    EXPECT_TRUE(TorqueStar_judge_again(session, entry, record)
                    .startsWith(u"The test strategy or the repetitions of W-1"_s));
    EXPECT_TRUE(ui.hasMetAll());
}

} // namespace kelvane::testing
