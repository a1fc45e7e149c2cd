#include "simulators/torquestar/plan.h"

#include "simulators/torquestar/failure.h"
#include "simulators/torquestar/memory.h"

#include <QSet>
#include <QStringList>

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

Errand errandOf(const QString& line) {
    const QStringList parts = line.split(u';');
    if (parts.size() < 2 || parts.size() > 5)
        throw Failure(
            u"a line is NAME; NOMINALS; DEVIATIONS; COMMENT; DATE TIME, the last three may be missing"_s);
    const auto part = [&](qsizetype place) { return parts.value(place).trimmed(); };
    Errand errand;
    errand.name = part(0).left(longestName);
    if (errand.name.isEmpty())
        throw Failure(u"the name is missing"_s);
    errand.nominals = numbersOf(part(1), u"nominals"_s);
    const std::vector<double> deviations =
        part(2).isEmpty() ? std::vector<double>{} : numbersOf(part(2), u"deviations"_s);
    errand.deviations = deviationsFor(errand.nominals, deviations);
    errand.comment = part(3);
    if (!part(4).isEmpty())
        errand.from = momentOf(part(4));
    return errand;
}

} // namespace

QString planHelp() {
    return u"A plan file has a line for each characteristic, with semicolons between its parts:\n"
           "  NAME; NOMINAL READINGS; DEVIATIONS IN PERCENT OF READING; COMMENT; DATE TIME\n"
           "  TW-0101; 20, 60, 100; 0.1, -0.2, 0.05; found in order; 2026-11-21 09:30\n"
           "Deviations (one for all or one for each reading), comment and moment may be missing. Empty lines "
           "and lines\n"
           "that begin with # are passed over. A name may be the whole asset number: its first 11 characters count.\n"_s;
}

std::vector<double> numbersOf(const QString& text, const QString& what) {
    std::vector<double> numbers;
    for (const QString& part : text.split(u',')) {
        bool read = false;
        const double number = part.trimmed().toDouble(&read);
        if (!read || !std::isfinite(number))
            throw Failure(u"%1: \"%2\" is no number"_s.arg(what, part.trimmed()));
        numbers.push_back(number);
    }
    return numbers;
}

std::vector<double> deviationsFor(const std::vector<double>& nominals, std::vector<double> deviations) {
    if (deviations.size() == nominals.size())
        return deviations;
    if (deviations.size() > 1)
        throw Failure(u"%1 deviations for %2 readings"_s.arg(deviations.size()).arg(nominals.size()));
    return std::vector<double>(nominals.size(), deviations.empty() ? 0.0 : deviations.front());
}

QDateTime momentOf(const QString& text) {
    for (const QString& form : {u"yyyy-MM-dd H:mm:ss"_s, u"yyyy-MM-dd H:mm"_s}) {
        QDateTime moment = QDateTime::fromString(text.simplified(), form);
        // Wall-clock time is counted on as it is written; a change to summer time is none of the
        // calibrator's.
        moment.setTimeSpec(Qt::UTC);
        if (moment.isValid())
            return moment;
    }
    throw Failure(u"\"%1\" is no moment such as 2026-11-21 09:30:00"_s.arg(text));
}

std::vector<Errand> errandsOf(const QString& plan) {
    std::vector<Errand> errands;
    QSet<QString> names;
    const QStringList lines = plan.split(u'\n');
    for (qsizetype number = 0; number < lines.size(); ++number) {
        const QString line = lines[number].trimmed();
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        try {
            errands.push_back(errandOf(line));
            if (names.contains(errands.back().name))
                throw Failure(u"%1 stands twice"_s.arg(errands.back().name));
            names += errands.back().name;
        } catch (const Failure& failure) {
            throw Failure(u"line %1 of the plan: %2"_s.arg(number + 1).arg(failure.text()));
        }
    }
    return errands;
}

} // namespace kelvane::simulators
