#include "data/records/standards.h"

#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleGlobals;

namespace {

/// The qualification of standard "STD-1" for instrument "PT-1" by a session of owner MT.
const auto qualification =
    u"select i4209,(select c2303 from MT.calibration where c2339 = 1 and MT.calibration.mtag = "
    "MT.inventory.mtag),(select c2334 from MT.calibration where c2339 = 1 and MT.calibration.mtag = "
    "MT.inventory.mtag),(select i4209 trace from MT.inventory where i4201 = 'PT-1'),(select allow_ooc_stds "
    "from mt.hvm_kv_sysconfig),(select allow_poor_trace_stds from mt.hvm_kv_sysconfig) from MT.inventory "
    "where i4201 = 'STD-1'"_s;
const auto distance =
    u"select sum(locate(tracecodes,(select i4209 from MT.inventory where i4201 = 'PT-1')) - "
    "locate(tracecodes,(select i4209 from MT.inventory where i4201 = 'STD-1')) - trace_delta) from "
    "mt.dbconfig"_s;

/// A standard's row, of which each test changes what it is about: in calibration, both switches "N".
struct StandardRow {
    std::optional<QString> trace = u"A"_s;
    std::optional<QString> dueDate = u"2027-01-31"_s;
    std::optional<QString> dueTime = u"08:00:00"_s;
    std::optional<QString> instrumentTrace = u"B"_s;
    std::optional<QString> allowOverdue = u"N"_s;
    std::optional<QString> allowLowRank = u"N"_s;
};

class Standards : public RecordedSession {
  protected:
    void have(const StandardRow& row, const std::optional<QString>& places = u"0"_s) {
        script.answers[qualification] = {
            {row.trace, row.dueDate, row.dueTime, row.instrumentTrace, row.allowOverdue, row.allowLowRank}};
        script.answers[distance] = {{places}};
    }
    qint16 check() {
        const auto code = CheckStandard(session, u"STD-1"_s, u"PT-1"_s);
        EXPECT_FALSE(ui.busy);
        return code;
    }
};

} // namespace

TEST_F(Standards, OneInCalibrationAndOfEnoughRankMayBeUsed) {
    have({});
    EXPECT_EQ(check(), 0);
    EXPECT_EQ(script.statements, (QStringList{qualification, distance}));
    EXPECT_EQ(script.firstRowOnly, script.statements);
    EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"normal"_s}));
}

TEST_F(Standards, AnEmptyNameIsUnknownWithoutAQuestion) {
    EXPECT_EQ(CheckStandard(session, {}, u"PT-1"_s), 3);
    EXPECT_EQ(CheckStandard(session, u"STD-1"_s, {}), 3);
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_EQ(ui.events, QStringList());
}

TEST_F(Standards, AMissingOneIsUnknown) {
    EXPECT_EQ(check(), 3);
}

TEST_F(Standards, OneWithoutTraceCodeIsUnknown) {
    have({.trace = std::nullopt});
    EXPECT_EQ(check(), 3);
}

TEST_F(Standards, AnInstrumentWithoutTraceCodeGivesFourEvenWhenTheStandardIsOverdue) {
    have({.dueDate = u"2020-01-01"_s, .instrumentTrace = std::nullopt});
    EXPECT_EQ(check(), 4);
    EXPECT_EQ(script.statements.size(), 1);
}

TEST_F(Standards, OverdueIsReportedBeforeATooLowRank) {
    have({.dueDate = u"2026-03-17"_s}, u"-1"_s);
    EXPECT_EQ(check(), 2);
    EXPECT_EQ(script.statements.size(), 1);
}

TEST_F(Standards, TheDueMomentEndsTheUse) {
    const struct {
        const char* situation;
        std::optional<QString> date, time;
        qint16 code;
    } cases[] = {
        {"the present minute", u"2026-03-18"_s, u"09:30:00"_s, 2},
        {"the present minute, later seconds", u"2026-03-18"_s, u"09:30:59"_s, 2},
        {"the next minute", u"2026-03-18"_s, u"09:31:00"_s, 0},
        {"the minute before", u"2026-03-18"_s, u"09:29:59"_s, 2},
        {"noon without a time", u"2026-03-18"_s, std::nullopt, 0},
        {"yesterday without a time", u"2026-03-17"_s, std::nullopt, 2},
        {"a timestamp as date", u"2026-03-18 00:00:00"_s, u"10:00:00"_s, 0},
        {"a timestamp with a fraction", u"2026-03-18 00:00:00.000"_s, u"09:30:00.000"_s, 2},
        {"no current calibration", std::nullopt, std::nullopt, 0},
    };
    for (const auto& testCase : cases) {
        have({.dueDate = testCase.date, .dueTime = testCase.time});
        EXPECT_EQ(check(), testCase.code) << testCase.situation;
    }
}

TEST_F(Standards, WithoutATimeExpireAtNoon) {
    have({.dueDate = u"2026-03-18"_s, .dueTime = std::nullopt});
    clock.set(2026, 3, 18, 11, 59, 59);
    EXPECT_EQ(check(), 0);
    clock.set(2026, 3, 18, 12, 0, 0);
    EXPECT_EQ(check(), 2);
}

TEST_F(Standards, DueDatesAreReadTheSameInEverySessionsDateFormat) {
    have({.dueDate = u"2026-04-03"_s});
    for (const auto& format : {u"MM/DD/YYYY"_s, u"DD/MM/YYYY"_s, u"YYYY/MM/DD"_s, QString()}) {
        session.SessionDateFormat = format;
        clock.set(2026, 4, 2);
        EXPECT_EQ(check(), 0) << format.toStdString();
        clock.set(2026, 4, 4);
        EXPECT_EQ(check(), 2) << format.toStdString();
    }
}

