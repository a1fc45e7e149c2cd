#pragma once

#include "testkit/controls.h"
#include "testkit/person.h"

namespace kelvane::testing {

using demo::answerDialog;
using demo::click;
using demo::control;
using demo::namesBelow;
using demo::pick;

/// The person in front of a test's windows: what he complains about fails the test, and so does what never
/// came.
class ScreenOperator final : public demo::Person {
  public:
    ScreenOperator();
    ~ScreenOperator() override;
};

} // namespace kelvane::testing
