#include "data/history/calibrations.h"
#include "data/history/standard_records.h"

#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const auto asset = u"(select mtag from MT.inventory where i4201 = 'LT-10''COL')"_s;
const auto recordsStatement =
    u"select ctag,c2308,c2323,c2307,c2306,c2309,c2320,c2315,c2316,c2311,c2312,c2313,c2326,c2329,c2350,c2352,"
    "cdsrc,c2301,c2333,c2303,c2334 from MT.calibration where mtag = "_s +
    asset +
    u" order by case when c2301 is null then 1 else 0 end,c2301 desc,case when c2333 is null then 1 else 0 "
    u"end,"
    "c2333 desc,ctag desc"_s;
const auto usedStatement =
    u"select used.ctag,used.c2430,inv.i4201,inv.i4204,inv.i4206 from mt.standards used left outer join "
    "MT.inventory inv on inv.mtag = used.c2430 where used.mtag = "_s +
    asset + u" order by used.ctag asc,inv.i4201 asc,used.c2430 asc"_s;
const auto linesStatement =
    u"select ctag,c2502,c2501 from mt.calresults where mtag = "_s + asset + u" order by ctag asc,c2502 asc"_s;
const auto standardsStatement =
    u"select inv.i4201,cal.ctag,cal.c2301,cal.c2303,cal.c2323,cal.c2333,cal.c2334,cal.c2306 from "
    u"MT.inventory inv left "
    "outer join MT.calibration cal on cal.mtag = inv.mtag where inv.i4201 in (select i4201 from MT.inventory "
    "where mtag in (select c2430 from mt.standards where mtag = "_s +
    asset + u"))"_s;

Row recordRow(const QString& ctag, const std::optional<QString>& date, const std::optional<QString>& time,
              const QString& state = u"FOUND-LEFT"_s) {
    Row row(21);
    row[0] = ctag;
    row[1] = state;
    row[17] = date;
    row[18] = time;
    return row;
}

/// A record of a standard.
Row standardRow(const QString& ctag, const std::optional<QString>& date, const std::optional<QString>& due,
                const std::optional<QString>& time = {}, const std::optional<QString>& dueTime = {},
                const QString& passed = u"Y"_s) {
    return {u"DMM-01"_s, ctag, date, due, passed, time, dueTime, u"NATIONAL"_s};
}

class Calibrations : public RecordedSession {
  protected:
    QList<CalibrationRecord> read() {
        const auto records = calibrationsOf(session, u"LT-10'COL"_s);
        EXPECT_TRUE(records.has_value());
        return records.value_or(QList<CalibrationRecord>());
    }
    /// The standard of a calibration of that moment, whose own records are these.
    UsedStandard standardAt(const std::optional<QString>& date, const std::optional<QString>& time,
                            const QList<Row>& ownRecords) {
        script.answers[recordsStatement] = {recordRow(u"7"_s, date, time)};
        script.answers[usedStatement] = {{u"7"_s, u"1203"_s, u"DMM-01"_s, u"MULTIMETER"_s, u"96120"_s}};
        script.answers[standardsStatement] = ownRecords;
        const auto records = read();
        return records.value(0).standards.value(0);
    }
};

} // namespace

TEST_F(Calibrations, AreReadByFourStatements) {
    EXPECT_TRUE(read().isEmpty());
    EXPECT_EQ(script.statements,
              (QStringList{recordsStatement, standardsStatement, usedStatement, linesStatement}));
}

TEST_F(Calibrations, OfOtherOwnersLookForTheirStandardsInStdFirst) {
    session.SessionOwner = u"ABC"_s;
    calibrationsOf(session, u"A"_s);
    const auto ofAbc =
        QString(standardsStatement).replace(u"MT."_s, u"ABC."_s).replace(u"LT-10''COL"_s, u"A"_s);
    auto ofStd = ofAbc;
    ofStd.replace(u"from ABC.inventory inv"_s, u"from STD.inventory inv"_s);
    ofStd.replace(u"ABC.calibration"_s, u"STD.calibration"_s);
    EXPECT_EQ(script.statements.mid(1, 2), (QStringList{ofStd, ofAbc}));
}

TEST_F(Calibrations, CarryWhatTheRowSays) {
    Row row;
    for (int column = 0; column < 17; ++column)
        row << u"v%1 "_s.arg(column);
    row << u"2026-03-01"_s << u"08:30:00"_s << u"2027-03-01"_s << u"12:00:00"_s;
    script.answers[recordsStatement] = {row};
    const auto records = read();
    ASSERT_EQ(records.size(), 1);
    const auto& record = records.first();
    EXPECT_EQ(
        (QStringList{record.ctag, record.state, record.passed, record.technician, record.laboratory,
                     record.procedure, record.strategy, record.place, record.workOrder,
                     record.externalTemperature, record.ambientTemperature, record.humidity, record.remarks,
                     record.furtherRemarks, record.marginalPoints, record.failedPoints, record.source})
            .join(u' '),
        u"v0 v1 v2 v3 v4 v5 v6 v7 v8 v9 v10 v11 v12 v13 v14 v15 v16"_s);
    EXPECT_EQ(record.date.moment.date, QDate(2026, 3, 1));
    EXPECT_EQ(record.time.moment.time, QTime(8, 30));
    EXPECT_EQ(record.due.moment.date, QDate(2027, 3, 1));
    EXPECT_EQ(record.dueTime.moment.time, QTime(12, 0));
}

