#include "simulators/torquestar/plan.h"

#include "simulators/common/failure.h"
#include "simulators/torquestar/memory.h"

#include <QSet>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

Job jobOf(const QString& line) {
    const QStringList parts = line.split(u';');
    if (parts.size() < 2 || parts.size() > 5)
        throw Failure(
            u"a line is NAME; NOMINALS; DEVIATIONS; COMMENT; DATE TIME, the last three may be missing"_s);
    const auto part = [&](qsizetype place) { return parts.value(place).trimmed(); };
    Job job;
    job.name = part(0).left(longestName);
    if (job.name.isEmpty())
        throw Failure(u"the name is missing"_s);
    job.nominals = numbersOf(part(1), u"nominals"_s);
    const std::vector<double> deviations =
        part(2).isEmpty() ? std::vector<double>{} : numbersOf(part(2), u"deviations"_s);
    job.deviations = deviationsFor(job.nominals.size(), deviations);
    job.comment = part(3);
    if (!part(4).isEmpty())
        job.from = momentOf(part(4));
    return job;
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

std::vector<Job> jobsOf(const QString& plan) {
    std::vector<Job> jobs;
    QSet<QString> names;
    readPlan(plan, [&](const QString& line) {
        jobs.push_back(jobOf(line));
        if (names.contains(jobs.back().name))
            throw Failure(u"%1 stands twice"_s.arg(jobs.back().name));
        names += jobs.back().name;
    });
    return jobs;
}

} // namespace kelvane::simulators
