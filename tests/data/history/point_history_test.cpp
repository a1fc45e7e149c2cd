#include "data/history/point_history.h"

#include "testkit/fixtures.h"
#include "tests/data/tolerances/tolerance_points.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// Records with lines that the workstation has judged: of 0 to 100 psig in and 4 to 20 mA out, within 0.040
/// mA.
class Points : public RecordedSession {
  protected:
    Points() {
        session.ResultTemplateLine = u"TN$ FN$           FVA$          FRE$          TT$         DE$         "
                                     u" ET$  TU$ CO$         FLL$"
                                     "        FUL$          TR$"_s;
    }

    static Point transmitter(double input, double output) {
        Point point{input, output, 0, 100, 20, 4, u"0.001"_s, u"psig"_s, u"mA"_s, 0.001F};
        point.pos.units = 0.04F;
        point.neg.units = 0.04F;
        return point;
    }
    QString line(const Point& point) { return calculate(session, point).result_line; }
    QString line(double input, double output) { return line(transmitter(input, output)); }
    static CalibrationRecord record(const QStringList& lines) {
        CalibrationRecord made;
        made.lines = lines;
        return made;
    }
    PointHistory read(const QList<QStringList>& records) {
        QList<CalibrationRecord> made;
        for (const auto& lines : records)
            made << record(lines);
        return pointHistoryOf(session, made);
    }
    /// As "12.000mA 1: 0=25 1=-50", in whole percents.
    static QStringList shown(const PointHistory& history) {
        QStringList points;
        for (const auto& point : history.points) {
            points << u"%1 %2:"_s.arg(point.nominal).arg(point.occurrence);
            for (const auto& error : point.errors)
                points.last() += u" %1=%2"_s.arg(error.record).arg(qRound(error.percent));
        }
        return points;
    }
};

} // namespace

TEST_F(Points, HaveTheErrorOfEachRecordInPercentOfTheTolerance) {
    const auto history = read({{line(0, 4.01), line(50, 11.98), line(100, 20.06)},
                               {line(0, 3.96), line(50, 12), line(100, 20.001)}});
    EXPECT_EQ(shown(history), (QStringList{u"4.000mA 1: 0=25 1=-100"_s, u"12.000mA 1: 0=-50 1=0"_s,
                                           u"20.000mA 1: 0=150 1=3"_s}));
    EXPECT_NEAR(history.points[2].errors[1].percent, 2.5, 1e-9);
    EXPECT_EQ(history.points[1].errors[0].reading, u"11.980mA"_s);
    EXPECT_EQ(history.lines, 6);
    EXPECT_EQ(history.unreadable + history.withoutTolerance, 0);
}

TEST_F(Points, OfTheWayBackAreOthersThanThoseOfTheWayThere) {
    const QStringList thereAndBack{line(0, 4.01), line(50, 12.01), line(100, 20.01), line(50, 12.03),
                                   line(0, 4.02)};
    EXPECT_EQ(shown(read({thereAndBack, {line(50, 12.02), line(0, 4)}})),
              (QStringList{u"4.000mA 1: 0=25 1=0"_s, u"12.000mA 1: 0=25 1=50"_s, u"20.000mA 1: 0=25"_s,
                           u"12.000mA 2: 0=75"_s, u"4.000mA 2: 0=50"_s}));
}

TEST_F(Points, AreTheSameThoughTheAppliedValueIsNeverQuite) {
    const auto history = read({{line(0.1, 4.016), line(50.4, 12.064)}, {line(0, 4), line(49.6, 11.936)}});
    EXPECT_EQ(shown(history), (QStringList{u"4.016mA 1: 0=0 1=0"_s, u"12.064mA 1: 0=0 1=0"_s}));
}

TEST_F(Points, AreMatchedWithTheNearestOfThoseThatAreNearEnough) {
    EXPECT_EQ(shown(read({{line(0, 4), line(50, 12), line(53, 12.48), line(100, 20)},
                          {line(0, 4), line(51.6, 12.256), line(51.4, 12.224), line(100, 20)}})),
              (QStringList{u"4.000mA 1: 0=0 1=0"_s, u"12.000mA 1: 0=0 1=0"_s, u"12.480mA 1: 0=0 1=0"_s,
                           u"20.000mA 1: 0=0 1=0"_s}));
}

TEST_F(Points, FartherApartThanTwoPercentOfTheSpanAreOthers) {
    EXPECT_EQ(shown(read(
                  {{line(0, 4), line(50, 12), line(100, 20)}, {line(0, 4), line(53, 12.48), line(100, 20)}})),
              (QStringList{u"4.000mA 1: 0=0 1=0"_s, u"12.000mA 1: 0=0"_s, u"20.000mA 1: 0=0 1=0"_s,
                           u"12.480mA 1: 1=0"_s}));
}

TEST_F(Points, OfRecordsWithOneValueSpanAsMuchAsThatIs) {
    EXPECT_EQ(shown(read({{line(100, 20)}, {line(99, 19.84)}, {line(97, 19.52)}})),
              (QStringList{u"20.000mA 1: 0=0 1=0"_s, u"19.520mA 1: 2=0"_s}));
}

