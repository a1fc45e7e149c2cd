#include "records/record_plots.h"

#include "records/lists.h"
#include "testkit/fixtures.h"
#include "tests/data/tolerances/tolerance_points.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QDate today(2026, 3, 18);

/// Pictures of records with lines that the workstation has judged: 0 to 100 psig in, 4 to 20 mA out, within
/// 0.040 mA.
class RecordPlots : public RecordedSession {
  protected:
    RecordPlots() {
        session.ResultTemplateLine = u"TN$ FN$           FVA$          FRE$          TT$         DE$         "
                                     u" ET$  TU$ CO$         FLL$"
                                     "        FUL$          TR$"_s;
    }

    QString line(double input, double output) {
        Point point{input, output, 0, 100, 20, 4, u"0.001"_s, u"psig"_s, u"mA"_s, 0.001F};
        point.pos.units = 0.04F;
        point.neg.units = 0.04F;
        return calculate(session, point).result_line;
    }
    static CalibrationRecord record(const QString& day, const QString& state, const QStringList& lines) {
        CalibrationRecord made;
        made.date = storedMomentOf(day);
        made.state = state;
        made.run = calibrationRunOf(state);
        made.lines = lines;
        return made;
    }
    /// A record whose middle point is off by so many percent of the tolerance.
    CalibrationRecord off(const QString& day, const QString& state, double percent) {
        return record(day, state, {line(50, 12 + 0.04 * percent / 100)});
    }
    Plot drift(const QList<CalibrationRecord>& records, const QDate& day = today) {
        return driftPlot(u"PT-101"_s, records, pointHistoryOf(session, records), 0, day);
    }
    /// The points of a series as "0=25", in whole percents.
    static QStringList shown(const PlotSeries& series) {
        QStringList points;
        for (const auto& point : series.points)
            points << (std::isnan(point.y) ? u"gap"_s : u"%1=%2"_s.arg(qint64(point.x)).arg(qRound(point.y)));
        return points;
    }
    static QString number(const QDate& day) { return QString::number(day.toJulianDay()); }
};

} // namespace

TEST_F(RecordPlots, OfErrorsHaveASeriesForEachRecord) {
    const auto plot =
        errorPlot(session, u"PT-101"_s,
                  {record(u"2026-03-01"_s, u"AS-FOUND"_s, {line(0, 4.01), line(50, 12.05), line(0, 3.98)}),
                   record(u"2026-03-02"_s, u"AS-LEFT"_s, {line(0, 4), line(50, 12.01)})});
    EXPECT_EQ(plot.title, u"PT-101: "_s + text(TextId::plotErrors));
    EXPECT_EQ(plot.x.scale, PlotScale::names);
    EXPECT_EQ(plot.x.names, (QStringList{u"4.000mA"_s, u"12.000mA"_s, u"4.000mA (2)"_s}));
    ASSERT_EQ(plot.series.size(), 2);
    EXPECT_EQ(plot.series[0].name, u"2026-03-01 AS-FOUND"_s);
    EXPECT_EQ(shown(plot.series[0]), (QStringList{u"0=25"_s, u"1=125"_s, u"2=-50"_s}));
    EXPECT_EQ(shown(plot.series[1]), (QStringList{u"0=0"_s, u"1=25"_s}));
    EXPECT_EQ(plot.series[0].points[1].note, u"12.000mA: 12.050mA, 125.0 %"_s);
    EXPECT_TRUE(plot.notes.isEmpty());
}

TEST_F(RecordPlots, CanBeToldApartWithoutColours) {
    const auto plot =
        errorPlot(session, u"PT-101"_s,
                  {off(u"2026-03-01"_s, u"AS-FOUND"_s, 10), off(u"2026-03-01"_s, u"AS-LEFT"_s, 0)});
    EXPECT_NE(plot.series[0].mark, plot.series[1].mark);
    EXPECT_NE(plot.series[0].line, plot.series[1].line);
}

TEST_F(RecordPlots, HaveTheLimitsAsLinesInTheirRange) {
    const QList<CalibrationRecord> records{off(u"2026-03-01"_s, u"FOUND-LEFT"_s, 10)};
    for (const auto& plot : {errorPlot(session, u"PT-101"_s, records), drift(records)}) {
        ASSERT_EQ(plot.levels.size(), 2);
        EXPECT_EQ(plot.levels[0].y, 100);
        EXPECT_EQ(plot.levels[1].y, -100);
        EXPECT_LT(plot.y.least, -100);
        EXPECT_GT(plot.y.most, 100);
        EXPECT_EQ(plot.y.title, text(TextId::plotPercentAxis));
    }
}

