#pragma once

#include "platform/database/odbc_link.h"
#include "testkit/test_database.h"

#include <QFile>
#include <QHash>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace kelvane::testing {

/// The embedded engine's own number.
inline constexpr int full = 13;
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

/// A database that becomes unusable in use, and is restored: a file of the embedded engine is destroyed; on a
/// server all connections end, and it takes no other ones.
class DatabaseOutage {
  public:
    explicit DatabaseOutage(const TestDatabase& database) : database_(database) {
        if (!database.isShared())
            file_.emplace(database.embedded().file(QStringLiteral("mt.db")));
    }
    void begin() {
        if (file_)
            file_->corrupt();
        else
            database_.shared().refuseConnections();
    }
    void end() {
        if (file_)
            file_->repair();
        else
            database_.shared().allowConnections();
    }
    /// What the first statement fails with.
    int number() const { return file_ ? 26 : 35; }

  private:
    const TestDatabase& database_;
    std::optional<CorruptibleFile> file_;
};

/// Another workstation that holds the lock for writing the tables of the owner MT.
class OtherWriter {
  public:
    explicit OtherWriter(const TestDatabase& database) : database_(database) {}

    void lock() {
        if (database_.isShared()) {
            other_ = database_.shared().driver();
            other_->execute(QStringLiteral("begin;") + lockOfAllTables());
        } else {
            other_ = std::make_unique<OdbcLink>(QStringLiteral("Driver=SQLite3;Database=") +
                                                    database_.embedded().file(QStringLiteral("mt.db")),
                                                QString(), QString());
            other_->execute(QStringLiteral("begin immediate"));
        }
    }
    void unlock() {
        other_->execute(QStringLiteral("rollback"));
        other_.reset();
    }
    /// What a statement that waits in vain fails with.
    int number() const { return database_.isShared() ? 1 : 5; }

  private:
    QString lockOfAllTables() {
        const auto rows = other_->select(
            QStringLiteral("select 'lock table ' || string_agg(oid::regclass::text, ',') || ' in exclusive "
                           "mode' from pg_class where relkind = 'r' and relnamespace = 'mt'::regnamespace"),
            Rows::all);
        return rows->next() ? rows->value(0).value_or(QString()) : QString();
    }

    const TestDatabase& database_;
    std::unique_ptr<DriverLink> other_;
};

} // namespace kelvane::testing
