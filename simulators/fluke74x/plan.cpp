#include "simulators/fluke74x/plan.h"

#include "simulators/common/failure.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke74x {

namespace {

// The calibrator works in volts, amperes, ohms, hertz and bar. Any other unit is its own.
constexpr struct {
    QStringView unit;
    double factor;
} units[] = {
    {u"mV", 1e-3},   {u"mVAC", 1e-3}, {u"uV", 1e-6},   {u"mA", 1e-3}, {u"uA", 1e-6},
    {u"mbar", 1e-3}, {u"KOhms", 1e3}, {u"Mohms", 1e6}, {u"KHz", 1e3}, {u"MHz", 1e6},
};

Amount amountOf(const QString& text) {
    static const QRegularExpression form(
        u"^([-+.0-9]+(?:[eE][-+]?[0-9]+)?)(?:\\s*([A-Za-z%][A-Za-z0-9]*))?$"_s);
    const QRegularExpressionMatch parts = form.match(text.trimmed());
    if (!parts.hasMatch())
        throw Failure(u"readings: \"%1\" is no number with its unit"_s.arg(text.trimmed()));
    const QString unit = parts.captured(2);
    const auto* const known = std::find_if(std::begin(units), std::end(units),
                                           [&](const auto& entry) { return entry.unit == unit; });
    return {numbersOf(parts.captured(1), u"readings"_s).front(),
            known == std::end(units) ? 1 : known->factor};
}

std::vector<Reading> readingsOf(const QString& text) {
    std::vector<Reading> readings;
    for (const QString& pair : text.split(u',')) {
        const QStringList sides = pair.split(u'/');
        if (sides.size() != 2)
            throw Failure(u"readings: \"%1\" is not APPLIED/READ"_s.arg(pair.trimmed()));
        readings.push_back({amountOf(sides[0]), amountOf(sides[1])});
    }
    return readings;
}

Job jobOf(const QString& line) {
    const PlanLine parts(line, u"TAG; ROUND; READINGS; TECHNICIAN; PRESSURE MODULES; DATE TIME; SHOWN"_s);
    Job job;
    job.tag = parts.tag(longestTag);
    job.asLeft = isAsLeft(parts.text(1));
    if (parts.text(2).contains(u'/'))
        job.readings = readingsOf(parts.text(2));
    else
        job.deviations = parts.numbers(2, u"deviations"_s);
    job.technician = parts.text(3);
    job.modules = modulesOf(parts.text(4));
    job.moment = parts.moment(5);
    job.shown = parts.numbers(6, u"shown"_s);
    return job;
}

} // namespace

QString planHelp() {
    return u"A plan file for a Fluke 743 or 744 has a line for each run, with semicolons between its parts:\n"
           "  TAG; ROUND; READINGS; TECHNICIAN; PRESSURE MODULES; DATE TIME; SHOWN\n"
           "  PT-103; as-found; 0.1, -0.6, 0.05; J. Doe; 71204; 2026-11-21 09:30; 0\n"
           "  PT-103; as-left; 0/4.01mA, 75/12mA, 150/20.02mA; J. Doe; 71204/71391\n"
           "All but the tag may be missing. READINGS are deviations in percent of span, one for all points "
           "or "
           "one for each,\n"
           "or what was applied and read at each step, in any unit. Two PRESSURE MODULES are that of the "
           "source and that of\n"
           "the measurement. SHOWN as for a Fluke 702. The calibrator keeps no round: as-left needs a run before it.\n"_s;
}

Modules modulesOf(const QString& text) {
    const QStringList sides = text.split(u'/');
    if (sides.size() > 2)
        throw Failure(u"\"%1\" is more than the modules of source and measurement"_s.arg(text));
    if (sides.size() == 1)
        return {.any = text, .source = {}, .measure = {}};
    return {.any = {}, .source = sides[0].trimmed(), .measure = sides[1].trimmed()};
}

std::vector<Job> jobsOf(const QString& plan) {
    std::vector<Job> jobs;
    readPlan(plan, [&](const QString& line) { jobs.push_back(jobOf(line)); });
    return jobs;
}

} // namespace kelvane::simulators::fluke74x