TEST_F(RecordPlots, SayHowManyLinesAreLeftOut) {
    const auto plot =
        errorPlot(session, u"PT-101"_s,
                  {record(u"2026-03-01"_s, u"FOUND-LEFT"_s, {line(50, 12), u"by hand"_s, u" "_s})});
    EXPECT_EQ(plot.notes, QStringList(text(TextId::plotLeftOut).arg(1).arg(2)));
}

TEST_F(RecordPlots, OfNothingSaySo) {
    EXPECT_EQ(errorPlot(session, u"PT-101"_s, {}).notes, QStringList(text(TextId::plotNothing)));
    const auto unread =
        errorPlot(session, u"PT-101"_s, {record(u"2026-03-01"_s, u"AS-LEFT"_s, {u"by hand"_s})});
    EXPECT_EQ(unread.notes,
              (QStringList{text(TextId::plotNothing), text(TextId::plotLeftOut).arg(1).arg(1)}));
    const auto other = drift({off(u"2026-03-01"_s, u"CHECK"_s, 10)});
    EXPECT_EQ(other.notes.constFirst(), text(TextId::plotNothing));
    EXPECT_EQ(other.notes.constLast(), text(TextId::plotRecordsLeftOut).arg(1).arg(1));
}

TEST_F(RecordPlots, OfDriftHaveTheErrorsAsFoundAndAsLeftOverTheDays) {
    const auto plot =
        drift({off(u"2025-03-02"_s, u"FOUND-LEFT"_s, 50), off(u"2024-03-01"_s, u"AS-LEFT"_s, 0),
               off(u"2024-03-01"_s, u"AS-FOUND"_s, 125), off(u"2023-03-01"_s, u"FOUND-LEFT"_s, 75)},
              QDate(2025, 3, 2));
    EXPECT_EQ(plot.title, u"PT-101: "_s + text(TextId::plotDrift).arg(u"12.000mA"_s));
    EXPECT_EQ(plot.x.scale, PlotScale::days);
    ASSERT_EQ(plot.series.size(), 3);
    const auto first = number({2023, 3, 1});
    const auto second = number({2024, 3, 1});
    const auto last = number({2025, 3, 2});
    EXPECT_EQ(plot.series[0].name, text(TextId::plotAsFound));
    EXPECT_EQ(shown(plot.series[0]), (QStringList{first + u"=75"_s, second + u"=125"_s, last + u"=50"_s}));
    EXPECT_EQ(plot.series[1].name, text(TextId::plotAsLeft));
    EXPECT_EQ(shown(plot.series[1]), QStringList(second + u"=0"_s));
    EXPECT_NE(plot.series[0].mark, plot.series[1].mark);
    EXPECT_EQ(plot.series[0].points[2].note, u"2025-03-02: 12.020mA, 50.0 %"_s);
    // Two runs of a slope of 50 percent in a year: a line for each, the second one to where it leaves.
    const auto fitted = shown(plot.series[2]);
    ASSERT_EQ(fitted.size(), 6);
    EXPECT_EQ(fitted.first(5), (QStringList{first + u"=75"_s, second + u"=125"_s, u"gap"_s, second + u"=0"_s,
                                            last + u"=50"_s}));
    EXPECT_FALSE(plot.series[2].hasMarks);
}

TEST_F(RecordPlots, OfDriftTellWhatTheFittedLineSays) {
    const QList<CalibrationRecord> rising{
        off(u"2026-03-01"_s, u"FOUND-LEFT"_s, 70), off(u"2025-03-01"_s, u"FOUND-LEFT"_s, 45),
        off(u"2024-03-01"_s, u"FOUND-LEFT"_s, 25), off(u"2023-03-01"_s, u"FOUND-LEFT"_s, 0)};
    const auto points = pointHistoryOf(session, rising);
    const auto line = *driftOf(points.points[0], rising, today).line;
    ASSERT_EQ(line.outlook, DriftOutlook::leaves);
    const auto plot = drift(rising);
    EXPECT_EQ(plot.notes,
              (QStringList{text(TextId::plotLeavesLimits).arg(line.leaving.toString(Qt::ISODate)),
                           text(TextId::plotIntervalKept).arg(*line.intervalKept).arg(line.horizon)}));
    const auto& end = plot.series[2].points.constLast();
    EXPECT_EQ(end.x, static_cast<double>(line.leaving.toJulianDay()));
    EXPECT_GT(end.y, 100);
    EXPECT_LT(end.y, 100.2);
    EXPECT_TRUE(plot.series[2].name.contains(QString::number(line.perYear, 'f', 1)));
}

