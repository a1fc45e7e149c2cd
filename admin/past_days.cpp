#include "admin/past_days.h"

#include "admin/past_random.h"

#include <algorithm>
#include <tuple>

namespace kelvane::admin {

namespace {

constexpr int years = 5;
constexpr int daysOfMonth = 30;
/// A calibration comes so many days before its due date, which itself may be moved to a working day ahead.
constexpr int soonest = 20;
constexpr int latest = 12;
/// The last days belong to what the demonstration does itself. Shorter than the time to the due date, so that
/// what would have been done in them is still in calibration.
constexpr int quietDays = 7;
/// A calibration that was left out has to be so old that the one ahead of it has run out.
constexpr int daysOverdue = 2 * soonest;
/// Between two calibrations that are begun in the same way, so that they have nothing in common.
constexpr unsigned seedsOfInstrument = 1000;

bool isDayOff(const QDate& day) {
    constexpr std::pair<int, int> holidays[] = {{1, 1}, {5, 1}, {12, 25}, {12, 26}};
    return day.dayOfWeek() > Qt::Friday ||
           std::ranges::find(holidays, std::pair{day.month(), day.day()}) != std::end(holidays);
}

QDate workingDayUpTo(QDate day) {
    while (isDayOff(day))
        day = day.addDays(-1);
    return day;
}

/// In the morning or in the afternoon, so that adjustment and second run end on the same day.
QTime timeOfWork(PastRandom& random) {
    return QTime(7, 30).addSecs(random.whole(0, 7 * 60 * 60));
}

void addCalibrations(QList<PastCalibration>& all, const PastInterval& interval, const QDate& first,
                     const QDate& day, unsigned seed) {
    PastRandom random(seed);
    QList<PastCalibration> own;
    const auto end = day.addDays(-quietDays);
    for (auto date = first; date < end;) {
        const auto working = workingDayUpTo(date);
        own << PastCalibration{interval.instrument, {working, timeOfWork(random)}, ++seed};
        date = working.addMonths(interval.months).addDays(-random.whole(latest, soonest));
    }
    if (interval.instrument->isOverdue) {
        const auto overdue = [&](const PastCalibration& next) {
            return next.moment.date < day.addDays(-daysOverdue);
        };
        while (!overdue(own.takeLast())) {
        }
    }
    all << own;
}

} // namespace

QList<PastCalibration> calibrationsBefore(const QDate& day, const QList<PastInterval>& instruments,
                                          const QList<PastInterval>& standards) {
    // Parts of an interval that come out all different, whatever its length.
    constexpr int step = 47;
    const auto start = day.addYears(-years).addDays(-10);
    QList<PastCalibration> all;
    unsigned row = 0;
    for (const auto& interval : standards) {
        const auto first = start.addYears(-1).addDays(-soonest - static_cast<int>(row) * step);
        addCalibrations(all, interval, first, day, ++row * seedsOfInstrument);
    }
    for (const auto& interval : instruments) {
        const auto spread = static_cast<int>(row) * step % (interval.months * daysOfMonth);
        addCalibrations(all, interval, start.addDays(-spread), day, ++row * seedsOfInstrument);
    }
    std::ranges::stable_sort(all, {}, [](const PastCalibration& calibration) {
        return std::tuple(calibration.moment.date, calibration.moment.time);
    });
    return all;
}

} // namespace kelvane::admin
