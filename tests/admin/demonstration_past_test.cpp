#include "admin/demonstration_past.h"

#include "data/parameters/cal_params.h"
#include "data/records/due_date.h"
#include "drivers/judgement.h"
#include "tests/admin/past_database.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

using DemonstrationPast = PastDatabase;

std::string nameOf(const admin::PastInstrument& instrument) {
    return instrument.asset.toString().toStdString();
}

bool isOfOtherLaboratory(const admin::PastInstrument& instrument) {
    return !instrument.way->technician.isEmpty();
}

} // namespace

TEST_F(DemonstrationPast, GoesBackFiveYearsForFortyInstrumentsAndTheirStandards) {
    EXPECT_EQ(admin::pastInstruments().size(), 40U);
    EXPECT_EQ(value(u"select count(*) from mt.inventory where i4240 in ('BOILER', 'WATER')"_s), u"40");
    EXPECT_EQ(value(u"select count(distinct c.mtag) from mt.calibration as c join mt.inventory as i on "
                    "i.mtag = c.mtag where i4240 in ('BOILER', 'WATER') and c2301 <= '%1'"_s.arg(
                        day.addYears(-5).toString(Qt::ISODate))),
              u"40");
    for (const auto* instrument : all()) {
        SCOPED_TRACE(nameOf(*instrument));
        const auto records = recordsOf(instrument->asset);
        ASSERT_GE(records.size(), 5);
        EXPECT_LE(records.first().date, day.addYears(-5));
        EXPECT_LT(records.last().date, day);
        for (const auto& record : records)
            EXPECT_LE(record.date.dayOfWeek(), int{Qt::Friday});
        EXPECT_TRUE(std::ranges::is_sorted(
            records, {}, [](const PastRecord& record) { return std::pair(record.date, record.time); }));
    }
}

TEST_F(DemonstrationPast, VerdictsAndCountsFollowFromTheReadingsOfTheLines) {
    for (const auto* instrument : all()) {
        SCOPED_TRACE(nameOf(*instrument));
        const auto limits = limitsOf(instrument->asset);
        for (const auto& record : recordsOf(instrument->asset)) {
            SCOPED_TRACE(record.ctag.toStdString());
            ASSERT_EQ(record.points.size(), limits.points);
            int failed = 0;
            int marginal = 0;
            for (const auto& point : record.points) {
                const double nominal = limits.nominalOf(point.applied);
                const double upper = nominal + limits.width;
                const bool within = point.reading <= upper && point.reading >= nominal - limits.width;
                const double percent = (point.reading - nominal) / (upper - nominal) * 100;
                EXPECT_EQ(point.verdict, within ? u"PASS"_s : u"FAIL"_s) << point.line.toStdString();
                failed += within ? 0 : 1;
                marginal += percent >= 70 && percent <= 100 ? 1 : 0;
                EXPECT_EQ(point.comment == u"MARGINAL", percent >= 70 && percent <= 100)
                    << point.line.toStdString();
            }
            EXPECT_EQ(record.failed, failed);
            EXPECT_EQ(record.marginal, marginal);
            EXPECT_EQ(record.passed, failed == 0);
        }
    }
}

TEST_F(DemonstrationPast, EachLineIsTheOneThatTheProgramWritesOfItsReading) {
    for (const auto* instrument : all()) {
        SCOPED_TRACE(nameOf(*instrument));
        const auto parameters = ModuleGlobals::GetCalParams(session, instrument->asset.toString());
        for (const auto& record : recordsOf(instrument->asset)) {
            int number = 0;
            for (const auto& point : record.points) {
                const auto judged = judgePoint(session, parameters, point.applied, point.reading, ++number);
                EXPECT_EQ(point.line, judged.result_line);
            }
        }
    }
}

TEST_F(DemonstrationPast, AFailureIsFollowedByAnAdjustmentOfTheSameDay) {
    for (const auto* instrument : all()) {
        SCOPED_TRACE(nameOf(*instrument));
        const auto records = recordsOf(instrument->asset);
        for (qsizetype index = 0; index < records.size(); ++index) {
            const auto& record = records[index];
            SCOPED_TRACE(record.ctag.toStdString());
            const bool isSecond = index > 0 && records[index - 1].state == u"AS-FOUND";
            if (isSecond) {
                EXPECT_EQ(record.state, u"AS-LEFT");
                EXPECT_EQ(record.date, records[index - 1].date);
                EXPECT_GT(record.time, records[index - 1].time);
                EXPECT_EQ(record.technician, records[index - 1].technician);
                EXPECT_EQ(record.passed, instrument->behaviour.lasting == 0);
            } else {
                EXPECT_EQ(record.state, record.passed ? u"FOUND-LEFT"_s : u"AS-FOUND"_s);
            }
        }
        EXPECT_NE(records.last().state, u"AS-FOUND");
    }
}

