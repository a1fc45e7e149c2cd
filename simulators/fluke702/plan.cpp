#include "simulators/fluke702/plan.h"

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke702 {

namespace {

Job jobOf(const QString& line) {
    const PlanLine parts(line, u"TAG; ROUND; DEVIATIONS; TECHNICIAN; PRESSURE MODULE; DATE TIME; SHOWN"_s);
    Job job;
    job.tag = parts.tag(longestTag);
    job.kind = kindOf(parts.text(1));
    job.deviations = parts.numbers(2, u"deviations"_s);
    job.technician = parts.text(3);
    job.module = parts.text(4);
    job.moment = parts.moment(5);
    job.shown = parts.numbers(6, u"shown"_s);
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
    return isAsLeft(word) ? AsLeft : AsFound;
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
