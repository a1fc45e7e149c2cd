#include "data/history/pass_rate.h"
#include "data/history/point_drift.h"
#include "tests/admin/past_database.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// What is worked out of the records, against the behaviours that made them and against the engine.
class PastFigures : public PastDatabase {
  protected:
    PastFigures() { clock.set(day.year(), day.month(), day.day(), 12); }

    QList<CalibrationRecord> calibrations(QStringView asset) {
        return calibrationsOf(session, asset.toString()).value_or(QList<CalibrationRecord>());
    }
    /// The point with the largest nominal value of the newest record.
    static const InstrumentPoint& top(const PointHistory& history) {
        return *std::ranges::max_element(history.points, {}, [](const InstrumentPoint& point) {
            return point.errors.constFirst().record == 0
                       ? point.nominal.left(point.nominal.indexOf(u'.')).toDouble()
                       : -1e9;
        });
    }
};

} // namespace

TEST_F(PastFigures, HaveEachLineAsAnErrorOfItsPoint) {
    for (const auto* instrument : all()) {
        const auto made = recordsOf(instrument->asset);
        const auto records = calibrations(instrument->asset);
        const auto history = pointHistoryOf(session, records);
        const auto limits = limitsOf(instrument->asset);
        EXPECT_EQ(history.points.size(), limits.points) << instrument->asset.toString().toStdString();
        qsizetype errors = 0;
        for (const auto& point : history.points) {
            for (const auto& error : point.errors) {
                ++errors;
                const auto& record = made[made.size() - 1 - error.record];
                const auto& source = record.points[&point - history.points.constData()];
                const double percent = (source.reading - source.nominal) / limits.width * 100;
                // The stored figures are rounded.
                EXPECT_NEAR(error.percent, percent, 2 + 0.05 * std::abs(percent))
                    << source.line.toStdString();
            }
        }
        EXPECT_EQ(errors, history.lines);
        EXPECT_EQ(history.unreadable + history.withoutTolerance, 0);
    }
}

TEST_F(PastFigures, TellTheDriftThatTheInstrumentsWereMadeWith) {
    int drifting = 0;
    int within = 0;
    for (const auto* instrument : all()) {
        const auto& behaviour = instrument->behaviour;
        const auto records = calibrations(instrument->asset);
        const auto history = pointHistoryOf(session, records);
        const auto drift = driftOf(top(history), records, day);
        if (behaviour.jump != 0)
            continue;
        if (!drift.line) {
            EXPECT_LT(drift.days, drift.daysNeeded);
            continue;
        }
        ++drifting;
        const double expected = behaviour.driftPerYear * 100;
        within += std::abs(drift.line->perYear - expected) <= drift.line->perYearBound ? 1 : 0;
        EXPECT_NEAR(drift.line->perYear, expected, 4 * drift.line->perYearBound)
            << instrument->asset.toString().toStdString();
    }
    EXPECT_GE(drifting, 35);
    // A confidence of 95 percent; a day of making with more than a quarter outside is all but impossible.
    EXPECT_GE(within, drifting * 3 / 4);
}

TEST_F(PastFigures, HaveThePassRatesOfTheEngine) {
    const auto rates = passRatesSince(session, QDate(2000, 1, 1));
    ASSERT_TRUE(rates);
    const auto counts = [&](const QString& key) {
        return rows(
            u"select %1,sum(case when c2323 = 'Y' then 1 else 0 end),count(*) from mt.calibration cal "
            "join mt.inventory inv on inv.mtag = cal.mtag where c2308 <> 'AS-LEFT' group by %1 order "
            "by %1"_s.arg(key),
            3);
    };
    const auto shown = [](const QMap<QString, PassRate>& counted) {
        QStringList found;
        for (auto rate = counted.cbegin(); rate != counted.cend(); ++rate) {
            if (rate->counted() > 0)
                found << u"%1|%2|%3"_s.arg(rate.key()).arg(rate->passed).arg(rate->counted());
        }
        return found;
    };
    EXPECT_EQ(shown(rates->byMonth), counts(u"substr(cal.c2301,1,7)"_s));
    EXPECT_EQ(shown(rates->byModel), counts(u"inv.i4203"_s));
    EXPECT_EQ(shown(rates->byGroup), counts(u"inv.i4240"_s));
    EXPECT_GT(rates->all.failed, 20);
    EXPECT_EQ(rates->undated + rates->inFuture + rates->otherState + rates->otherResult, 0);
}

} // namespace kelvane::testing