TEST_F(DemonstrationPast, DueDatesAreThoseOfTheInterval) {
    for (const auto* instrument : all()) {
        SCOPED_TRACE(nameOf(*instrument));
        const auto months =
            value(u"select i4229 from mt.inventory where i4201 = '%1'"_s.arg(instrument->asset));
        for (const auto& record : recordsOf(instrument->asset)) {
            Moment date{record.date, QTime(0, 0)};
            float interval = months.toFloat();
            QString unit = u"M"_s;
            const auto due = ModuleGlobals::calcDueDate(session, {}, date, interval, unit);
            EXPECT_EQ(record.due, (record.passed ? due.date : record.date).toString(Qt::ISODate));
            if (record.passed) {
                EXPECT_NEAR(static_cast<double>(record.date.daysTo(due.date)), 30.4 * months.toDouble(), 6);
            }
        }
    }
}

TEST_F(DemonstrationPast, TheLatestRecordAloneIsTheCurrentOne) {
    for (const auto* instrument : all()) {
        SCOPED_TRACE(nameOf(*instrument));
        const auto records = recordsOf(instrument->asset);
        for (const auto& record : records)
            EXPECT_EQ(record.isCurrent, record.ctag == records.last().ctag) << record.ctag.toStdString();
        EXPECT_EQ(
            rows(u"select i4230,i4231 from mt.inventory where i4201 = '%1'"_s.arg(instrument->asset), 2),
            QStringList{records.last().date.toString(Qt::ISODate) + u'|' + records.last().due});
    }
}

TEST_F(DemonstrationPast, StandardsWereInCalibrationWhenTheyWereUsed) {
    int used = 0;
    for (const auto& instrument : admin::pastInstruments()) {
        SCOPED_TRACE(nameOf(instrument));
        QStringList expected;
        for (const auto standard : instrument.way->standards) {
            if (!standard.isEmpty())
                expected << mtagOf(standard);
        }
        for (const auto& record : recordsOf(instrument.asset)) {
            const auto standards =
                rows(u"select c2430 from mt.standards where ctag = %1 order by rowid"_s.arg(record.ctag));
            EXPECT_EQ(standards, expected);
            for (const auto& standard : standards) {
                const auto state =
                    rows(u"select c2323,c2303 from mt.calibration where mtag = '%1' and c2301 <= '%2' order "
                         u"by "
                         "c2301 desc, c2333 desc limit 1"_s.arg(standard, record.date.toString(Qt::ISODate)),
                         2)
                        .value(0)
                        .split(u'|');
                ASSERT_EQ(state.size(), 2) << "a standard that had not been calibrated";
                EXPECT_EQ(state[0], u"Y");
                EXPECT_GE(state[1], record.date.toString(Qt::ISODate));
                ++used;
            }
        }
    }
    EXPECT_GT(used, 400);
}

TEST_F(DemonstrationPast, RecordsSayWhoWhereAndInWhichConditions) {
    for (const auto* instrument : all()) {
        SCOPED_TRACE(nameOf(*instrument));
        const auto of = u" from mt.calibration where mtag = '%1'"_s.arg(mtagOf(instrument->asset));
        const auto count = value(u"select count(*)"_s + of);
        EXPECT_EQ(value(u"select count(*)"_s + of +
                        u" and c2306 = '%1' and c2309 = '%2' and c2315 = '%3' and "
                        "cdsrc = 'KVN'"_s.arg(instrument->way->laboratory, instrument->way->procedure,
                                              instrument->way->place)),
                  count);
        EXPECT_EQ(value(u"select count(*)"_s + of +
                        u" and c2312 between 5 and 35 and c2313 between 35 and 60 and c2390 = c2301 and "
                        "c2336 = c2338 and c2338 = c2391"_s),
                  count);
        EXPECT_EQ(value(u"select count(*)"_s + of +
                        u" and (c2323 = 'N') = (coalesce(c2326, '') like 'Out of %' or "
                        "coalesce(c2326, '') like '% to be replaced.')"_s),
                  count);
        if (isOfOtherLaboratory(*instrument)) {
            EXPECT_EQ(rows(u"select distinct c2307"_s + of), QStringList{u"rvargas"_s});
        } else {
            EXPECT_EQ(value(u"select count(*)"_s + of + u" and c2307 = c2336"_s), count);
        }
    }
    EXPECT_EQ(
        rows(u"select distinct c2307 from mt.calibration where mtag > '5000' and mtag < '5100' order by 1"_s),
        (QStringList{u"bkowalski"_s, u"cnguyen"_s, u"dsantos"_s, u"jdoe"_s}));
}

} // namespace kelvane::testing
