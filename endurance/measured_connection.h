#pragma once

#include "endurance/act_log.h"
#include "testkit/forwarding_connection.h"

#include <QElapsedTimer>

namespace kelvane::endure {

/// What the statements of a station took.
struct StatementFigures {
    qint64 count = 0;
    qint64 longest = 0; ///< milliseconds
};

/// Counts and times the statements of a connection.
class MeasuredConnection final : public testing::ForwardingConnection {
  public:
    MeasuredConnection(std::unique_ptr<Connection> real, StatementFigures& figures)
        : ForwardingConnection(std::move(real)), figures_(figures) {}

    qint64 execute(const QString& statement) override {
        const Measured measured(figures_);
        return ForwardingConnection::execute(statement);
    }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override {
        const Measured measured(figures_);
        return ForwardingConnection::select(statement, rows);
    }
    void beginTransaction() override {
        const Measured measured(figures_);
        ForwardingConnection::beginTransaction();
    }
    void commitTransaction() override {
        const Measured measured(figures_);
        ForwardingConnection::commitTransaction();
    }
    void lock(const QString& name) override {
        const Measured measured(figures_);
        ForwardingConnection::lock(name);
    }

  private:
    class Measured {
      public:
        explicit Measured(StatementFigures& figures) : figures_(figures) { timer_.start(); }
        ~Measured() {
            ++figures_.count;
            figures_.longest = std::max(figures_.longest, timer_.elapsed());
        }
        Measured(const Measured&) = delete;
        Measured& operator=(const Measured&) = delete;

      private:
        StatementFigures& figures_;
        QElapsedTimer timer_;
    };

    StatementFigures& figures_;
};

} // namespace kelvane::endure
