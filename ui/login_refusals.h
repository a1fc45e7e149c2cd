#pragma once

namespace kelvane {

struct Workstation;

/// Openings of the database that were refused in a row. Each further one waits longer before its message
/// appears, so that passwords can't be tried fast.
class LoginRefusals {
  public:
    /// Counts one more, and waits behind the first: 1 second, then 2, 4 and so on, at most a minute. The
    /// window lives meanwhile.
    void addAndWait(const Workstation& workstation);
    /// The connection was opened.
    void forget() { count_ = 0; }

  private:
    int count_ = 0;
};

} // namespace kelvane