TEST_F(Standards, OverdueOnesAreRefusedByAnExplicitNOnly) {
    const struct {
        std::optional<QString> allowed;
        qint16 code;
    } cases[] = {{u"N"_s, 2}, {u"n"_s, 2}, {u"Y"_s, 0}, {u""_s, 0}, {u"NO"_s, 0}, {std::nullopt, 0}};
    for (const auto& testCase : cases) {
        have({.dueDate = u"2026-01-01"_s, .allowOverdue = testCase.allowed});
        EXPECT_EQ(check(), testCase.code) << testCase.allowed.value_or(u"null"_s).toStdString();
    }
}

TEST_F(Standards, LowRanksAreRefusedByANullAsByAnN) {
    const struct {
        std::optional<QString> allowed;
        qint16 code;
    } cases[] = {{u"N"_s, 1}, {u"n"_s, 1}, {std::nullopt, 1}, {u"Y"_s, 0}, {u""_s, 0}, {u"NO"_s, 0}};
    for (const auto& testCase : cases) {
        have({.allowLowRank = testCase.allowed}, u"-1"_s);
        EXPECT_EQ(check(), testCase.code) << testCase.allowed.value_or(u"null"_s).toStdString();
    }
}

TEST_F(Standards, TheDistanceInRankMustNotBeNegative) {
    const struct {
        std::optional<QString> places;
        qint16 code;
    } cases[] = {{u"1"_s, 0}, {u"0"_s, 0}, {u"0.0"_s, 0}, {u"-1"_s, 1}, {u"-3.0"_s, 1}, {std::nullopt, 0}};
    for (const auto& testCase : cases) {
        have({}, testCase.places);
        EXPECT_EQ(check(), testCase.code) << testCase.places.value_or(u"null"_s).toStdString();
    }
    script.answers[distance] = {};
    EXPECT_EQ(check(), 0) << "no row";
}

TEST_F(Standards, AnotherOwnersSessionSearchesThemInSTD) {
    session.SessionOwner = u"ABC"_s;
    CheckStandard(session, u"STD-1"_s, u"PT-1"_s);
    const auto expected =
        u"select i4209,(select c2303 from STD.calibration where c2339 = 1 and STD.calibration.mtag = "
        "ABC.inventory.mtag),(select c2334 from STD.calibration where c2339 = 1 and STD.calibration.mtag = "
        "ABC.inventory.mtag),(select i4209 trace from ABC.inventory where i4201 = 'PT-1'),(select "
        "allow_ooc_stds from mt.hvm_kv_sysconfig),(select allow_poor_trace_stds from mt.hvm_kv_sysconfig) "
        "from STD.inventory where i4201 = 'STD-1'"_s;
    EXPECT_EQ(script.statements, QStringList{expected});
    script.answers[expected] = {{u"A"_s, std::nullopt, std::nullopt, u"B"_s, u"N"_s, u"N"_s}};
    CheckStandard(session, u"STD-1"_s, u"PT-1"_s);
    EXPECT_EQ(script.statements.last(),
              u"select sum(locate(tracecodes,(select i4209 from ABC.inventory where i4201 = 'PT-1')) - "
              "locate(tracecodes,(select i4209 from STD.inventory where i4201 = 'STD-1')) - trace_delta) "
              "from mt.dbconfig"_s);
}

TEST_F(Standards, TheOwnerMtInSmallLettersKeepsItsOwnSpelling) {
    session.SessionOwner = u"mt"_s;
    CheckStandard(session, u"STD-1"_s, u"PT-1"_s);
    EXPECT_TRUE(script.statements.first().endsWith(u" from mt.inventory where i4201 = 'STD-1'"_s));
}

TEST_F(Standards, OnlyTheNameInTheFirstStatementIsMadeSafe) {
    CheckStandard(session, u"O''B"_s, u"P''1"_s);
    const auto first = script.statements.first();
    EXPECT_TRUE(first.endsWith(u"where i4201 = 'O''''B'"_s));
    EXPECT_TRUE(first.contains(u"where i4201 = 'P''1')"_s));
    script.answers[first] = {{u"A"_s, std::nullopt, std::nullopt, u"B"_s, u"N"_s, u"N"_s}};
    CheckStandard(session, u"O''B"_s, u"P''1"_s);
    EXPECT_TRUE(script.statements.last().contains(u"where i4201 = 'O''B')"_s));
}

TEST_F(Standards, ADatabaseFailureLetsTheStandardPassWithAReport) {
    script.failures[qualification] = Error{-210, u"Locked"_s};
    ui.expectReport(-210, u"ModuleGlobals,CheckStandard"_s);
    EXPECT_EQ(check(), 0);
    have({});
    script.failures = {{distance, Error{-131, u"Syntax error"_s}}};
    ui.expectReport(-131, u"ModuleGlobals,CheckStandard"_s);
    EXPECT_EQ(check(), 0);
}

TEST_F(Standards, ADueDateThatIsNoneIsReportedAndLetsTheStandardPass) {
    for (const auto& date : {u"soon"_s, u""_s, u"2026-02-30"_s, u"12:30"_s}) {
        have({.dueDate = date});
        ui.expectReport(13, u"ModuleGlobals,CheckStandard"_s);
        EXPECT_EQ(check(), 0) << date.toStdString();
    }
    have({.dueTime = u"late"_s});
    ui.expectReport(13, u"ModuleGlobals,CheckStandard"_s);
    EXPECT_EQ(check(), 0);
}

} // namespace kelvane::testing
