#include "simulators/fluke702/image.h"

#include "simulators/fluke702/settings.h"

#include <utility>

namespace kelvane::simulators::fluke702 {

void Image::clear() {
    *this = {};
}

Code Image::defineStrategy(const QString& name, const std::vector<float>& points, qint32& id) {
    if (!arePointsGood(points) || name.isEmpty() || name.size() > longestStrategyName)
        return BadStrategy;
    contents_.strategies.push_back({name, points});
    id = lastId(contents_.strategies);
    return Done;
}

Code Image::definePrompt(const QString& key, const QString& text) {
    if (key.size() > longestKey)
        return TooLong;
    if (text.size() > longestPrompt)
        return PromptTooLong;
    if (key.isEmpty() || keys_.contains(key))
        return BadArgument;
    keys_ += key;
    contents_.prompts.push_back({key, text});
    return Done;
}

Code Image::startTask(const QString& tag) {
    if (started_)
        return OutOfStep;
    if (tag.size() > longestTag)
        return TooLong;
    if (tag.isEmpty())
        return BadArgument;
    started_.emplace();
    started_->tag = tag;
    return Done;
}

Code Image::placePrompt(const QString& key) {
    if (!started_)
        return OutOfStep;
    if (!keys_.contains(key))
        return UnknownId;
    const bool before = started_->strategy == 0;
    (before ? started_->before : started_->after).push_back(key);
    return Done;
}

Code Image::placeTemplate(qint32 strategy, qint16 byHand, const QString& tag, const QString& serial,
                          qint32 state) {
    if (!started_ || started_->strategy != 0)
        return OutOfStep;
    if (byId(contents_.strategies, strategy) == nullptr || byId(contents_.states, state) == nullptr)
        return UnknownId;
    if (tag.size() > longestTag || serial.size() > longestSerial)
        return TooLong;
    if (byHand != 0 && byHand != 1)
        return BadArgument;
    if (statesInUse_.contains(state))
        return StateInUse;
    statesInUse_ += state;
    started_->strategy = strategy;
    started_->state = state;
    started_->byHand = byHand == 1;
    started_->instrument = tag;
    started_->serial = serial;
    return Done;
}

Code Image::endTask() {
    if (!started_ || started_->strategy == 0)
        return OutOfStep;
    contents_.tasks.push_back(*started_);
    started_.reset();
    return Done;
}

void Image::newState() {
    state_ = {};
    module_.clear();
}

Code Image::saveState(qint32& id) {
    const Code code = checkCombination(state_);
    if (code != Done)
        return code;
    contents_.states.push_back(state_);
    id = lastId(contents_.states);
    return Done;
}

const Run* Image::run(qint32 record) const {
    const bool isThere = record >= 0 && std::cmp_less(record, contents_.runs.size());
    return isThere ? byId(contents_.runs, record + 1) : nullptr;
}

Code Image::selectStateOf(qint32 record) {
    const Run* const stored = run(record);
    if (stored == nullptr)
        return UnknownId;
    state_ = *byId(contents_.states, stored->state);
    module_ = stored->module;
    return Done;
}

void Image::fill(const Contents& definitions) {
    clear();
    contents_.strategies = definitions.strategies;
    contents_.prompts = definitions.prompts;
    contents_.states = definitions.states;
    for (const Prompt& prompt : contents_.prompts)
        keys_ += prompt.key;
    for (const Task& task : definitions.tasks)
        statesInUse_ += task.state;
}

} // namespace kelvane::simulators::fluke702
