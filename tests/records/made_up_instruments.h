#pragma once

#include "platform/database/connection.h"
#include "testkit/fixtures.h"

#include <numeric>

namespace kelvane::testing {

/// What the connections of a test hold, and how they fail.
struct MadeUpInventory {
    int instruments = 0;
    /// No query finds anything.
    bool isBroken = false;
    /// The instrument, from 0, at whose row a block breaks off; -1 for none.
    int failAt = -1;
    bool isLoss = false;
    /// The queries for keys and for blocks of instruments that came.
    QStringList queries;
    QStringList blocks;
    /// How many rows of blocks were read in all.
    int rowsRead = 0;

    [[noreturn]] void fail() const {
        throw Error{10054, QStringLiteral("Connection reset"), QStringLiteral("08S01"), isLoss};
    }
};

/// Rows of instruments by their numbers, which are their keys, too: asset numbers from "I-00000" on, all else
/// null.
class MadeUpRows final : public RecordSet {
  public:
    MadeUpRows(MadeUpInventory& inventory, QList<int> numbers, bool isBlock)
        : inventory_(inventory), numbers_(std::move(numbers)), isBlock_(isBlock) {}
    bool next() override {
        if (++row_ == numbers_.size())
            return false;
        if (!isBlock_)
            return true;
        if (numbers_[row_] == inventory_.failAt)
            inventory_.fail();
        ++inventory_.rowsRead;
        return true;
    }
    std::optional<QString> value(int column) override {
        const int number = numbers_.at(row_);
        if (column == 1)
            return QStringLiteral("I-%1").arg(number, 5, 10, QLatin1Char('0'));
        return column == 0 ? std::optional(QString::number(number)) : std::nullopt;
    }

  private:
    MadeUpInventory& inventory_;
    QList<int> numbers_;
    bool isBlock_;
    qsizetype row_ = -1;
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
        const auto keys = keysOf(statement);
        (keys ? inventory_.blocks : inventory_.queries) << statement;
        if (inventory_.isBroken)
            inventory_.fail();
        QList<int> all(inventory_.instruments);
        std::iota(all.begin(), all.end(), 0);
        return std::make_unique<MadeUpRows>(inventory_, keys.value_or(all), keys.has_value());
    }
    void beginTransaction() override { refuse(QStringLiteral("begin")); }
    void commitTransaction() override { refuse(QStringLiteral("commit")); }
    void rollBackTransaction() override { refuse(QStringLiteral("roll back")); }
    void lock(const QString& name) override { refuse(name); }
    void unlock(const QString& name) override { refuse(name); }
    void refuseWriting() override {}

  private:
    /// Whose rows a query of a block wants; nothing for a query of keys.
    static std::optional<QList<int>> keysOf(const QString& statement) {
        const auto list =
            statement.section(QStringLiteral("inv.mtag in ("), 1).section(QLatin1Char(')'), 0, 0);
        if (list.isEmpty())
            return {};
        QList<int> keys;
        for (const auto& key : list.split(QLatin1Char(',')))
            keys << key.sliced(1).chopped(1).toInt();
        return keys;
    }
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