TEST_F(Points, OfAnotherUnitOrRangeAreOthers) {
    auto inVolts = transmitter(50, 12);
    inVolts.output_units = u"V"_s;
    auto inBar = transmitter(50, 12);
    inBar.input_units = u"bar"_s;
    auto ofAnotherRange = transmitter(150, 12);
    ofAnotherRange.input_high = 300;
    const auto ends = QStringList{line(0, 4), line(100, 20)};
    const auto history = read({ends + QStringList{line(50, 12)}, ends + QStringList{line(inVolts)},
                               ends + QStringList{line(inBar)}, ends + QStringList{line(ofAnotherRange)}});
    EXPECT_EQ(shown(history), (QStringList{u"4.000mA 1: 0=0 1=0 2=0 3=0"_s, u"20.000mA 1: 0=0 1=0 2=0 3=0"_s,
                                           u"12.000mA 1: 0=0"_s, u"12.000V 1: 1=0"_s, u"12.000mA 1: 2=0"_s,
                                           u"12.000mA 1: 3=0"_s}));
}

TEST_F(Points, AreMeasuredByTheLimitOnTheSideOfTheirError) {
    auto high = transmitter(50, 12.05);
    high.pos.units = 0.1F;
    high.neg.units = 0.02F;
    auto low = high;
    low.output = 11.97;
    auto none = high;
    none.output = 12;
    EXPECT_EQ(shown(read({{line(high)}, {line(low)}, {line(none)}})),
              (QStringList{u"12.000mA 1: 0=50 1=-150 2=0"_s}));
}

TEST_F(Points, WithoutLimitsInTheTemplateAreMeasuredByTheirTolerance) {
    session.ResultTemplateLine =
        u"TN$ FN$           FVA$          FRE$          TT$         DE$          ET$  TU$ TR$"_s;
    EXPECT_EQ(shown(read({{line(50, 12.02)}, {line(50, 11.98)}})),
              (QStringList{u"12.000mA 1: 0=50 1=-50"_s}));
}

// One that is smaller than the last digit is printed as zero.
TEST_F(Points, WithoutAToleranceAreLeftOutAndCounted) {
    auto exact = transmitter(50, 12.01);
    exact.pos.units = 0.0001F;
    exact.neg.units = 0.0001F;
    auto oneSided = transmitter(50, 12.01);
    oneSided.pos.units = 0.0001F;
    const auto history = read({{line(exact), line(oneSided), line(50, 12.01)}});
    EXPECT_EQ(shown(history), (QStringList{u"12.000mA 1: 0=25"_s}));
    EXPECT_EQ(history.lines, 3);
    EXPECT_EQ(history.withoutTolerance, 2);
    EXPECT_EQ(history.unreadable, 0);
}

TEST_F(Points, OfTemplatesWithoutErrorOrToleranceAreLeftOutAndCounted) {
    for (const auto& layout :
         {u"TN$ FN$           FVA$          FRE$          DE$          TR$"_s,
          u"TN$ FN$           FVA$          FRE$          FLL$        FUL$          TR$"_s}) {
        session.ResultTemplateLine = layout;
        const auto history = read({{line(50, 12.01)}});
        EXPECT_TRUE(history.points.isEmpty());
        EXPECT_EQ(history.withoutTolerance, 1) << layout.toStdString();
    }
}

TEST_F(Points, OfLinesThatCantBeReadAreLeftOutAndCounted) {
    const auto good = line(50, 12.01);
    const auto history = read(
        {{good, u"written by hand"_s, u""_s, u"   "_s}, {QString(good).replace(u"PASS"_s, u"FAIL"_s)}, {}});
    EXPECT_EQ(shown(history), (QStringList{u"12.000mA 1: 0=25"_s}));
    EXPECT_EQ(history.lines, 3);
    EXPECT_EQ(history.unreadable, 2);
}

TEST_F(Points, ThatMayBeOfTheWayBackAreLeftOutWhereALineOfTheRecordIsMissing) {
    const QStringList whole{line(0, 4.01), line(50, 11.976), line(100, 20.01), line(50, 12.024)};
    auto damaged = whole;
    damaged[1] = u"written by hand"_s;
    const auto history = read({whole, damaged, whole});
    EXPECT_EQ(shown(history), (QStringList{u"4.000mA 1: 0=25 1=25 2=25"_s, u"12.000mA 1: 0=-60 2=-60"_s,
                                           u"20.000mA 1: 0=25 1=25 2=25"_s, u"12.000mA 2: 0=60 2=60"_s}));
    EXPECT_EQ(history.unreadable, 1);
    EXPECT_EQ(history.uncertain, 1);
    EXPECT_EQ(history.leftOut(), 2);
}

TEST_F(Points, OfAnotherTemplateAreLeftOutAndCounted) {
    const auto good = line(50, 12.01);
    session.ResultTemplateLine = u"TN$   FN$         FVA$         FRE$         TT$        DE$        TR$"_s;
    EXPECT_EQ(read({{good}}).unreadable, 1);
    session.ResultTemplateLine.clear();
    EXPECT_EQ(read({{good}}).unreadable, 1);
}

TEST_F(Points, OfNoRecordsAreNone) {
    const auto history = read({});
    EXPECT_TRUE(history.points.isEmpty());
    EXPECT_EQ(history.lines, 0);
}

} // namespace kelvane::testing
