#include "admin/past_errors.h"
#include "admin/past_instruments.h"
#include "tests/admin/past_database.h"

#include <QFile>
#include <QRegularExpression>

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// What the records tell of the instruments' behaviours.
class PastBehaviours : public PastDatabase {
  protected:
    /// The error at the top of the range, in fractions of the tolerance.
    double topError(const admin::PastInstrument& instrument, const PastRecord& record) {
        const auto limits = limitsOf(instrument.asset);
        const auto top = std::ranges::max_element(record.points, {}, &PastPoint::applied);
        return (top->reading - limits.nominalOf(top->applied)) / limits.width;
    }
    int failuresOf(const admin::PastInstrument& instrument) {
        int failures = 0;
        for (const auto& record : recordsOf(instrument.asset))
            failures += record.state == u"AS-FOUND" ? 1 : 0;
        return failures;
    }
    /// What a year has added between calibrations without an adjustment.
    double driftOf(const admin::PastInstrument& instrument) {
        double added = 0;
        double years = 0;
        const auto records = recordsOf(instrument.asset);
        for (qsizetype index = 1; index < records.size(); ++index) {
            if (records[index].state == u"AS-LEFT")
                continue;
            added += topError(instrument, records[index]) - topError(instrument, records[index - 1]);
            years += static_cast<double>(records[index - 1].date.daysTo(records[index].date)) / 365.25;
        }
        return added / years;
    }
};

std::string nameOf(const admin::PastInstrument& instrument) {
    return instrument.asset.toString().toStdString();
}

bool isSteady(const admin::Behaviour& behaviour) {
    return behaviour.driftPerYear == 0 && behaviour.noise < 0.1 && behaviour.jump == 0 &&
           behaviour.lasting == 0;
}

} // namespace

