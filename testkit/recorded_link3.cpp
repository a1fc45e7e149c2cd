#include "testkit/recorded_link3.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// The three numbers of the n-th object of a sort.
Dpclnk3::State numbersOf(qint32 n) {
    return {n, n + 100, n + 200};
}

} // namespace

StoredBucket numberBucket(const QString& name, float number) {
    return {.name = name, .number = number};
}

StoredBucket textBucket(const QString& name, const QString& words) {
    return {.name = name, .type = 2, .words = words};
}

const StoredGroup* RecordedLink3::groupAt(qint32 group) const {
    return group >= 0 && group < groups.size() ? &groups[group] : nullptr;
}

const StoredAtom* RecordedLink3::atomAt(qint32 group, qint32 atom) const {
    const auto* holder = groupAt(group);
    return holder && atom >= 0 && atom < holder->atoms.size() ? &holder->atoms[atom] : nullptr;
}

const StoredBucket* RecordedLink3::bucketOf(const QString& name) const {
    const auto found = std::ranges::find(current_.buckets, name, &StoredBucket::name);
    return found == current_.buckets.end() ? nullptr : &*found;
}

// The link.

Dpclnk3::Status RecordedLink3::DPC3open(qint32 baudRate, const QString& port, qint32 constant1000,
                                        qint32 constant5) {
    return record("DPC3open", baudRate, port, constant1000, constant5);
}

Dpclnk3::Status RecordedLink3::DPC3close() {
    return record("DPC3close");
}

Dpclnk3::Status RecordedLink3::DPC3get74X(QString& modelOut, QString& serialOut, QString& textOut,
                                          qint32& number, qint32& unused1, qint32& unused2) {
    put(modelOut, model);
    put(serialOut, serial);
    put(textOut, text);
    number = 743;
    unused1 = 1;
    unused2 = 2;
    return record("DPC3get74X");
}

Dpclnk3::Status RecordedLink3::DPC3mapStart(qint32& count) {
    count = mapSteps;
    return record("DPC3mapStart");
}

Dpclnk3::Status RecordedLink3::DPC3mapStep(qint32& count) {
    const auto status = record("DPC3mapStep", count);
    count = nextCount(count);
    return status;
}

Dpclnk3::Status RecordedLink3::DPC3dnlStart(qint32& count) {
    count = steps;
    return record("DPC3dnlStart");
}

Dpclnk3::Status RecordedLink3::DPC3dnlStep(qint32& count, qint32& kept1, qint32& kept2, qint32& kept3) {
    const auto status = record("DPC3dnlStep", count, kept1, kept2, kept3);
    count = nextCount(count);
    kept1 += 1;
    kept2 += 10;
    kept3 += 100;
    return status;
}

Dpclnk3::Status RecordedLink3::DPC3uplStart(qint32& count) {
    count = steps;
    return record("DPC3uplStart");
}

Dpclnk3::Status RecordedLink3::DPC3uplStep(qint32& count) {
    const auto status = record("DPC3uplStep", count);
    count = nextCount(count);
    return status;
}

// Writing the image.

Dpclnk3::Status RecordedLink3::MEM3clear() {
    strategies_.clear();
    return record("MEM3clear");
}

Dpclnk3::Status RecordedLink3::MEM3startTask(qint32& task, qint32& atom, const QString& tag,
                                             const QString& words) {
    const auto status = record("MEM3startTask", task, atom, tag, words);
    task = ++tasks_;
    atom = ++atoms_;
    return status;
}

Dpclnk3::Status RecordedLink3::MEM3promptDefn(PromptNumbers& numbers, const QString& key,
                                              const QString& prompt, const QString& style,
                                              const QString& font) {
    numbers = numbersOf(++prompts_);
    return record("MEM3promptDefn", key, prompt, style, font);
}

Dpclnk3::Status RecordedLink3::MEM3promptTemplate(qint32 task, qint32 atom, qint32& place,
                                                  const PromptNumbers& numbers) {
    place = ++places_;
    return record("MEM3promptTemplate", task, atom, numbers.first, numbers.second, numbers.third);
}

