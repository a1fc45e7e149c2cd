#pragma once

#include "platform/database/odbc_link.h"

#include <QFile>
#include <QHash>

#include <gtest/gtest.h>

#include <memory>

namespace kelvane::testing {

// The engine's own numbers.
inline constexpr int busy = 5;
inline constexpr int full = 13;
inline constexpr int notADatabase = 26;
inline constexpr int connectionClosed = 3709;

/// A database file that is destroyed in use, with the engine's other files, and restored.
class CorruptibleFile {
  public:
    explicit CorruptibleFile(QString path) : path_(std::move(path)) {}

    void corrupt() {
        for (const QString& side : {QString(), QStringLiteral("-wal"), QStringLiteral("-shm")}) {
            QFile file(path_ + side);
            ASSERT_TRUE(file.open(QIODevice::ReadWrite)) << file.fileName().toStdString();
            contents_[side] = file.readAll();
            file.seek(0);
            file.write(QByteArray(contents_[side].size(), 'x'));
        }
    }
    void repair() {
        QFile::remove(path_ + QStringLiteral("-shm")); // the engine makes it anew
        for (const QString& side : {QString(), QStringLiteral("-wal")}) {
            QFile file(path_ + side);
            ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
            file.write(contents_[side]);
        }
    }

  private:
    QString path_;
    QHash<QString, QByteArray> contents_;
};

/// Another workstation that holds a database file's write lock.
class OtherWriter {
  public:
    explicit OtherWriter(QString path) : path_(std::move(path)) {}

    void lock() {
        other_ = std::make_unique<OdbcLink>(QStringLiteral("Driver=SQLite3;Database=") + path_, QString(),
                                            QString());
        other_->execute(QStringLiteral("begin immediate"));
    }
    void unlock() {
        other_->execute(QStringLiteral("rollback"));
        other_.reset();
    }

  private:
    QString path_;
    std::unique_ptr<OdbcLink> other_;
};

} // namespace kelvane::testing
