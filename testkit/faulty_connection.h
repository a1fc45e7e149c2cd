#pragma once

#include "testkit/forwarding_connection.h"

#include <functional>
#include <type_traits>

namespace kelvane::testing {

/// How one step of a connection fails: a statement, or the begin or commit of a transaction. Steps count from
/// the moment at which `count` is set to 0.
struct PlannedFault {
    enum class Kind {
        /// The step is refused.
        refused,
        /// The step is carried out, and still fails.
        answerLost,
        /// The connection is gone with the step.
        connectionLost,
    };
    Kind kind = Kind::refused;
    int failAt = -1;
    int count = 0;
    bool reached = false;
    bool lost = false;
    /// A transaction has been committed.
    bool committed = false;
};

class FaultyConnection final : public ForwardingConnection {
  public:
    /// `endConnection` ends the connection at its server: a lost one then fails in the engine's own way.
    FaultyConnection(std::unique_ptr<Connection> real, PlannedFault& fault,
                     std::function<void()> endConnection = {})
        : ForwardingConnection(std::move(real)), fault_(fault), endConnection_(std::move(endConnection)) {}

    qint64 execute(const QString& statement) override {
        return step([&] { return ForwardingConnection::execute(statement); });
    }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override {
        return step([&] { return ForwardingConnection::select(statement, rows); });
    }
    void beginTransaction() override {
        step([&] { ForwardingConnection::beginTransaction(); });
    }
    void commitTransaction() override {
        step([&] {
            ForwardingConnection::commitTransaction();
            fault_.committed = true;
        });
    }
    void lock(const QString& name) override {
        step([&] { ForwardingConnection::lock(name); });
    }
    void unlock(const QString& name) override {
        step([&] { ForwardingConnection::unlock(name); });
    }

  private:
    template <class Run>
    std::invoke_result_t<Run> step(Run run) {
        if (fault_.lost && !endConnection_)
            throw Error{10054, QStringLiteral("Connection lost"), QStringLiteral("08S01"), true};
        if (fault_.count++ != fault_.failAt)
            return run();
        fault_.reached = true;
        if (fault_.kind == PlannedFault::Kind::answerLost)
            run();
        if (fault_.kind == PlannedFault::Kind::connectionLost) {
            fault_.lost = true;
            if (endConnection_) {
                endConnection_();
                return run();
            }
            close();
        }
        throw Error{13, QStringLiteral("planned fault"), QStringLiteral("HY000"), fault_.lost};
    }

    PlannedFault& fault_;
    std::function<void()> endConnection_;
};

} // namespace kelvane::testing
