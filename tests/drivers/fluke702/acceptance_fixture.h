#pragma once

#include "testkit/acceptance_fixture.h"
#include "testkit/fluke_fixture.h"

namespace kelvane::testing {

class FlukeAcceptance : public AcceptanceOf<FlukeFixture> {};

} // namespace kelvane::testing
