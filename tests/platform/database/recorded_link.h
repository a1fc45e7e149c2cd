#pragma once

#include "platform/database/engine_adapter.h"
#include "testkit/recording_connection.h"

namespace kelvane::testing {

/// A driver that keeps the texts that reach it. Controls: `failures` (an error for a text), `failAt` (the
/// error of the n-th text, from 0), `changedRows` (how many rows a text has changed; -1, not known,
/// otherwise), `busyTimes` (so many texts meet the lock of another workstation).
class RecordedLink final : public DriverLink {
  public:
    QStringList statements;
    QList<Rows> rows;
    QHash<QString, Error> failures;
    std::optional<qsizetype> failAt;
    QHash<QString, qint64> changedRows;
    int busyTimes = 0;
    /// What an engine says of a lock.
    static Error lockedError() { return {5, QStringLiteral("database is locked"), QStringLiteral("HY000")}; }

    qint64 execute(const QString& statement) override {
        if (failAt == statements.size()) {
            statements << statement;
            throw Error{19, QStringLiteral("statement %1 failed").arg(*failAt), QStringLiteral("HY000")};
        }
        statements << statement;
        if (busyTimes > 0) {
            --busyTimes;
            throw lockedError();
        }
        if (const auto failure = failures.constFind(statement); failure != failures.cend())
            throw *failure;
        return changedRows.value(statement, -1);
    }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows wanted) override {
        execute(statement);
        rows << wanted;
        return std::make_unique<NoRows>();
    }

  private:
    class NoRows final : public RecordSet {
      public:
        bool next() override { return false; }
        std::optional<QString> value(int) override { throw makeError(ErrorNumber::noCurrentRow); }
    };
};

} // namespace kelvane::testing
