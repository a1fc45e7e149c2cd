#include "simulators/technician/options.h"

#include "simulators/common/plan_parts.h"

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

int countOf(const QCommandLineParser& parser, const QString& name, int high) {
    bool read = false;
    const int number = parser.value(name).toInt(&read);
    if (!read || number < 0 || number > high)
        throw Failure(u"--%1 needs a whole number from 0 to %2."_s.arg(name).arg(high));
    return number;
}

QDateTime momentFrom(const QCommandLineParser& parser) {
    const QDateTime now = QDateTime::currentDateTime();
    const QString date = parser.isSet(u"date"_s) ? parser.value(u"date"_s) : now.toString(u"yyyy-MM-dd"_s);
    const QString time = parser.isSet(u"time"_s) ? parser.value(u"time"_s) : now.toString(u"HH:mm:ss"_s);
    return momentOf(date + u' ' + time);
}

int intervalFrom(const QCommandLineParser& parser) {
    return countOf(parser, u"interval"_s, 86400);
}

void refuseBesidePlan(const QCommandLineParser& parser, const QStringList& names) {
    for (const QString& name : names)
        if (parser.isSet(u"plan"_s) && parser.isSet(name))
            throw Failure(u"--%1 and --plan say the same thing twice."_s.arg(name));
}

} // namespace kelvane::simulators
