#include "platform/followed_file.h"

namespace kelvane {

QByteArray FollowedFile::readNew() {
    if (!file_ && !open())
        return {};
    readRest();
    if (isReplaced()) {
        // What was still written to it before it was renamed.
        readRest();
        file_.reset();
        if (open())
            readRest();
    }
    const auto lines = unread_.first(unread_.lastIndexOf('\n') + 1);
    unread_.remove(0, lines.size());
    return lines;
}

bool FollowedFile::open() {
    auto file = std::make_unique<QFile>(path_);
    if (!file->open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return false;
    file_ = std::move(file);
    identity_ = identify(QFile::encodeName(path_));
    return true;
}

/// Also true for one that was cut short.
bool FollowedFile::isReplaced() const {
    return identify(QFile::encodeName(path_)) != identity_ || file_->size() < file_->pos();
}

void FollowedFile::readRest() {
    if (file_->size() - file_->pos() > most_) {
        unread_.clear();
        file_->seek(file_->size() - most_);
        // As a rule this is the end of a line that is passed over.
        file_->readLine();
    }
    unread_ += file_->read(most_);
}

} // namespace kelvane
