#pragma once

#include "platform/database/connection.h"
#include "testkit/fixtures.h"

#include <functional>

namespace kelvane::testing {

/// What the connections of a test hold, and how they fail.
struct MadeUpInventory {
    int instruments = 0;
    /// The row, from 0, at which reading fails; -1 for none.
    int failAt = -1;
    bool isLoss = false;
    /// The queries for instruments that came.
    QStringList statements;
    /// How many rows were read in all.
    int rowsRead = 0;
};

/// Rows of a query for instruments: asset numbers from "I-00000" on, all else null.
class MadeUpRows final : public RecordSet {
  public:
    explicit MadeUpRows(MadeUpInventory& inventory) : inventory_(inventory) {}
    bool next() override {
        if (++row_ == inventory_.failAt)
            throw Error{10054, QStringLiteral("Connection reset"), QStringLiteral("08S01"),
                        inventory_.isLoss};
        if (row_ >= inventory_.instruments)
            return false;
        ++inventory_.rowsRead;
        return true;
    }
    std::optional<QString> value(int column) override {
        if (column == 1)
            return QStringLiteral("I-%1").arg(row_, 5, 10, QLatin1Char('0'));
        return column == 0 ? std::optional(QString::number(row_)) : std::nullopt;
    }

  private:
    MadeUpInventory& inventory_;
    int row_ = -1;
};

class NoRows final : public RecordSet {
  public:
    bool next() override { return false; }
    std::optional<QString> value(int) override { return {}; }
};

/// An open connection to such an inventory; it takes queries alone.
class MadeUpConnection final : public Connection {
  public:
    explicit MadeUpConnection(MadeUpInventory& inventory) : inventory_(inventory) {}

    void open(const QString&, const QString&, const QString&) override {}
    void close() override {}
    bool isOpen() const override { return true; }
    bool isLost() const override { return false; }
    qint64 execute(const QString& statement) override { return refuse(statement); }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows) override {
        if (!statement.contains(QLatin1String(".inventory inv")))
            return std::make_unique<NoRows>();
        inventory_.statements << statement;
        return std::make_unique<MadeUpRows>(inventory_);
    }
    void beginTransaction() override { refuse(QStringLiteral("begin")); }
    void commitTransaction() override { refuse(QStringLiteral("commit")); }
    void rollBackTransaction() override { refuse(QStringLiteral("roll back")); }
    void lock(const QString& name) override { refuse(name); }
    void unlock(const QString& name) override { refuse(name); }

  private:
    static qint64 refuse(const QString& step) {
        ADD_FAILURE() << "no query: " << step.toStdString();
        return 0;
    }

    MadeUpInventory& inventory_;
};

/// A session over such a connection, with a scripted operator.
class MadeUpSession : public RecordedSession {
  protected:
    MadeUpSession() { session.SharedConnection = std::make_unique<MadeUpConnection>(inventory); }

    MadeUpInventory inventory;
};

} // namespace kelvane::testing
