#include "data/history/calibrations.h"

#include "testkit/database_session.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class CalibrationsOnDatabase : public DatabaseSession {
  protected:
    QList<CalibrationRecord> read(const QString& asset) {
        const auto records = calibrationsOf(session, asset);
        EXPECT_TRUE(records.has_value());
        return records.value_or(QList<CalibrationRecord>());
    }
    static QString shown(const QString& value) { return value.isEmpty() ? u"(null)"_s : value; }
    static QString stateText(StandardState state) {
        static const QStringList names{u"in"_s, u"overdue"_s, u"failed"_s, u"no due"_s, u"none"_s};
        return names[static_cast<int>(state)];
    }
    QString day(int ahead) const { return clock.now().date().addDays(ahead).toString(u"yyyy-MM-dd"_s); }
};

} // namespace

TEST_F(CalibrationsOnDatabase, AreTheRecordsOfEachInstrumentTheNewestFirst) {
    qsizetype count = 0;
    for (const auto& asset : values(u"select i4201 from mt.inventory"_s)) {
        const auto expected =
            rows(u"select ctag,c2301,c2333,c2303,c2308,c2323,c2307,c2306,c2309,c2320,c2315,c2312,"
                 "c2350,c2352,cdsrc from mt.calibration where mtag = (select mtag from mt.inventory "
                 "where i4201 = '%1') order by c2301 desc"_s.arg(QString(asset).replace(u"'"_s, u"''"_s)),
                 15);
        QStringList found;
        for (const auto& record : read(asset)) {
            QStringList cells;
            for (const auto& value :
                 {record.ctag, record.date.text, record.time.text, record.due.text, record.state,
                  record.passed, record.technician, record.laboratory, record.procedure, record.strategy,
                  record.place, record.ambientTemperature, record.marginalPoints, record.failedPoints,
                  record.source})
                cells << shown(value);
            found << cells.join(u'|');
        }
        EXPECT_EQ(found, expected) << asset.toStdString();
        count += found.size();
    }
    EXPECT_EQ(QString::number(count), value(u"select count(*) from mt.calibration"_s));
}

TEST_F(CalibrationsOnDatabase, HaveTheirStandardsAndLines) {
    const auto records = read(u"PT-101"_s);
    ASSERT_EQ(records.size(), 3);
    QStringList standards;
    for (const auto& standard : records[0].standards)
        standards << QStringList{standard.mtag, standard.asset, standard.description, standard.serial}.join(
            u'|');
    EXPECT_EQ(standards,
              rows(u"select c2430,i4201,i4204,i4206 from mt.standards s join mt.inventory i on i.mtag = "
                   "s.c2430 where s.mtag = '1401' order by i4201"_s,
                   4));
    EXPECT_EQ(records[0].lines,
              rows(u"select c2501 from mt.calresults where mtag = '1401' order by c2502"_s));
    EXPECT_EQ(records[0].lines.size(), 5);
    EXPECT_TRUE(records[1].standards.isEmpty() && records[1].lines.isEmpty());
}

TEST_F(CalibrationsOnDatabase, TellTheirStandardsByTheRecordsOfThatDay) {
    // The days of the engine: the calibration, the record of the standard that it falls into, and its due
    // date.
    execute(u"insert into mt.standards (c2430,mtag,ctag) select '1203',mtag,ctag from mt.calibration where "
            u"mtag = "
            "'1401'"_s);
    execute(u"insert into mt.calibration (mtag,cdsrc,c2301,c2333,c2303,c2334,c2323) values "
            "('1203','MTK','%1','08:00:00','%2','12:00:00','Y')"_s.arg(day(-1200), day(-600)));
    const auto expected =
        rows(u"select c.c2301,(select max(s.c2301) from mt.calibration s where s.mtag = '1203' and s.c2301 "
             u"<= c.c2301),case "
             "when (select max(s.c2303) from mt.calibration s where s.mtag = '1203' and s.c2301 <= c.c2301) "
             "> c.c2301 then "
             "'in' else 'overdue' end from mt.calibration c where c.mtag = '1401' order by c.c2301 desc"_s,
             3);
    QStringList found;
    for (const auto& record : read(u"PT-101"_s)) {
        for (const auto& standard : record.standards) {
            if (standard.asset == u"DMM-01")
                found << QStringList{record.date.text, standard.calibrated.text, stateText(standard.state)}
                             .join(u'|');
        }
    }
    EXPECT_EQ(found.size(), 3);
    EXPECT_EQ(found, expected);
    EXPECT_TRUE(found.join(u' ').contains(u"overdue"_s) && found.join(u' ').contains(u"|in"_s))
        << found.join(u' ').toStdString();
}

TEST_F(CalibrationsOnDatabase, OfAnUncalibratedOrUnknownInstrumentAreNone) {
    EXPECT_TRUE(read(u"PM-300"_s).isEmpty());
    EXPECT_TRUE(read(u"no such"_s).isEmpty());
    EXPECT_TRUE(read(u"' or '1' = '1"_s).isEmpty());
    EXPECT_EQ(read(u"LT-10'COL"_s).size(), 1);
}

TEST_F(CalibrationsOnDatabase, WithNothingButNullsComeLast) {
    execute(u"insert into mt.calibration (mtag) values ('1401')"_s);
    const auto records = read(u"PT-101"_s);
    ASSERT_EQ(records.size(), 4);
    const auto& last = records.last();
    EXPECT_EQ(last.date.text + last.state + last.passed + last.source + last.remarks, QString());
    EXPECT_EQ(last.ctag, value(u"select max(ctag) from mt.calibration"_s));
}

TEST_F(CalibrationsOnDatabase, OfOneMomentHaveTheLaterOneFirst) {
    execute(u"insert into mt.calibration (mtag,c2301,c2333,c2308) select mtag,c2301,c2333,'AS-LEFT' from "
            "mt.calibration where mtag = '1402' and c2339 = '1'"_s);
    const auto records = read(u"PT-102"_s);
    ASSERT_EQ(records.size(), 2);
    EXPECT_EQ(records[0].run, CalibrationRun::asLeft);
    EXPECT_EQ(records[1].run, CalibrationRun::foundLeft);
}

TEST_F(CalibrationsOnDatabase, OfAnotherOwnerTakeTheStandardsOfStd) {
    logIn(users::editorOfAbc);
    execute(u"insert into abc.calibration (mtag,c2301,c2333,c2323) values ('3401','%1','10:00:00','Y')"_s.arg(
        day(0)));
    for (const auto& standard : {u"3001"_s, u"3003"_s, u"3102"_s, u"3004"_s})
        execute(u"insert into mt.standards (c2430,mtag,ctag) select '%1',mtag,ctag from abc.calibration "
                u"where mtag = "
                "'3401'"_s.arg(standard));
    execute(u"delete from std.calibration where mtag = '2004'"_s);
    const auto records = read(u"ABC-PT-1"_s);
    ASSERT_EQ(records.size(), 1);
    QStringList found;
    for (const auto& standard : records[0].standards)
        found << standard.asset + u' ' + stateText(standard.state);
    EXPECT_EQ(found, (QStringList{u"F702-11 in"_s, u"STD-LOW-1 none"_s, u"STD-OLD-1 overdue"_s,
                                  u"STD-TT-0150F in"_s}));
}

} // namespace kelvane::testing
