#pragma once

#include "testkit/acceptance_fixture.h"
#include "testkit/fluke74x_fixture.h"

namespace kelvane::testing {

class Fluke74xAcceptance : public AcceptanceOf<Fluke74xFixture> {};

} // namespace kelvane::testing