Dpclnk3::Status RecordedLink3::MEM3findStrategyDefn(qint32 constant1, const QString& name, qint32& strategy,
                                                    qint32& strategyId) {
    const auto status = record("MEM3findStrategyDefn", constant1, name);
    if (status >= 2000)
        return status;
    if (!strategies_.contains(name))
        return status == 0 ? Status{2001} : status;
    strategyId = strategies_.value(name);
    strategy = strategyId + 100;
    return status;
}

Dpclnk3::Status RecordedLink3::MEM3strategyDefn(qint32 task, qint32& atom, qint32& strategyId,
                                                const QString& name, const float* points, qint16 count) {
    const auto status =
        record("MEM3strategyDefn", task, atom, name, displayText(points, count), qint32{count});
    atom = ++atoms_;
    strategyId = ++strategyIds_;
    strategies_.insert(name, strategyId);
    return status;
}

Dpclnk3::Status RecordedLink3::MEM3instrCalTemplate(qint32 task, qint32 atom, qint32& place, qint32 strategy,
                                                    qint32 strategyAtom, qint32 strategyId,
                                                    const State& state, qint16 measureByHand,
                                                    qint16 sourceByHand, qint32 constant2, const QString& tag,
                                                    const QString& serialNumber) {
    place = ++places_;
    return record("MEM3instrCalTemplate", task, atom, strategy, strategyAtom, strategyId, state.first,
                  state.second, state.third, measureByHand, sourceByHand, constant2, tag, serialNumber);
}

Dpclnk3::Status RecordedLink3::MEM3endTask() {
    return record("MEM3endTask");
}

// The setup state.

Dpclnk3::Status RecordedLink3::STA3beginOps() {
    return record("STA3beginOps");
}

Dpclnk3::Status RecordedLink3::STA3initOp() {
    return record("STA3initOp");
}

Dpclnk3::Status RecordedLink3::STA3setMappedOp(const QString& root, const QString& item,
                                               const QString& word) {
    return record("STA3setMappedOp", root, item, word);
}

Dpclnk3::Status RecordedLink3::STA3setUnitOp(const QString& root, const QString& item, const QString& unit) {
    return record("STA3setUnitOp", root, item, unit);
}

Dpclnk3::Status RecordedLink3::STA3setFloatOp(const QString& root, const QString& item, float value) {
    return record("STA3setFloatOp", root, item, value);
}

Dpclnk3::Status RecordedLink3::STA3setIntOp(const QString& root, const QString& item, qint32 value) {
    return record("STA3setIntOp", root, item, value);
}

Dpclnk3::Status RecordedLink3::STA3evalOp() {
    return record("STA3evalOp");
}

Dpclnk3::Status RecordedLink3::STA3saveOps(State& state) {
    state = numbersOf(++states_);
    return record("STA3saveOps");
}

Dpclnk3::Status RecordedLink3::STA3freeOps() {
    return record("STA3freeOps");
}

// Reading the image.

Dpclnk3::Status RecordedLink3::MEM3ngroups(qint32 list, qint32& count) {
    count = claimedGroups.value_or(static_cast<qint32>(groups.size()));
    return record("MEM3ngroups", list);
}

Dpclnk3::Status RecordedLink3::MEM3natoms(qint32 list, qint32 group, qint32& atoms) {
    if (const auto* holder = groupAt(group))
        atoms = holder->claimedAtoms.value_or(static_cast<qint32>(holder->atoms.size()));
    return record("MEM3natoms", list, group);
}

Dpclnk3::Status RecordedLink3::MEM3groupDir(qint32 list, qint32 group, qint32& reference) {
    reference = group + 1;
    return record("MEM3groupDir", list, group);
}

Dpclnk3::Status RecordedLink3::MEM3atomDir(qint32 list, qint32 group, qint32 atom, qint16& kind,
                                           qint32& reference) {
    if (const auto* stored = atomAt(group, atom)) {
        kind = stored->kind;
        reference = atom + 1;
    }
    return record("MEM3atomDir", list, group, atom);
}

Dpclnk3::Status RecordedLink3::MEM3taskResultRefInfo(qint32 list, qint32 group, qint32 atom, qint32& results,
                                                     qint32& task) {
    results = atom + 1;
    task = group + 1;
    return record("MEM3taskResultRefInfo", list, group, atom);
}

