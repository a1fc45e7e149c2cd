#pragma once

#include "simulators/common/failure.h"

#include <QString>

#include <optional>
#include <type_traits>
#include <utility>

namespace kelvane::simulators {

/// What a transfer answers when something does not go.
template <class Code>
struct TransferCodes {
    Code alreadyOpen; ///< the link is
    Code notOpen;     ///< the link is not
    Code outOfStep;   ///< a task is not ended, or a step is not due
    Code noRoom;      ///< more tasks than the calibrator takes
};

/// The link to a calibrator, and the transfers over it: one step for the definitions, one for each task
/// and, for an upload, one for each run. A download's first step erases the calibrator, its last one makes
/// all that came valid: broken off in between, it leaves the calibrator empty. An upload that breaks off
/// leaves in the image what has come. A memory that can't be read or written throws `Failure`.
template <class Image, class MemoryFile, auto codes>
class TransferOf {
  public:
    using Code = decltype(codes.notOpen);
    using Memory = typename MemoryFile::Kept;
    using Identity = decltype(Memory::identity);

    explicit TransferOf(Image& image) : image_(image) {}

    Code open(const QString& memory) {
        if (file_)
            return codes.alreadyOpen;
        file_.emplace(memory);
        try {
            identity_ = read().identity;
        } catch (const Failure&) {
            close();
            throw;
        }
        return done;
    }

    /// Breaks a transfer off.
    void close() {
        file_.reset();
        way_ = Way::None;
        moved_ = {};
    }

    bool isOpen() const { return file_.has_value(); }

    Code identify(Identity& identity) const {
        if (!file_)
            return codes.notOpen;
        identity = identity_;
        return done;
    }

    /// `count` is the number of steps to come, and has to be what the last call said.
    Code startDownload(qint32& count) {
        const Code code = checkStart();
        if (code != done)
            return code;
        if (image_.contents().tasks.size() > static_cast<std::size_t>(read().identity.room))
            return codes.noRoom;
        moved_ = image_.contents();
        moved_.runs.clear();
        start(Way::Down, 1 + static_cast<qint32>(moved_.tasks.size()), count);
        return done;
    }

    Code stepDownload(qint32& count) {
        const Code code = checkStep(Way::Down, count);
        if (code != done)
            return code;
        if (left_ == 1)
            write(moved_);
        else if (left_ == steps_)
            write({});
        countStep(count);
        return done;
    }

    Code startUpload(qint32& count) {
        const Code code = checkStart();
        if (code != done)
            return code;
        moved_ = read().contents;
        start(Way::Up, 1 + static_cast<qint32>(moved_.tasks.size() + moved_.runs.size()), count);
        return done;
    }

    Code stepUpload(qint32& count) {
        const Code code = checkStep(Way::Up, count);
        if (code != done)
            return code;
        const auto taken = static_cast<std::size_t>(steps_ - left_);
        if (taken == 0)
            image_.fill(moved_);
        else if (taken <= moved_.tasks.size())
            image_.add(moved_.tasks[taken - 1]);
        else
            image_.add(moved_.runs[taken - 1 - moved_.tasks.size()]);
        countStep(count);
        return done;
    }

  private:
    enum class Way { None, Down, Up };
    using Contents = decltype(Memory::contents);
    static constexpr Code done{};

    Memory read() {
        Memory memory;
        file_->use([&](const Memory& kept) {
            memory = kept;
            return false;
        });
        return memory;
    }

    void write(const Contents& contents) {
        file_->use([&](Memory& kept) {
            kept.contents = contents;
            return true;
        });
    }

    void start(Way way, qint32 steps, qint32& count) {
        way_ = way;
        steps_ = steps;
        left_ = steps;
        count = steps;
    }

    Code checkStart() const {
        if (!file_)
            return codes.notOpen;
        return image_.isTaskStarted() ? codes.outOfStep : done;
    }

    Code checkStep(Way way, qint32 count) const {
        if (!file_)
            return codes.notOpen;
        return way_ == way && left_ > 0 && count == left_ ? done : codes.outOfStep;
    }

    void countStep(qint32& count) {
        count = --left_;
        if (left_ > 0)
            return;
        way_ = Way::None;
        moved_ = {};
    }

    Image& image_;
    std::optional<MemoryFile> file_;
    Identity identity_;
    Way way_ = Way::None;
    qint32 steps_ = 0;
    qint32 left_ = 0;
    Contents moved_;
};

} // namespace kelvane::simulators
