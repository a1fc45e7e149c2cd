#pragma once

#include "testkit/forwarding_connection.h"

#include <functional>

namespace kelvane::testing {

/// A connection that reports each statement before it passes it on. What the report throws is the
/// statement's failure.
class OverheardConnection final : public ForwardingConnection {
  public:
    OverheardConnection(std::unique_ptr<Connection> real, std::function<void(const QString&)> report)
        : ForwardingConnection(std::move(real)), report_(std::move(report)) {}
    qint64 execute(const QString& statement) override {
        report_(statement);
        return ForwardingConnection::execute(statement);
    }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override {
        report_(statement);
        return ForwardingConnection::select(statement, rows);
    }

  private:
    std::function<void(const QString&)> report_;
};

} // namespace kelvane::testing