Dpclnk3::Status RecordedLink3::MEM3instrTagInfo(qint32 list, qint32 group, qint32 atom, QString& tag,
                                                QString& serialNumber, QString& technician) {
    if (const auto* stored = atomAt(group, atom)) {
        put(tag, stored->tag);
        put(serialNumber, stored->serial);
        put(technician, stored->technician);
    }
    return record("MEM3instrTagInfo", list, group, atom);
}

Dpclnk3::Status RecordedLink3::MEM3instrCalResultInfo(qint32 list, qint32 group, qint32 atom,
                                                      qint16& runSteps, RunTime& time) {
    if (const auto* stored = atomAt(group, atom)) {
        runSteps = stored->claimedSteps.value_or(static_cast<qint16>(stored->steps.size()));
        time = stored->time;
    }
    return record("MEM3instrCalResultInfo", list, group, atom);
}

Dpclnk3::Status RecordedLink3::MEM3instrCalResultStepInfo(qint32 list, qint32 group, qint32 atom, qint16 step,
                                                          State& state) {
    if (const auto* stored = atomAt(group, atom); stored && step >= 0 && step < stored->steps.size()) {
        stepsGiven_ << stored->steps[step];
        state = numbersOf(static_cast<qint32>(stepsGiven_.size()));
    }
    return record("MEM3instrCalResultStepInfo", list, group, atom, step);
}

Dpclnk3::Status RecordedLink3::STA3restore(const State& state) {
    current_ = stepsGiven_.value(state.first - 1);
    return record("STA3restore", state.first, state.second, state.third);
}

// The current state.

Dpclnk3::Status RecordedLink3::STA3getBktListInfo(const QString& root, qint32& buckets) {
    buckets = claimedBuckets.value_or(static_cast<qint32>(current_.buckets.size()));
    return record("STA3getBktListInfo", root);
}

Dpclnk3::Status RecordedLink3::STA3getBktName(const QString& root, qint16 bucket, QString& name) {
    if (bucket >= 0 && bucket < current_.buckets.size())
        put(name, current_.buckets[bucket].name);
    return record("STA3getBktName", root, bucket);
}

Dpclnk3::Status RecordedLink3::STA3getType(const QString& root, const QString& bucket, qint16& type) {
    if (const auto* stored = bucketOf(bucket))
        type = stored->type;
    return record("STA3getType", root, bucket);
}

Dpclnk3::Status RecordedLink3::STA3getFloat(const QString& root, const QString& bucket, float& value) {
    if (const auto* stored = bucketOf(bucket))
        value = stored->number;
    return record("STA3getFloat", root, bucket);
}

Dpclnk3::Status RecordedLink3::STA3getStr(const QString& root, const QString& bucket, QString& value) {
    if (const auto* stored = bucketOf(bucket))
        put(value, stored->words);
    return record("STA3getStr", root, bucket);
}

Dpclnk3::Status RecordedLink3::STA3getRange(const QString& root, const QString& bucket, float& low,
                                            float& high) {
    if (const auto* stored = bucketOf(bucket)) {
        low = stored->number;
        high = stored->high;
    }
    return record("STA3getRange", root, bucket);
}

Dpclnk3::Status RecordedLink3::STA3getUnit(const QString& root, const QString& bucket, QString& unit) {
    if (const auto* stored = bucketOf(bucket))
        put(unit, stored->words);
    return record("STA3getUnit", root, bucket);
}

Dpclnk3::Status RecordedLink3::STA3getInt(const QString& root, const QString& bucket, qint32& value) {
    if (const auto* stored = bucketOf(bucket))
        value = stored->whole;
    return record("STA3getInt", root, bucket);
}

Dpclnk3::Status RecordedLink3::STA3getTime(const QString& root, const QString& bucket, qint32& value) {
    if (const auto* stored = bucketOf(bucket))
        value = stored->whole;
    return record("STA3getTime", root, bucket);
}

Dpclnk3::Status RecordedLink3::STA3getMapped(const QString& root, const QString& bucket, QString& word) {
    if (const auto* stored = bucketOf(bucket))
        put(word, stored->words);
    return record("STA3getMapped", root, bucket);
}

} // namespace kelvane::testing
