#include "simulators/technician/options.h"

#include "simulators/common/plan_parts.h"

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

int countOf(const GivenOptions& options, const QString& name, int high) {
    bool read = false;
    const int number = options.value(name).toInt(&read);
    if (!read || number < 0 || number > high)
        throw Failure(u"--%1 needs a whole number from 0 to %2."_s.arg(name).arg(high));
    return number;
}

QDateTime momentFrom(const GivenOptions& options) {
    const QDateTime now = QDateTime::currentDateTime();
    const QString date = options.isSet(u"date"_s) ? options.value(u"date"_s) : now.toString(u"yyyy-MM-dd"_s);
    const QString time = options.isSet(u"time"_s) ? options.value(u"time"_s) : now.toString(u"HH:mm:ss"_s);
    return momentOf(date + u' ' + time);
}

int intervalFrom(const GivenOptions& options) {
    return countOf(options, u"interval"_s, 86400);
}

void refuseBesidePlan(const GivenOptions& options, const QStringList& names) {
    for (const QString& name : names)
        if (options.isSet(u"plan"_s) && options.isSet(name))
            throw Failure(u"--%1 and --plan say the same thing twice."_s.arg(name));
}

} // namespace kelvane::simulators
