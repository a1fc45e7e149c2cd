#include "simulators/common/link_arguments.h"
#include "simulators/fluke74x/library.h"

namespace kelvane::simulators::fluke74x {

namespace {

/// The list of results.
constexpr qint32 resultList = 2;
// The width of the buffers for texts that go out.
constexpr qsizetype tagWidth = 33;

} // namespace

template <class Work, class... Values>
Library::Status Library::atomCall(const char* operation, qint32 list, qint32 group, qint32 atom, qint16 kind,
                                  Work work, const Values&... values) {
    return call(
        operation,
        [&] {
            const std::optional<Atom> found = image_.results().atom(group, atom);
            const bool isGood = list == resultList && found && (kind == AnyAtom || found->kind == kind);
            return isGood ? work(*found) : BadArgument;
        },
        list, group, atom, values...);
}

Library::Status Library::MEM3ngroups(qint32 list, qint32* groups) {
    return call(
        "MEM3ngroups",
        [&] {
            if (list != resultList || groups == nullptr)
                return BadArgument;
            *groups = static_cast<qint32>(image_.results().groups());
            return Done;
        },
        list);
}

Library::Status Library::MEM3natoms(qint32 list, qint32 group, qint32* atoms) {
    return call(
        "MEM3natoms",
        [&] {
            const std::size_t count = image_.results().atoms(group);
            if (list != resultList || count == 0 || atoms == nullptr)
                return BadArgument;
            *atoms = static_cast<qint32>(count);
            return Done;
        },
        list, group);
}

Library::Status Library::MEM3groupDir(qint32 list, qint32 group, qint32* reference) {
    return call(
        "MEM3groupDir",
        [&] {
            if (list != resultList || image_.results().atoms(group) == 0 || reference == nullptr)
                return BadArgument;
            *reference = group + 1;
            return Done;
        },
        list, group);
}

Library::Status Library::MEM3atomDir(qint32 list, qint32 group, qint32 atom, qint16* kind,
                                     qint32* reference) {
    return atomCall("MEM3atomDir", list, group, atom, AnyAtom, [&](const Atom& found) {
        if (kind == nullptr || reference == nullptr)
            return BadArgument;
        *kind = found.kind;
        *reference = found.reference;
        return Done;
    });
}

Library::Status Library::MEM3taskResultRefInfo(qint32 list, qint32 group, qint32 atom, qint32* results,
                                               qint32* task) {
    return atomCall("MEM3taskResultRefInfo", list, group, atom, ResultReference, [&](const Atom& found) {
        if (anyNull(results, task))
            return BadArgument;
        *results = found.results;
        *task = image_.taskOf(runOf(found));
        return Done;
    });
}

Library::Status Library::MEM3instrTagInfo(qint32 list, qint32 group, qint32 atom, char* tag, char* serial,
                                          char* technician) {
    return atomCall("MEM3instrTagInfo", list, group, atom, InstrumentTag, [&](const Atom& found) {
        if (anyNull(tag, serial, technician))
            return BadArgument;
        const Run& run = runOf(found);
        putText(tag, tagWidth, run.tag);
        putText(serial, tagWidth, run.serial);
        putText(technician, tagWidth, run.technician);
        return Done;
    });
}

Library::Status Library::MEM3instrCalResultInfo(qint32 list, qint32 group, qint32 atom, qint16* steps,
                                                qint16* month, qint16* day, qint16* year, qint16* hour,
                                                qint16* minute, qint16* second) {
    return atomCall("MEM3instrCalResultInfo", list, group, atom, RunResults, [&](const Atom& found) {
        if (anyNull(steps, month, day, year, hour, minute, second))
            return BadArgument;
        const Run& run = runOf(found);
        *steps = static_cast<qint16>(run.entries.size());
        *month = run.time.month;
        *day = run.time.day;
        *year = run.time.year;
        *hour = run.time.hour;
        *minute = run.time.minute;
        *second = run.time.second;
        return Done;
    });
}

Library::Status Library::MEM3instrCalResultStepInfo(qint32 list, qint32 group, qint32 atom, qint16 step,
                                                    qint32* first, qint32* second, qint32* third) {
    return atomCall(
        "MEM3instrCalResultStepInfo", list, group, atom, RunResults,
        [&](const Atom& found) {
            const Run& run = runOf(found);
            if (anyNull(first, second, third) || step < 0 ||
                static_cast<std::size_t>(step) >= run.entries.size())
                return BadArgument;
            const References state = referencesOfStep(run, found.run, step);
            *first = state.first;
            *second = state.second;
            *third = state.third;
            return Done;
        },
        step);
}

} // namespace kelvane::simulators::fluke74x
