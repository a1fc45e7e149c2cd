#include "platform/followed_file.h"

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// In the place of lines that were passed over.
constexpr QByteArrayView omission = "\xE2\x80\xA6\n";

} // namespace

QByteArray FollowedFile::readNew() {
    if (!file_ && !open())
        return {};
    readRest();
    if (isReplaced()) {
        // What was still written to it before it was renamed.
        readRest();
        if (!isPutAsideLast())
            unread_ += omission;
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

/// Also true for one that was cut short.
bool FollowedFile::isPutAsideLast() const {
    return identify(QFile::encodeName(path_)) == identity_ ||
           identify(QFile::encodeName(path_ + u".1"_s)) == identity_;
}

void FollowedFile::readRest() {
    if (file_->size() - file_->pos() > most_) {
        unread_ = omission.toByteArray();
        file_->seek(file_->size() - most_);
        // As a rule this is the end of a line that is passed over.
        file_->readLine();
    }
    unread_ += file_->read(most_);
}

} // namespace kelvane
