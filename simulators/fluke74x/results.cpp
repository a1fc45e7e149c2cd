#include "simulators/fluke74x/results.h"

namespace kelvane::simulators::fluke74x {

namespace {

// The atoms of a run besides its steps; the tag is the last.
constexpr std::size_t atomsBeforeSteps = 2;
constexpr std::size_t atomsBesideSteps = atomsBeforeSteps + 1;

qint16 kindAt(std::size_t place, std::size_t atoms) {
    if (place == 0)
        return ResultReference;
    if (place == 1)
        return RunResults;
    return place + 1 == atoms ? InstrumentTag : StepOfRun;
}

} // namespace

void Results::add(const Run& run) {
    const auto instrument = std::pair(run.tag, run.serial);
    const auto known = instruments_.constFind(instrument);
    const std::size_t group = known == instruments_.constEnd() ? groups_.size() : *known;
    if (group == groups_.size()) {
        instruments_.insert(instrument, group);
        groups_.emplace_back();
    }
    groups_[group].push_back({runs_++, run.entries.size() + atomsBesideSteps, atoms_});
    atoms_ += groups_[group].back().atoms;
}

const std::vector<Results::Stored>* Results::runsOf(qint32 group) const {
    const bool isThere = group >= 0 && static_cast<std::size_t>(group) < groups_.size();
    return isThere ? &groups_[static_cast<std::size_t>(group)] : nullptr;
}

std::size_t Results::atoms(qint32 group) const {
    std::size_t count = 0;
    if (const std::vector<Stored>* const runs = runsOf(group))
        for (const Stored& stored : *runs)
            count += stored.atoms;
    return count;
}

std::optional<Atom> Results::atom(qint32 group, qint32 place) const {
    const std::vector<Stored>* const runs = runsOf(group);
    if (runs == nullptr || place < 0)
        return {};
    auto within = static_cast<std::size_t>(place);
    for (const Stored& stored : *runs) {
        if (within < stored.atoms)
            return Atom{kindAt(within, stored.atoms), static_cast<qint32>(stored.before + within + 1),
                        stored.run, static_cast<qint32>(stored.before + 2)};
        within -= stored.atoms;
    }
    return {};
}

} // namespace kelvane::simulators::fluke74x
