#pragma once

namespace kelvane::testing {

/// What a program of tests ends with when it is to be counted as skipped.
inline constexpr int skipped = 77;

/// Runs all tests, in English or the language of the variable KELVANE_TEST_LANGUAGE. On the shared engine
/// they are skipped when there is no server for them, and it is a failure when none of them uses it.
int runTests();

} // namespace kelvane::testing