TEST_F(Calibrations, OfADayWhereOneHasNoTimeAreInTheOrderInWhichTheyWereMade) {
    const auto orderOf = [&](const QList<Row>& rows) {
        script.answers[recordsStatement] = rows;
        QStringList order;
        for (const auto& record : read())
            order << record.ctag;
        return order;
    };
    const auto day = u"2026-03-18"_s;
    EXPECT_EQ(orderOf({recordRow(u"9"_s, u"2026-03-19"_s, {}), recordRow(u"8"_s, day, u"14:00:00"_s),
                       recordRow(u"11"_s, day, u"09:00:00"_s), recordRow(u"10"_s, day, {}),
                       recordRow(u"12"_s, u"2026-03-17"_s, u"10:00:00"_s),
                       recordRow(u"13"_s, u"2026-03-17"_s, u"09:00:00"_s), recordRow(u"1"_s, {}, {}),
                       recordRow(u"2"_s, {}, {})}),
              (QStringList{u"9"_s, u"11"_s, u"10"_s, u"8"_s, u"12"_s, u"13"_s, u"1"_s, u"2"_s}))
        << "days in order of time, and records without a date, stay as they are";
    EXPECT_EQ(orderOf({recordRow(u"8"_s, day, u"14:00:00"_s), recordRow(u"11"_s, day, u"no time"_s)}),
              (QStringList{u"11"_s, u"8"_s}));
}

TEST_F(Calibrations, OfADayWhereOneHasNoTimeKeepTheirOwnStandardsAndLines) {
    const auto day = u"2026-03-18"_s;
    script.answers[recordsStatement] = {recordRow(u"8"_s, day, u"14:00:00"_s), recordRow(u"11"_s, day, {})};
    script.answers[linesStatement] = {{u"8"_s, u"1"_s, u"of 8"_s}, {u"11"_s, u"1"_s, u"of 11"_s}};
    const auto records = read();
    ASSERT_EQ(records.size(), 2);
    EXPECT_EQ(records[0].lines, QStringList(u"of 11"_s));
    EXPECT_EQ(records[1].lines, QStringList(u"of 8"_s));
}

TEST_F(Calibrations, TellTheRunByItsState) {
    const struct {
        QString state;
        CalibrationRun run;
    } rows[] = {
        {u"AS-FOUND"_s, CalibrationRun::asFound},
        {u"as-left "_s, CalibrationRun::asLeft},
        {u"FOUND-LEFT"_s, CalibrationRun::foundLeft},
        {u"AS FOUND"_s, CalibrationRun::other},
        {u""_s, CalibrationRun::other},
    };
    for (const auto& row : rows) {
        script.answers[recordsStatement] = {recordRow(u"1"_s, {}, {}, row.state)};
        EXPECT_EQ(read().value(0).run, row.run) << row.state.toStdString();
    }
}

TEST_F(Calibrations, HaveTheirOwnLinesInTheOrderOfTheirNumbers) {
    script.answers[recordsStatement] = {recordRow(u"8"_s, {}, {}), recordRow(u"7"_s, {}, {})};
    script.answers[linesStatement] = {{u"7"_s, u"10"_s, u"k"_s},
                                      {u"7"_s, u"2"_s, u"c  "_s},
                                      {u"7"_s, u"0"_s, {}},
                                      {u"8"_s, u"0"_s, u"x"_s},
                                      {u"9"_s, u"0"_s, u"other"_s}};
    const auto records = read();
    ASSERT_EQ(records.size(), 2);
    EXPECT_EQ(records[0].lines, QStringList(u"x"_s));
    EXPECT_EQ(records[1].lines, (QStringList{QString(), u"c  "_s, u"k"_s}));
}

TEST_F(Calibrations, HaveStandardsThatTheInventoryDoesNotKnowAnyMore) {
    script.answers[recordsStatement] = {recordRow(u"7"_s, u"2026-03-01"_s, {})};
    script.answers[usedStatement] = {
        {u"7"_s, u"1999"_s, {}, {}, {}}, {u"7"_s, {}, {}, {}, {}}, {u"9"_s, u"1203"_s, u"DMM-01"_s, {}, {}}};
    const auto standards = read().value(0).standards;
    ASSERT_EQ(standards.size(), 2);
    EXPECT_EQ(standards[0].mtag, u"1999"_s);
    EXPECT_EQ(standards[0].asset, QString());
    EXPECT_EQ(standards[1].state, StandardState::withoutRecord);
}

