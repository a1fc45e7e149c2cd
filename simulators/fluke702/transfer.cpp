#include "simulators/fluke702/transfer.h"

namespace kelvane::simulators::fluke702 {

Code Transfer::open(const QString& memory) {
    if (file_)
        return OutOfStep;
    file_.emplace(memory);
    try {
        identity_ = read().identity;
    } catch (const Failure&) {
        close();
        throw;
    }
    return Done;
}

void Transfer::close() {
    file_.reset();
    way_ = Way::None;
    moved_ = {};
}

Code Transfer::identify(Identity& identity) const {
    if (!file_)
        return NotOpen;
    identity = identity_;
    return Done;
}

Memory Transfer::read() {
    Memory memory;
    file_->use([&](const Memory& kept) {
        memory = kept;
        return false;
    });
    return memory;
}

void Transfer::write(const Contents& contents) {
    file_->use([&](Memory& kept) {
        kept.contents = contents;
        return true;
    });
}

void Transfer::start(Way way, qint32 steps, qint32& count) {
    way_ = way;
    steps_ = steps;
    left_ = steps;
    count = steps;
}

Code Transfer::checkStep(Way way, qint32 count) const {
    if (!file_)
        return NotOpen;
    return way_ == way && left_ > 0 && count == left_ ? Done : OutOfStep;
}

void Transfer::countStep(qint32& count) {
    count = --left_;
    if (left_ > 0)
        return;
    way_ = Way::None;
    moved_ = {};
}

Code Transfer::startDownload(qint32& count) {
    if (!file_)
        return NotOpen;
    if (image_.isTaskStarted())
        return OutOfStep;
    if (image_.contents().tasks.size() > static_cast<std::size_t>(read().identity.room))
        return NoRoom;
    moved_ = image_.contents();
    moved_.runs.clear();
    start(Way::Down, 1 + static_cast<qint32>(moved_.tasks.size()), count);
    return Done;
}

Code Transfer::stepDownload(qint32& count) {
    const Code code = checkStep(Way::Down, count);
    if (code != Done)
        return code;
    if (left_ == 1)
        write(moved_);
    else if (left_ == steps_)
        write({});
    countStep(count);
    return Done;
}

Code Transfer::startUpload(qint32& count) {
    if (!file_)
        return NotOpen;
    if (image_.isTaskStarted())
        return OutOfStep;
    moved_ = read().contents;
    start(Way::Up, 1 + static_cast<qint32>(moved_.tasks.size() + moved_.runs.size()), count);
    return Done;
}

Code Transfer::stepUpload(qint32& count) {
    const Code code = checkStep(Way::Up, count);
    if (code != Done)
        return code;
    const auto done = static_cast<std::size_t>(steps_ - left_);
    if (done == 0)
        image_.fill(moved_);
    else if (done <= moved_.tasks.size())
        image_.add(moved_.tasks[done - 1]);
    else
        image_.add(moved_.runs[done - 1 - moved_.tasks.size()]);
    countStep(count);
    return Done;
}

} // namespace kelvane::simulators::fluke702