TEST(PastPage, NamesEachInstrumentThatIsNotSteadyAndNoOther) {
    QFile file(QStringLiteral(KELVANE_SOURCES "/docs/demonstration-data.md"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const auto page = QString::fromUtf8(file.readAll());
    int steady = 0;
    QStringList known;
    for (const auto& instrument : admin::pastInstruments()) {
        known << instrument.asset.toString();
        const bool isNamed = page.contains(u'`' + instrument.asset.toString() + u'`');
        EXPECT_EQ(isNamed, !isSteady(instrument.behaviour) || instrument.isOverdue) << nameOf(instrument);
        steady += isSteady(instrument.behaviour) ? 1 : 0;
    }
    for (const auto& standard : admin::pastStandards()) {
        known << standard.asset.toString();
        EXPECT_TRUE(page.contains(u'`' + known.last() + u'`')) << nameOf(standard);
    }
    static const QRegularExpression name(u"`([A-Z0-9]{2,4}-[A-Z]*-?[0-9]+)`"_s);
    const auto section = page.section(u"## A past of five years"_s, 1).section(u"\n## "_s, 0, 0);
    for (const auto& match : name.globalMatch(section))
        EXPECT_TRUE(known.contains(match.captured(1))) << match.captured(1).toStdString();
    EXPECT_TRUE(page.contains(u"| steady | the other %1 |"_s.arg(steady)));
}

TEST_F(PastBehaviours, DriftingOnesDriftAsFastAsTheTableSays) {
    int drifting = 0;
    for (const auto* instrument : all()) {
        const double drift = instrument->behaviour.driftPerYear;
        if (drift == 0)
            continue;
        ++drifting;
        EXPECT_NEAR(driftOf(*instrument), drift, 0.05 + 0.2 * std::abs(drift)) << nameOf(*instrument);
        // The slow ones stay within their limits.
        const int failures = failuresOf(*instrument);
        EXPECT_EQ(failures > 0, std::abs(drift) > 0.3) << nameOf(*instrument) << ": " << failures;
    }
    EXPECT_GE(drifting, 12);
}

TEST_F(PastBehaviours, SteadyOnesNeverLeaveTheirLimits) {
    int steady = 0;
    for (const auto* instrument : all()) {
        if (!isSteady(instrument->behaviour))
            continue;
        ++steady;
        EXPECT_EQ(failuresOf(*instrument), 0) << nameOf(*instrument);
    }
    EXPECT_GE(steady, 20);
}

TEST_F(PastBehaviours, OneJumpsOnce) {
    int jumping = 0;
    for (const auto& instrument : admin::pastInstruments()) {
        if (instrument.behaviour.jump == 0)
            continue;
        ++jumping;
        EXPECT_EQ(failuresOf(instrument), 1);
        const auto records = recordsOf(instrument.asset);
        const auto failure = std::ranges::find(records, u"AS-FOUND"_s, &PastRecord::state);
        ASSERT_NE(failure, records.begin());
        ASSERT_NE(failure, records.end());
        EXPECT_GT(topError(instrument, *failure) - topError(instrument, *(failure - 1)), 1);
        const auto event = day.addDays(-qRound(instrument.behaviour.yearsSinceJump * 365.25));
        EXPECT_LT((failure - 1)->date, event);
        EXPECT_GE(failure->date, event);
    }
    EXPECT_EQ(jumping, 1);
}

TEST_F(PastBehaviours, OneWasNeverIn) {
    int neverIn = 0;
    for (const auto& instrument : admin::pastInstruments()) {
        const auto records = recordsOf(instrument.asset);
        const bool isIn = std::ranges::any_of(records, &PastRecord::passed);
        EXPECT_EQ(isIn, instrument.behaviour.lasting == 0) << nameOf(instrument);
        neverIn += isIn ? 0 : 1;
    }
    EXPECT_EQ(neverIn, 1);
}

TEST_F(PastBehaviours, NoisyOnesScatterAndAreOutNowAndThen) {
    int noisy = 0;
    int failures = 0;
    for (const auto& instrument : admin::pastInstruments()) {
        if (instrument.behaviour.noise < 0.3)
            continue;
        ++noisy;
        failures += failuresOf(instrument);
        EXPECT_TRUE(std::ranges::any_of(recordsOf(instrument.asset), &PastRecord::passed))
            << nameOf(instrument);
    }
    EXPECT_EQ(noisy, 4);
    EXPECT_GE(failures, 2);
}

TEST_F(PastBehaviours, AStandardWasFoundOutOfToleranceAfterInstrumentsHadBeenCalibratedWithIt) {
    int found = 0;
    for (const auto& standard : admin::pastStandards()) {
        const auto records = recordsOf(standard.asset);
        for (qsizetype index = 1; index < records.size(); ++index) {
            if (records[index].state != u"AS-FOUND")
                continue;
            const auto uses = value(
                u"select count(*) from mt.standards as s join mt.calibration as c on c.ctag = s.ctag where "
                "c2430 = '%1' and c2301 between '%2' and '%3'"_s.arg(
                    mtagOf(standard.asset), records[index - 1].date.toString(Qt::ISODate),
                    records[index].date.toString(Qt::ISODate)));
            found += uses.toInt() >= 5 ? 1 : 0;
        }
    }
    EXPECT_GE(found, 1);
}

TEST_F(PastBehaviours, SomeAreOverdueAndOthersDueInTheNextMonths) {
    const auto dueFrom = [&](int from, int days) {
        return value(u"select count(*) from mt.inventory where i4240 in ('BOILER', 'WATER') and i4231 "
                     u"between '%1' "
                     "and '%2'"_s.arg(day.addDays(from).toString(Qt::ISODate),
                                      day.addDays(days).toString(Qt::ISODate)))
            .toInt();
    };
    EXPECT_GE(dueFrom(-3000, -1), 3);
    EXPECT_GE(dueFrom(0, 90), 4);
    EXPECT_GE(dueFrom(91, 400), 15);
}

} // namespace kelvane::testing
