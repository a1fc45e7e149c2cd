#pragma once

#include "simulators/fluke74x/maps.h"

#include <optional>

namespace kelvane::simulators::fluke74x {

/// The list of setup operations from which a state is made: it is begun, set to the defaults, filled,
/// evaluated, and can then be saved. A call that is not due gives `OutOfStep`.
class Setup {
  public:
    Code begin();
    Code setDefaults();
    Code set(const QString& item, const Value& value);
    Code evaluate();
    /// Gives the list up.
    Code end();

    /// The state that was evaluated, null while there is none.
    const State* evaluated() const;

  private:
    bool begun_ = false;
    bool evaluated_ = false;
    std::optional<State> state_;
};

} // namespace kelvane::simulators::fluke74x
