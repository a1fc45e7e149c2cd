#pragma once

#include "platform/database/connection.h"

namespace kelvane::testing {

/// A connection that passes everything on to another one, for those that observe a part of it.
class ForwardingConnection : public Connection {
  public:
    explicit ForwardingConnection(std::unique_ptr<Connection> real) : real_(std::move(real)) {}

    void open(const QString& connectionString, const QString& user, const QString& password) override {
        real_->open(connectionString, user, password);
    }
    void close() override { real_->close(); }
    bool isOpen() const override { return real_->isOpen(); }
    bool isLost() const override { return real_->isLost(); }
    qint64 execute(const QString& statement) override { return real_->execute(statement); }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override {
        return real_->select(statement, rows);
    }
    void beginTransaction() override { real_->beginTransaction(); }
    void commitTransaction() override { real_->commitTransaction(); }
    void rollBackTransaction() override { real_->rollBackTransaction(); }
    void lock(const QString& name) override { real_->lock(name); }
    void unlock(const QString& name) override { real_->unlock(name); }
    void refuseWriting() override { real_->refuseWriting(); }

  private:
    std::unique_ptr<Connection> real_;
};

} // namespace kelvane::testing
