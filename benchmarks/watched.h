#pragma once

#include "drivers/torquestar/serial_port.h"
#include "testkit/forwarding_connection.h"

#include <QStringList>

#include <chrono>
#include <functional>

namespace kelvane::bench {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

/// Adds the time of a block to a sum.
class Timed {
  public:
    explicit Timed(Seconds& sum) : sum_(sum), start_(Clock::now()) {}
    ~Timed() { sum_ += Clock::now() - start_; }
    Timed(const Timed&) = delete;
    Timed& operator=(const Timed&) = delete;

  private:
    Seconds& sum_;
    Clock::time_point start_;
};

/// A connection that keeps the statements that pass and the time they take.
class WatchedConnection final : public kelvane::testing::ForwardingConnection {
  public:
    struct Log {
        QStringList statements;
        QList<Rows> rows;
        Seconds time{};
        /// Runs before each statement.
        std::function<void()> onStatement;
    };
    WatchedConnection(std::unique_ptr<Connection> real, Log& log)
        : ForwardingConnection(std::move(real)), log_(log) {}

    qint64 execute(const QString& statement) override {
        keep(statement, Rows::all);
        const Timed timed(log_.time);
        return ForwardingConnection::execute(statement);
    }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override {
        keep(statement, rows);
        const Timed timed(log_.time);
        return ForwardingConnection::select(statement, rows);
    }

  private:
    void keep(const QString& statement, Rows rows) {
        if (log_.onStatement)
            log_.onStatement();
        log_.statements << statement;
        log_.rows << rows;
    }
    Log& log_;
};

/// A serial port that counts the bytes of each exchange and the time from its opening to its last byte sent.
class WatchedPort final : public SerialPort {
  public:
    explicit WatchedPort(SerialPort& real) : real_(real) {}

    bool portOpen() const override { return real_.portOpen(); }
    void setPortOpen(bool open) override {
        if (open) {
            ++exchanges;
            opened_ = lastSent_ = Clock::now();
        } else {
            endExchange();
        }
        real_.setPortOpen(open);
    }
    void setCommPort(int number) override { real_.setCommPort(number); }
    void setSettings(const QString& settings) override { real_.setSettings(settings); }
    int inBufferCount() override { return real_.inBufferCount(); }
    QByteArray input() override {
        const auto came = real_.input();
        bytes += came.size();
        return came;
    }
    void output(const QByteArray& sent) override {
        real_.output(sent);
        bytes += sent.size();
        lastSent_ = Clock::now();
    }
    /// Ends the last exchange, whose port stays open.
    void endExchange() {
        time += lastSent_ - opened_;
        opened_ = lastSent_;
    }

    int exchanges = 0;
    qsizetype bytes = 0;
    Seconds time{};

  private:
    SerialPort& real_;
    Clock::time_point opened_;
    Clock::time_point lastSent_;
};

} // namespace kelvane::bench
