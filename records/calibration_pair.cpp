#include "records/calibration_pair.h"

namespace kelvane {

namespace {

bool belongTogether(const QList<CalibrationRecord>& records, qsizetype asLeft, qsizetype asFound) {
    if (asLeft < 0 || asFound >= records.size())
        return false;
    const auto& left = records[asLeft];
    const auto& found = records[asFound];
    return left.run == CalibrationRun::asLeft && found.run == CalibrationRun::asFound &&
           left.date.hasDate() && found.date.hasDate();
}

} // namespace

CalibrationPair pairOf(const QList<CalibrationRecord>& records, qsizetype chosen) {
    if (records[chosen].run == CalibrationRun::asLeft) {
        CalibrationPair pair{.asLeft = chosen};
        if (belongTogether(records, chosen, chosen + 1))
            pair.asFound = chosen + 1;
        return pair;
    }
    CalibrationPair pair{.asFound = chosen};
    if (belongTogether(records, chosen - 1, chosen))
        pair.asLeft = chosen - 1;
    return pair;
}

} // namespace kelvane
