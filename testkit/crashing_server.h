#pragma once

#include <QTemporaryDir>

namespace kelvane::testing {

/// A server for the shared databases that are made while this is there, of no other test: it may crash
/// (`SharedDatabase::crashServer`). It keeps what was committed.
class CrashingServer {
  public:
    CrashingServer();
    CrashingServer(const CrashingServer&) = delete;
    CrashingServer& operator=(const CrashingServer&) = delete;
    ~CrashingServer();

  private:
    QTemporaryDir folder_;
    QByteArray before_;
};

} // namespace kelvane::testing