TEST_F(Calibrations, TellWhatTheirStandardWasAtThatMoment) {
    using State = StandardState;
    const QList<Row> twoYears{
        standardRow(u"1"_s, u"2024-01-10"_s, u"2025-01-10"_s, u"09:00:00"_s),
        standardRow(u"2"_s, u"2025-02-10"_s, u"2026-02-10"_s, u"09:00:00"_s, u"15:00:00"_s)};
    const struct {
        QString date;
        std::optional<QString> time;
        State state;
        QString due;
    } rows[] = {
        {u"2024-01-09"_s, u"23:59:59"_s, State::withoutRecord, u""_s},
        {u"2024-01-10"_s, u"08:59:59"_s, State::withoutRecord, u""_s},
        {u"2024-01-10"_s, u"09:00:00"_s, State::inCalibration, u"2025-01-10"_s},
        {u"2025-01-10"_s, u"11:59:59"_s, State::inCalibration, u"2025-01-10"_s},
        {u"2025-01-10"_s, u"12:00:00"_s, State::overdue, u"2025-01-10"_s},
        {u"2025-01-10"_s, {}, State::overdue, u"2025-01-10"_s},
        {u"2025-01-09"_s, {}, State::inCalibration, u"2025-01-10"_s},
        {u"2025-02-10"_s, u"08:00:00"_s, State::overdue, u"2025-01-10"_s},
        {u"2025-02-10"_s, {}, State::inCalibration, u"2026-02-10"_s},
        {u"2026-02-10"_s, u"14:59:00"_s, State::inCalibration, u"2026-02-10"_s},
        {u"2026-02-10"_s, u"15:00:00"_s, State::overdue, u"2026-02-10"_s},
        {u"2199-01-01"_s, u"15:00:00"_s, State::overdue, u"2026-02-10"_s},
    };
    for (const auto& row : rows) {
        const auto standard = standardAt(row.date, row.time, twoYears);
        EXPECT_EQ(standard.state, row.state)
            << row.date.toStdString() << row.time.value_or(QString()).toStdString();
        EXPECT_EQ(standard.due.text, row.due);
    }
}

TEST_F(Calibrations, TellOfAStandardThatHadFailedOrHadNoDueDate) {
    EXPECT_EQ(standardAt(u"2026-01-01"_s, {},
                         {standardRow(u"1"_s, u"2025-12-01"_s, u"2030-01-01"_s, {}, {}, u"N"_s)})
                  .state,
              StandardState::notPassed);
    EXPECT_EQ(standardAt(u"2026-01-01"_s, {}, {standardRow(u"1"_s, u"2025-12-01"_s, {})}).state,
              StandardState::withoutDueDate);
    EXPECT_EQ(standardAt(u"2026-01-01"_s, {}, {standardRow(u"1"_s, u"2025-12-01"_s, u"soon"_s)}).state,
              StandardState::withoutDueDate);
    EXPECT_EQ(standardAt(u"2026-01-01"_s, {}, {standardRow(u"1"_s, {}, u"2030-01-01"_s)}).state,
              StandardState::withoutRecord);
    EXPECT_EQ(standardAt({}, {}, {standardRow(u"1"_s, u"2025-12-01"_s, u"2030-01-01"_s)}).state,
              StandardState::withoutRecord);
    EXPECT_EQ(standardAt(u"2026-01-01"_s, {}, {{u"DMM-01"_s, {}, {}, {}, {}, {}, {}}}).state,
              StandardState::withoutRecord);
}

TEST_F(Calibrations, OfTwoRecordsOfAStandardAtOneMomentTakeTheOneThatWasMadeLast) {
    const auto standard = standardAt(u"2026-01-01"_s, {},
                                     {standardRow(u"10"_s, u"2025-12-01"_s, u"2027-01-01"_s),
                                      standardRow(u"9"_s, u"2025-12-01"_s, u"2025-12-01"_s)});
    EXPECT_EQ(standard.state, StandardState::inCalibration);
}

TEST_F(Calibrations, FindTheirStandardWithoutCase) {
    auto row = standardRow(u"1"_s, u"2025-12-01"_s, u"2027-01-01"_s);
    row[0] = u"dmm-01"_s;
    EXPECT_EQ(standardAt(u"2026-01-01"_s, {}, {row}).state, StandardState::inCalibration);
}

TEST_F(Calibrations, ThatCanNotBeReadAreReportedAndNotTakenForNone) {
    for (const auto& statement : {recordsStatement, standardsStatement, usedStatement, linesStatement}) {
        script.failures = {{statement, {7, u"no such table"_s}}};
        ui.expectReport(7, u"History,calibrations"_s);
        EXPECT_FALSE(calibrationsOf(session, u"LT-10'COL"_s));
    }
}

} // namespace kelvane::testing
