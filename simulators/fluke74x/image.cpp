#include "simulators/fluke74x/image.h"

#include "simulators/fluke74x/step_buckets.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke74x {

namespace {

// The numbers by which a workstation finds what it put in. They differ for what is different, so that numbers
// that are mixed up stand for nothing.
constexpr qint32 firstAtom = 1000;

References referencesOfPrompt(qint32 id) {
    return {id, 2000 + id, 3000 + id};
}

References referencesOfState(qint32 id) {
    return {id, -1, -1};
}

/// The word by which a state says the same as the template.
QString errorWord(const ByHand& byHand) {
    if (byHand.measure)
        return byHand.source ? u"UEV Measure Source"_s : u"UEV Measure"_s;
    return byHand.source ? u"UEV Source"_s : u"Normal"_s;
}

bool isFlag(qint16 number) {
    return number == 0 || number == 1;
}

} // namespace

References referencesOfStep(const Run& run, std::size_t place, qint16 step) {
    return {run.state, static_cast<qint32>(place) + 1, step + 1};
}

void Image::clear() {
    *this = {};
}

Code Image::startTask(qint32& task, qint32& atom, const QString& tag) {
    if (started_)
        return OutOfStep;
    if (tag.size() > longestTag)
        return TooLong;
    if (tag.isEmpty())
        return BadArgument;
    started_.emplace();
    started_->tag = tag;
    task = lastId(contents_.tasks) + 1;
    atom = firstAtom + task;
    return Done;
}

Code Image::checkTask(qint32 task, qint32 atom) const {
    if (!started_)
        return OutOfStep;
    const qint32 open = lastId(contents_.tasks) + 1;
    return task == open && atom == firstAtom + open ? Done : BadArgument;
}

Code Image::definePrompt(const Prompt& prompt, References& numbers) {
    if (prompt.key.size() > longestKey || prompt.text.size() > longestPrompt)
        return TooLong;
    if (prompt.key.isEmpty() || keys_.contains(prompt.key))
        return BadArgument;
    keys_ += prompt.key;
    contents_.prompts.push_back(prompt);
    numbers = referencesOfPrompt(lastId(contents_.prompts));
    return Done;
}

Code Image::placePrompt(const References& prompt, qint32& place) {
    const Prompt* const defined = byId(contents_.prompts, prompt.first);
    if (defined == nullptr || prompt != referencesOfPrompt(prompt.first))
        return NotFound;
    const bool before = started_->state == 0;
    (before ? started_->before : started_->after).push_back(defined->key);
    place = static_cast<qint32>(started_->before.size() + started_->after.size());
    return Done;
}

Code Image::defineStrategy(const QString& name, const std::vector<float>& points, qint32& id) {
    if (!arePointsGood(points) || name.isEmpty() || name.size() > longestStrategyName)
        return BadArgument;
    const qint32 known = findStrategy(name);
    if (known != 0 && byId(contents_.strategies, known)->points != points)
        return BadArgument;
    if (known == 0) {
        contents_.strategies.push_back({name, points});
        strategyIds_[name] = lastId(contents_.strategies);
    }
    id = findStrategy(name);
    return Done;
}

Code Image::placeTemplate(const Template& placed, qint32& place) {
    if (started_->state != 0)
        return OutOfStep;
    const State* const state = byId(contents_.states, placed.state.first);
    if (state == nullptr || placed.state != referencesOfState(placed.state.first))
        return NotFound;
    if (placed.strategy != 0 && byId(contents_.strategies, placed.strategy) == nullptr)
        return NotFound;
    if (placed.tag.size() > longestTag || placed.serial.size() > longestSerial)
        return TooLong;
    const ByHand byHand{placed.measureByHand == 1, placed.sourceByHand == 1};
    if (!isFlag(placed.measureByHand) || !isFlag(placed.sourceByHand) ||
        state->word(u"cError") != errorWord(byHand))
        return BadArgument;
    started_->strategy = placed.strategy;
    started_->state = placed.state.first;
    started_->byHand = byHand;
    started_->instrument = placed.tag;
    started_->serial = placed.serial;
    place = static_cast<qint32>(started_->before.size()) + 1;
    return Done;
}

Code Image::endTask() {
    if (!started_ || started_->state == 0)
        return OutOfStep;
    contents_.tasks.push_back(*started_);
    started_.reset();
    return Done;
}

Code Image::saveState(References& state) {
    const State* const evaluated = setup_.evaluated();
    if (evaluated == nullptr)
        return OutOfStep;
    contents_.states.push_back(*evaluated);
    state = referencesOfState(lastId(contents_.states));
    return Done;
}

Code Image::restore(const References& references) {
    const State* const state = byId(contents_.states, references.first);
    if (state == nullptr)
        return NotFound;
    if (references == referencesOfState(references.first)) {
        current_ = bucketsOf(*state);
        return Done;
    }
    const Run* const run = byId(contents_.runs, references.second);
    const Entry* const step = run == nullptr ? nullptr : byId(run->entries, references.third);
    if (step == nullptr || run->state != references.first)
        return NotFound;
    current_ = bucketsOf(*state, *run, *step);
    return Done;
}

qint32 Image::taskOf(const Run& run) const {
    const auto place = std::find_if(contents_.tasks.begin(), contents_.tasks.end(), [&](const Task& task) {
        return task.instrument == run.tag && task.serial == run.serial;
    });
    return place == contents_.tasks.end() ? 0 : static_cast<qint32>(place - contents_.tasks.begin()) + 1;
}

void Image::fill(const Contents& definitions) {
    clear();
    contents_.strategies = definitions.strategies;
    contents_.prompts = definitions.prompts;
    contents_.states = definitions.states;
    for (const Prompt& prompt : contents_.prompts)
        keys_ += prompt.key;
    qint32 id = 0;
    for (const Strategy& strategy : contents_.strategies)
        strategyIds_.insert(strategy.name, ++id);
}

void Image::add(const Run& run) {
    contents_.runs.push_back(run);
    results_.add(run);
}

} // namespace kelvane::simulators::fluke74x
