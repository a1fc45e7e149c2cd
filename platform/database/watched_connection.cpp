#include "platform/database/watched_connection.h"

#include <type_traits>
#include <utility>

namespace kelvane {

namespace {

using WhenLost = std::function<void()>;

/// Takes a step. What it throws passes on.
template <class Step>
auto watch(const WhenLost& whenLost, const Step& step) {
    try {
        return step();
    } catch (const Error& error) {
        if (error.connectionLost)
            whenLost();
        throw;
    }
}

/// It may outlive its connection.
class WatchedRows final : public RecordSet {
  public:
    WatchedRows(std::unique_ptr<RecordSet> rows, WhenLost whenLost)
        : rows_(std::move(rows)), whenLost_(std::move(whenLost)) {}
    bool next() override {
        return watch(whenLost_, [this] { return rows_->next(); });
    }
    std::optional<QString> value(int column) override {
        return watch(whenLost_, [&] { return rows_->value(column); });
    }

  private:
    std::unique_ptr<RecordSet> rows_;
    WhenLost whenLost_;
};

class WatchedConnection final : public Connection {
  public:
    WatchedConnection(std::unique_ptr<Connection> real, WhenLost whenLost)
        : real_(std::move(real)), whenLost_(std::move(whenLost)) {}

    void open(const QString& connectionString, const QString& user, const QString& password) override {
        step([&] { real_->open(connectionString, user, password); });
    }
    void close() override { real_->close(); }
    bool isOpen() const override { return real_->isOpen(); }
    bool isLost() const override { return real_->isLost(); }
    qint64 execute(const QString& statement) override {
        return step([&] { return real_->execute(statement); });
    }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override {
        return std::make_unique<WatchedRows>(step([&] { return real_->select(statement, rows); }), whenLost_);
    }
    void beginTransaction() override {
        step([&] { real_->beginTransaction(); });
    }
    void commitTransaction() override {
        step([&] { real_->commitTransaction(); });
    }
    void rollBackTransaction() override {
        step([&] { real_->rollBackTransaction(); });
    }
    void lock(const QString& name) override {
        step([&] { real_->lock(name); });
    }
    void unlock(const QString& name) override {
        step([&] { real_->unlock(name); });
    }
    void refuseWriting() override {
        step([&] { real_->refuseWriting(); });
    }

  private:
    template <class Step>
    std::invoke_result_t<Step> step(const Step& step) {
        return watch(whenLost_, step);
    }

    std::unique_ptr<Connection> real_;
    WhenLost whenLost_;
};

} // namespace

ConnectionFactory watchedConnections(ConnectionFactory connections, std::function<void()> whenLost) {
    return [connections = std::move(connections), whenLost = std::move(whenLost)] {
        return std::make_unique<WatchedConnection>(connections(), whenLost);
    };
}

} // namespace kelvane
