#include "simulators/fluke702/plan.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke702 {

namespace {

Job jobOf(const QString& line) {
    const QStringList parts = line.split(u';');
    if (parts.size() > 7)
        throw Failure(u"a line is TAG; ROUND; DEVIATIONS; TECHNICIAN; PRESSURE MODULE; DATE TIME; SHOWN, all "
                      "but the tag may be missing"_s);
    const auto part = [&](qsizetype place) { return parts.value(place).trimmed(); };
    const auto numbers = [&](qsizetype place, const QString& what) {
        return part(place).isEmpty() ? std::vector<double>{} : numbersOf(part(place), what);
    };
    Job job;
    job.tag = part(0).left(longestTag);
    if (job.tag.isEmpty())
        throw Failure(u"the tag is missing"_s);
    job.kind = kindOf(part(1));
    job.deviations = numbers(2, u"deviations"_s);
    job.technician = part(3);
    job.module = part(4);
    if (!part(5).isEmpty())
        job.moment = momentOf(part(5));
    job.shown = numbers(6, u"shown"_s);
    return job;
}

} // namespace

QString planHelp() {
    return u"A plan file for a Fluke 702 has a line for each run, with semicolons between its parts:\n"
           "  TAG; ROUND; DEVIATIONS IN PERCENT OF SPAN; TECHNICIAN; PRESSURE MODULE; DATE TIME; SHOWN\n"
           "  PT-103; as-found; 0.1, -0.6, 0.05; J. Doe; 71204; 2026-11-21 09:30; 0\n"
           "  PT-103; as-left; 0.02\n"
           "All but the tag may be missing. Deviations are one for all points or one for each; SHOWN, too, "
           "which is the\n"
           "error that the calibrator itself shows, when it is not the deviation.\n"_s;
}

Kind kindOf(const QString& word) {
    if (word.isEmpty() || word == "as-found"_L1)
        return AsFound;
    if (word == "as-left"_L1)
        return AsLeft;
    throw Failure(u"\"%1\" is no round: it is as-found or as-left"_s.arg(word));
}

QString wordOf(qint16 kind) {
    return kind == AsFound ? u"as found"_s : kind == AsLeft ? u"as left"_s : u"kind %1"_s.arg(kind);
}

std::vector<Job> jobsOf(const QString& plan) {
    std::vector<Job> jobs;
    readPlan(plan, [&](const QString& line) { jobs.push_back(jobOf(line)); });
    return jobs;
}

} // namespace kelvane::simulators::fluke702
