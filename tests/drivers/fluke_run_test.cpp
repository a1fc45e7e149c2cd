#include "drivers/fluke_run.h"

#include "testkit/fixtures.h"

#include <QJsonDocument>

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(RunResults, ComeBackFromTheJournalToTheBit) {
    RunResults run{.kind = 2,
                   .date = u"2026-03-18"_s,
                   .time = u"08:15:30"_s,
                   .tag = {u"PT-101"_s, u"V88101"_s, u"Joe \"Ω\" Doe"_s},
                   .hasLaterRun = true,
                   .pressureModule = u"71204"_s,
                   .sourceModule = u"71391"_s,
                   .inUseTech = u"asmith"_s};
    const float values[] = {0,        -0.0F,  0.1F, 1.0F / 3,  3.4E38F,      1.4E-45F, std::nanf(""),
                            INFINITY, -1E-7F, 100,  -INFINITY, 0.0123456789F};
    for (const float value : values)
        run.entries << RunEntry{value, -value, value / 3};
    const auto line = QJsonDocument(toJson(run)).toJson(QJsonDocument::Compact);
    const auto back = runOf(QJsonDocument::fromJson(line).object());
    EXPECT_EQ(back.kind, run.kind);
    EXPECT_EQ(back.date + back.time, run.date + run.time);
    EXPECT_EQ(back.tag.tag + back.tag.serial + back.tag.technician,
              run.tag.tag + run.tag.serial + run.tag.technician);
    EXPECT_TRUE(back.hasLaterRun);
    EXPECT_EQ(back.pressureModule + back.sourceModule + back.inUseTech,
              run.pressureModule + run.sourceModule + run.inUseTech);
    ASSERT_EQ(back.entries.size(), run.entries.size());
    const auto same = [](float left, float right) {
        return left == right || (std::isnan(left) && std::isnan(right));
    };
    for (qsizetype i = 0; i < run.entries.size(); ++i) {
        EXPECT_TRUE(same(run.entries[i].reading, back.entries[i].reading)) << i;
        EXPECT_TRUE(same(run.entries[i].applied, back.entries[i].applied)) << i;
        EXPECT_TRUE(same(run.entries[i].calibratorError, back.entries[i].calibratorError)) << i;
    }
}

TEST(RunResults, AreShownToTheOperatorAPointALine) {
    RunResults run;
    EXPECT_EQ(readingsOf(run), QStringList());
    run.entries = {{0.004F, 0, 0}, {0.012F, 50, 0}};
    EXPECT_EQ(readingsOf(run), (QStringList{u"1: applied 0, read 0.004 (in the calibrator's units)"_s,
                                            u"2: applied 50, read 0.012 (in the calibrator's units)"_s}));
}

class RunFields : public RecordedSession {
  protected:
    CalRecord record;
    QString roundOf(qint16 kind, bool hasLaterRun, int failures) {
        record.CalFieldTable[0] = {};
        record.CalFieldTable[0].column = u"C2308"_s;
        fillFields(record, {}, PointCounts{failures, 0}, {.kind = kind, .hasLaterRun = hasLaterRun}, {},
                   u"6841207"_s);
        return record.CalFieldTable[0].value;
    }
};

TEST_F(RunFields, TheRoundFollowsFromKindVerdictAndLaterRuns) {
    EXPECT_EQ(roundOf(2, false, 0), u"AS-LEFT"_s);
    EXPECT_EQ(roundOf(2, true, 1), u"AS-LEFT"_s);
    EXPECT_EQ(roundOf(1, true, 0), u"AS-FOUND"_s);
    EXPECT_EQ(roundOf(1, false, 1), u"AS-FOUND"_s);
    EXPECT_EQ(roundOf(1, false, 0), u"FOUND-LEFT"_s);
}

TEST(RunResults, OfAnOlderJournalHaveNoSourceModule) {
    RunResults run{.kind = 1, .pressureModule = u"71204"_s};
    auto json = toJson(run);
    json.remove("sourceModule"_L1);
    EXPECT_EQ(runOf(json).pressureModule, u"71204"_s);
    EXPECT_EQ(runOf(json).sourceModule, QString());
}

TEST_F(RunFields, ATechnicianWithoutANameIsTheOneWhoHasDownloaded) {
    record.CalFieldTable[0].column = u"C2307"_s;
    const auto technician = [this](const QString& name, const RunRules& rules) {
        const RunResults run{.kind = 1, .tag = {{}, {}, name}, .inUseTech = u"asmith"_s};
        fillFields(record, {}, {}, run, rules, u"7112044"_s);
        return record.CalFieldTable[0].value;
    };
    EXPECT_EQ(technician(u"jdoe"_s, {}), u"jdoe"_s);
    EXPECT_EQ(technician(u"7112044"_s, {}), u"asmith"_s);
    EXPECT_EQ(technician(u"None"_s, {}), u"None"_s);
    EXPECT_EQ(technician(QString(), {}), QString());
    RunRules rules;
    rules.noTechnician = u"none";
    EXPECT_EQ(technician(u"None"_s, rules), u"asmith"_s);
    EXPECT_EQ(technician(QString(), rules), QString());
}

} // namespace kelvane::testing