TEST_F(RecordPlots, OfDriftTellThatTheLineStaysOrHasLeft) {
    const auto years = [&](double first, double perYear) {
        QList<CalibrationRecord> records;
        for (int year = 2026; year >= 2023; --year)
            records << off(u"%1-03-01"_s.arg(year), u"FOUND-LEFT"_s, first + perYear * (year - 2023));
        return drift(records);
    };
    const auto steady = years(25, 0);
    EXPECT_EQ(steady.notes, (QStringList{text(TextId::plotStaysInLimits).arg(1096),
                                         text(TextId::plotIntervalKept).arg(1096).arg(1096)}));
    EXPECT_EQ(shown(steady.series[2]).constLast(), number(QDate(2026, 3, 1).addDays(1096)) + u"=25"_s);
    const auto out = years(50, 25);
    EXPECT_EQ(out.notes, (QStringList{text(TextId::plotHasLeftLimits), text(TextId::plotIntervalNone)}));
    EXPECT_EQ(out.series[2].points.size(), 2);
}

TEST_F(RecordPlots, OfDriftTellTheDayOnWhichTheLineHasLeft) {
    const auto plot =
        drift({off(u"2025-03-01"_s, u"FOUND-LEFT"_s, 75), off(u"2024-03-01"_s, u"FOUND-LEFT"_s, 50),
               off(u"2023-03-02"_s, u"FOUND-LEFT"_s, 25), off(u"2022-03-02"_s, u"FOUND-LEFT"_s, 0)});
    // A quarter of the tolerance in each of the 365 days.
    EXPECT_EQ(plot.notes[0], text(TextId::plotLeavesLimits).arg(u"2026-03-02"_s));
    EXPECT_FALSE(plot.notes.contains(text(TextId::plotHasLeftLimits))) << "it has not at the last record";
    EXPECT_EQ(plot.series[2].points.constLast().x, static_cast<double>(QDate(2026, 3, 2).toJulianDay()));
}

TEST_F(RecordPlots, OfDriftTellThatTheWayItWasLeftIsUnknown) {
    const auto plot =
        drift({off(u"2026-03-01"_s, u"AS-FOUND"_s, 125), off(u"2025-03-01"_s, u"FOUND-LEFT"_s, 75),
               off(u"2024-03-01"_s, u"FOUND-LEFT"_s, 50), off(u"2023-03-01"_s, u"FOUND-LEFT"_s, 0)});
    EXPECT_EQ(plot.notes, QStringList(text(TextId::plotLeftUnknown)));
}

TEST_F(RecordPlots, OfDriftWithFewRecordsHaveNoLine) {
    const auto plot =
        drift({off(u"2026-03-01"_s, u"FOUND-LEFT"_s, 10), off(u"2025-03-01"_s, u"FOUND-LEFT"_s, 5)});
    EXPECT_EQ(plot.series.size(), 2);
    EXPECT_EQ(plot.notes, QStringList(text(TextId::plotNotEnough).arg(2).arg(3)));
}

TEST_F(RecordPlots, OfDriftSayWhatIsLeftOut) {
    const auto plot =
        drift({off(u"2026-03-19"_s, u"FOUND-LEFT"_s, 50), off(u"2026-03-01"_s, u"FOUND-LEFT"_s, 10),
               off(u"2025-03-01"_s, u"CHECK"_s, 20), record(u"2024-03-01"_s, u"FOUND-LEFT"_s, {u"by hand"_s}),
               off(QString(), u"FOUND-LEFT"_s, 30)});
    EXPECT_EQ(shown(plot.series[0]), QStringList(number({2026, 3, 1}) + u"=10"_s));
    EXPECT_EQ(plot.notes,
              (QStringList{text(TextId::plotNotEnough).arg(1).arg(3), text(TextId::plotLeftOut).arg(1).arg(5),
                           text(TextId::plotRecordsLeftOut).arg(3).arg(5)}));
}

} // namespace kelvane::testing
