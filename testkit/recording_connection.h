#pragma once

#include "platform/database/connection.h"

#include <QHash>
#include <QList>
#include <QStringList>

namespace kelvane::testing {

using Row = QList<std::optional<QString>>;

/// A scripted connection. Controls: `answers` (rows for a query), `failures` (an error for a statement, "lock
/// NAME" or "refuse writing"), `lose` (from now on every statement fails with a lost connection). A query
/// without an answer has no rows; a writing statement returns the number of rows in `changedRows`, or
/// nothing. `statements` holds every text that came in, exactly and in order; `firstRowOnly` those that asked
/// for one row only.
class RecordingConnection final : public Connection {
  public:
    struct Script {
        QStringList statements;
        QStringList firstRowOnly;
        QStringList transactions; // "begin", "commit", "roll back", "lock NAME", "unlock NAME",
                                  // "refuse writing"
        QHash<QString, QList<Row>> answers;
        QHash<QString, Error> failures;
        QHash<QString, qint64> changedRows;
        QStringList opened; // connection string, user, password of each open
        bool open = true;
        bool lost = false;
    };

    explicit RecordingConnection(Script& script) : script_(script) {}

    void open(const QString& connectionString, const QString& user, const QString& password) override;
    void close() override { script_.open = false; }
    bool isOpen() const override { return script_.open; }
    bool isLost() const override { return script_.lost; }
    qint64 execute(const QString& statement) override;
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override;
    void beginTransaction() override { script_.transactions << QStringLiteral("begin"); }
    void commitTransaction() override { script_.transactions << QStringLiteral("commit"); }
    void rollBackTransaction() override { script_.transactions << QStringLiteral("roll back"); }
    void lock(const QString& name) override { takeStep(QStringLiteral("lock ") + name); }
    void unlock(const QString& name) override { script_.transactions << QStringLiteral("unlock ") + name; }
    void refuseWriting() override { takeStep(QStringLiteral("refuse writing")); }

  private:
    void take(const QString& statement);
    void takeStep(const QString& step);
    Script& script_;
};

} // namespace kelvane::testing
