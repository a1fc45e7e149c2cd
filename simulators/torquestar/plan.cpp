#include "simulators/torquestar/plan.h"

#include "simulators/common/failure.h"
#include "simulators/torquestar/memory.h"

#include <QSet>
#include <QStringList>

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
    errand.deviations = deviationsFor(errand.nominals.size(), deviations);
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

std::vector<Errand> errandsOf(const QString& plan) {
    std::vector<Errand> errands;
    QSet<QString> names;
    readPlan(plan, [&](const QString& line) {
        errands.push_back(errandOf(line));
        if (names.contains(errands.back().name))
            throw Failure(u"%1 stands twice"_s.arg(errands.back().name));
        names += errands.back().name;
    });
    return errands;
}

} // namespace kelvane::simulators
