#pragma once

#include "testkit/controls.h"
#include "testkit/simulated_operator.h"

namespace kelvane::testing {

using demo::answerDialog;
using demo::click;
using demo::control;
using demo::namesBelow;
using demo::pick;

/// The simulated operator of a test: a difference that he reports fails the test, and so does what never
/// came.
class ScreenOperator final : public demo::SimulatedOperator {
  public:
    ScreenOperator();
    ~ScreenOperator() override;
};

} // namespace kelvane::testing
