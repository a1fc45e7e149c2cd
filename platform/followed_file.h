#pragma once

#include "platform/system.h"

#include <QByteArray>
#include <QFile>

#include <memory>

namespace kelvane {

/// The end of a text file that others write: what is there first, then what comes. A file that is put aside
/// as
/// "<name>.1" and replaced by a new one is read to its end before the new one is. A line "…" stands where
/// lines were passed over: because too many have come, or because more than one file was put aside since the
/// last look.
class FollowedFile {
  public:
    /// Where more than `most` bytes have come since the last look, only the last of them are given.
    explicit FollowedFile(QString path, qint64 most = 1'000'000) : path_(std::move(path)), most_(most) {}

    /// The whole lines that have come since the last look; none while there is no file.
    QByteArray readNew();

  private:
    bool open();
    bool isReplaced() const;
    void readRest();
    bool isPutAsideLast() const;

    QString path_;
    qint64 most_;
    std::unique_ptr<QFile> file_;
    std::optional<FileIdentity> identity_;
    /// What was read and not yet given; after a look the beginning of a line that is still being written.
    QByteArray unread_;
};

} // namespace kelvane
