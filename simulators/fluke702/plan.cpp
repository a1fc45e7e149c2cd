#include "simulators/fluke702/plan.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke702 {

namespace {

Errand errandOf(const QString& line) {
    const QStringList parts = line.split(u';');
    if (parts.size() > 7)
        throw Failure(u"a line is TAG; ROUND; DEVIATIONS; TECHNICIAN; PRESSURE MODULE; DATE TIME; SHOWN, all "
                      "but the tag may be missing"_s);
    const auto part = [&](qsizetype place) { return parts.value(place).trimmed(); };
    const auto numbers = [&](qsizetype place, const QString& what) {
        return part(place).isEmpty() ? std::vector<double>{} : numbersOf(part(place), what);
    };
    Errand errand;
    errand.tag = part(0).left(longestTag);
    if (errand.tag.isEmpty())
        throw Failure(u"the tag is missing"_s);
    errand.kind = kindOf(part(1));
    errand.deviations = numbers(2, u"deviations"_s);
    errand.technician = part(3);
    errand.module = part(4);
    if (!part(5).isEmpty())
        errand.moment = momentOf(part(5));
    errand.shown = numbers(6, u"shown"_s);
    return errand;
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

std::vector<Errand> errandsOf(const QString& plan) {
    std::vector<Errand> errands;
    readPlan(plan, [&](const QString& line) { errands.push_back(errandOf(line)); });
    return errands;
}

} // namespace kelvane::simulators::fluke702
