#pragma once

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

namespace kelvane::testing {

/// As long as it lives no file can grow beyond `space` bytes: writing fails as it does on a full disk. Only
/// where the system can do that (`isPossible`).
class FullDisk {
  public:
#ifdef Q_OS_UNIX
    static constexpr bool isPossible = true;
    explicit FullDisk(unsigned space) {
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{space, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

  private:
    rlimit before_{};
    void (*handler_)(int);
#else
    static constexpr bool isPossible = false;
    explicit FullDisk(unsigned) {}
    ~FullDisk() {}

  public:
#endif
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
};

} // namespace kelvane::testing
